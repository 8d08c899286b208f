// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/ApplicationNames.h"

#include <QFile>
#include <QStandardPaths>

namespace zamber::freedesktop::session {

namespace {

std::optional<QString> nameInEntry(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    bool isInEntryGroup = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (line.startsWith('[')) {
            isInEntryGroup = line == "[Desktop Entry]";
        } else if (isInEntryGroup && line.startsWith("Name=")) {
            return QString::fromUtf8(line.sliced(5));
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> applicationNameOfClass(const QString& windowClass) {
    if (windowClass.isEmpty()) {
        return std::nullopt;
    }
    for (const QString& entry : {windowClass, windowClass.toLower()}) {
        const QString path =
            QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entry + QStringLiteral(".desktop"));
        if (const std::optional<QString> name = path.isEmpty() ? std::nullopt : nameInEntry(path)) {
            return name;
        }
    }
    return windowClass;
}

} // namespace zamber::freedesktop::session
