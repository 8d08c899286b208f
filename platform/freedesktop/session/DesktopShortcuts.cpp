// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/DesktopShortcuts.h"

#include "platform/freedesktop/session/GSettingsShortcut.h"
#include "platform/freedesktop/session/XfconfShortcut.h"

#include <algorithm>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

std::unique_ptr<DesktopShortcut> desktopShortcutOf(const QStringList& currentDesktop, const QString& executable) {
    const QString command = shellWord(executable);
    for (const QString& desktop : currentDesktop) {
        if (desktop == "GNOME"_L1) {
            return std::make_unique<GSettingsShortcut>(GSettingsShortcut::gnome(), command);
        }
        if (desktop == "X-Cinnamon"_L1 || desktop == "Cinnamon"_L1) {
            return std::make_unique<GSettingsShortcut>(GSettingsShortcut::cinnamon(), command);
        }
        if (desktop == "XFCE"_L1) {
            return std::make_unique<XfconfShortcut>(command);
        }
    }
    return nullptr;
}

QString shellWord(const QString& path) {
    const auto isPlain = [](QChar c) {
        return (c.isLetterOrNumber() && c.unicode() < 0x80) || u"_./+@:-"_s.contains(c);
    };
    if (!path.isEmpty() && std::ranges::all_of(path, isPlain)) {
        return path;
    }
    QString escaped = path;
    return u'\'' + escaped.replace(u'\'', u"'\\''"_s) + u'\'';
}

} // namespace zamber::freedesktop::session
