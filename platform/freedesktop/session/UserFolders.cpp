// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/UserFolders.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace zamber::freedesktop::session {

std::filesystem::path userDataFolder() {
    auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (QDir::isRelativePath(folder)) {
        folder = QDir::homePath() + QStringLiteral("/.local/share");
    }
    return {QFile::encodeName(folder).toStdString()};
}

std::filesystem::path userStateFolder() {
    QString folder = qEnvironmentVariable("XDG_STATE_HOME"); // Qt knows this folder from 6.7 on
    if (folder.isEmpty() || QDir::isRelativePath(folder)) {
        folder = QDir::homePath() + QStringLiteral("/.local/state");
    }
    return {QFile::encodeName(folder).toStdString()};
}

} // namespace zamber::freedesktop::session
