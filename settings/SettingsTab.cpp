// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsTab.h"

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

struct Description {
    QString rawValue;
    QString icon;
    QColor ui::Palette::* iconColor;
};

/// In the order of ALL_SETTINGS_TABS.
const Description& describe(SettingsTab tab) {
    static const std::array<Description, ALL_SETTINGS_TABS.size()> descriptions{{
        {u"General"_s, u"gearshape.fill"_s, &ui::Palette::gray},
        {u"Clipboard"_s, u"clipboard.fill"_s, &ui::Palette::blue},
        {u"Shortcuts"_s, u"keyboard.fill"_s, &ui::Palette::orange},
        {u"About"_s, u"info.circle.fill"_s, &ui::Palette::secondary},
    }};
    return descriptions[static_cast<std::size_t>(tab)];
}

} // namespace

QString rawValue(SettingsTab tab) {
    return describe(tab).rawValue;
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
    return describe(tab).icon;
}

QColor iconColor(SettingsTab tab, const ui::Palette& palette) {
    return palette.*describe(tab).iconColor;
}

} // namespace zamber::settings
