// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/Trash.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

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
