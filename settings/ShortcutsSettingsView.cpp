// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/ShortcutsSettingsView.h"

#include "platform/DesktopShortcut.h"
#include "settings/DesktopShortcutSection.h"
#include "settings/PreferenceBinding.h"
#include "settings/SettingsControls.h"
#include "settings/SettingsTheme.h"
#include "settings/SettingsUI.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"

#include <QVBoxLayout>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

constexpr int KEY_SPACING = 4;
constexpr int TIPS_PADDING = 16;
constexpr int TIPS_SPACING = 8;
constexpr int TIP_SPACING = 10;
constexpr int TIP_POINTS = 12;
constexpr int TIP_SYMBOL_WIDTH = 20;

} // namespace

ShortcutsSettingsView::ShortcutsSettingsView(const SettingsTheme& theme, UserDefaults& defaults,
                                             const QString& commandKeyHint, DesktopShortcut* desktopShortcut)
    : SettingsPage(theme)
    , m_commandKeyHint(commandKeyHint) {
    add(settingsHeader(theme, u"Shortcuts"_s, u"keyboard.fill"_s));
    add(settingsSection(theme, u"Main"_s, [&](QBoxLayout& card) {
        card.addWidget(shortcutRow(u"Open Zamber"_s, {u"⌘"_s, u"⇧"_s, u"V"_s}));
    }));
    if (desktopShortcut != nullptr && desktopShortcut->status() != DesktopShortcutStatus::NotOffered) {
        add(desktopShortcutSection(theme, *desktopShortcut));
    }
    add(settingsSection(theme, u"Quick Paste"_s, [&](QBoxLayout& card) {
        card.addWidget(settingsSwitchRow(theme, defaults, preferences::quickPasteEnabled,
                                         u"Enable quick paste shortcuts"_s,
                                         u"Paste recent items directly without opening the popover"_s));
        QWidget* const rows = quickPasteRows();
        card.addWidget(rows);
        follow(*rows, defaults, preferences::quickPasteEnabled.name,
               [rows, &defaults] { rows->setVisible(read(defaults, preferences::quickPasteEnabled)); });
    }));
    add(settingsSection(theme, u"Tips"_s, [&](QBoxLayout& card) {
        auto* tips = new QVBoxLayout;
        tips->setContentsMargins(TIPS_PADDING, TIPS_PADDING, TIPS_PADDING, TIPS_PADDING);
        tips->setSpacing(TIPS_SPACING);
        tips->addWidget(tipRow(u"arrow.up.arrow.down"_s, u"Use ↑↓ arrows to navigate items"_s));
        tips->addWidget(tipRow(u"return"_s, u"Press Return to paste selected item"_s));
        tips->addWidget(tipRow(u"escape"_s, u"Press Esc to close the popover"_s));
        tips->addWidget(tipRow(u"magnifyingglass"_s, u"Start typing to search instantly"_s));
        card.addLayout(tips);
    }));
}

QWidget* ShortcutsSettingsView::quickPasteRows() const {
    auto* rows = new QWidget;
    auto* column = new QVBoxLayout(rows);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(settingsDivider(theme()));
    column->addWidget(shortcutRow(u"Paste 2nd item"_s, {u"⌘"_s, u"⇧"_s, u"2"_s}));
    column->addWidget(settingsDivider(theme()));
    column->addWidget(shortcutRow(u"Paste 3rd item"_s, {u"⌘"_s, u"⇧"_s, u"3"_s}));
    return rows;
}

QWidget* ShortcutsSettingsView::shortcutRow(const QString& label, const QStringList& keys) const {
    return settingsRow([&](QBoxLayout& line) {
        line.addWidget(settingsLabel(theme(), label));
        line.addStretch();
        auto* caps = new QWidget;
        caps->setAccessibleName(keys.join(QString()));
        caps->setToolTip(m_commandKeyHint);
        auto* side = new QHBoxLayout(caps);
        side->setContentsMargins(0, 0, 0, 0);
        side->setSpacing(KEY_SPACING);
        for (const QString& key : keys) {
            side->addWidget(keyCapView(theme(), key));
        }
        line.addWidget(caps);
    });
}

QWidget* ShortcutsSettingsView::tipRow(const QString& icon, const QString& text) const {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(TIP_SPACING);
    auto* frame = new QWidget;
    frame->setFixedWidth(TIP_SYMBOL_WIDTH);
    auto* inside = new QHBoxLayout(frame);
    inside->setContentsMargins(0, 0, 0, 0);
    auto* symbol = new ui::SymbolView(theme().symbols(), icon, TIP_POINTS, QFont::Normal);
    inside->addWidget(symbol, 0, Qt::AlignCenter);
    auto* label = new ui::TextLabel(text, ui::textFont(TIP_POINTS));
    line->addWidget(frame);
    line->addWidget(label);
    line->addStretch();
    theme().apply(row, [symbol, label](const ui::Palette& palette) {
        symbol->setColor(palette.secondary);
        label->setColor(palette.secondary);
    });
    return row;
}

} // namespace zamber::settings
