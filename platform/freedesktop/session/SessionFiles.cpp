// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/SessionFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

std::expected<void, QString> startNewInstance(const QString& path) {
    QProcess process;
    process.setProgram(QFileInfo(path).isDir() ? path + u"/AppRun"_s : path);
    process.setStandardInputFile(QProcess::nullDevice());
    if (!process.startDetached()) {
        return std::unexpected(process.errorString());
    }
    return {};
}

std::expected<void, QString> moveFileToTrash(const QString& path) {
    // Without the folder above the trash, Qt 6.4 moves the file into the working directory.
    const QString above = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QDir().mkpath(above)) {
        return std::unexpected(u"There is no trash, since %1 can't be made"_s.arg(above));
    }
    QFile file(path);
    if (!file.moveToTrash()) {
        return std::unexpected(file.errorString());
    }
    return {};
}

} // namespace zamber::freedesktop::session
