// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsTab.h"

namespace zamber {

using namespace Qt::StringLiterals;

QString rawValue(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::General:
        return u"General"_s;
    case SettingsTab::Clipboard:
        return u"Clipboard"_s;
    case SettingsTab::Shortcuts:
        return u"Shortcuts"_s;
    case SettingsTab::About:
        break;
    }
    return u"About"_s;
}

std::optional<SettingsTab> settingsTab(const QString& name) {
    for (const SettingsTab tab : ALL_SETTINGS_TABS) {
        if (rawValue(tab) == name) {
            return tab;
        }
    }
    return std::nullopt;
}

QString icon(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::General:
        return u"gearshape.fill"_s;
    case SettingsTab::Clipboard:
        return u"clipboard.fill"_s;
    case SettingsTab::Shortcuts:
        return u"keyboard.fill"_s;
    case SettingsTab::About:
        break;
    }
    return u"info.circle.fill"_s;
}

QColor iconColor(SettingsTab tab, const Palette& palette) {
    switch (tab) {
    case SettingsTab::General:
        return palette.gray;
    case SettingsTab::Clipboard:
        return palette.blue;
    case SettingsTab::Shortcuts:
        return palette.orange;
    case SettingsTab::About:
        break;
    }
    return palette.secondary;
}

} // namespace zamber
