// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/ClipboardSettingsView.h"

#include "settings/PreferenceBinding.h"
#include "settings/SettingsControls.h"
#include "settings/SettingsUI.h"

#include <QBoxLayout>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {
constexpr int MAX_ITEMS_WIDTH = 200;
} // namespace

ClipboardSettingsView::ClipboardSettingsView(const SettingsTheme& theme, UserDefaults& defaults)
    : SettingsPage(theme) {
    add(settingsHeader(theme, u"Clipboard"_s, u"clipboard.fill"_s));
    add(settingsSection(theme, u"History"_s, [&](QBoxLayout& card) {
        const auto [row, picker] =
            settingsPickerRow(theme, u"Max items"_s, MAX_ITEMS_WIDTH,
                              {{u"10"_s, u"10"_s}, {u"20"_s, u"20"_s}, {u"50"_s, u"50"_s}, {u"100"_s, u"100"_s}});
        bind(*picker, defaults, preferences::maxItems);
        card.addWidget(row);
    }));
    add(settingsSection(theme, u"Display"_s, [&](QBoxLayout& card) {
        card.addWidget(settingsSwitchRow(theme, defaults, preferences::showLineCount, u"Show line count"_s));
        card.addWidget(settingsDivider(theme));
        card.addWidget(settingsSwitchRow(theme, defaults, preferences::showCharCount, u"Show character count"_s));
        card.addWidget(settingsDivider(theme));
        card.addWidget(settingsSwitchRow(theme, defaults, preferences::previewURLs, u"Preview URL titles"_s,
                                         u"Show page titles for copied links"_s));
    }));
    add(settingsSection(theme, u"Security"_s, [&](QBoxLayout& card) {
        card.addWidget(settingsSwitchRow(theme, defaults, preferences::hideSensitive, u"Hide sensitive content"_s,
                                         u"Masks passwords, API keys, and tokens with ●●●●"_s));
    }));
}

} // namespace zamber::settings
