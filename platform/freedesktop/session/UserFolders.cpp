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

} // namespace zamber::freedesktop::session
