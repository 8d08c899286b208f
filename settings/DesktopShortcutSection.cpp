// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/DesktopShortcutSection.h"

#include "platform/DesktopShortcut.h"
#include "settings/SettingsControls.h"
#include "settings/SettingsTheme.h"
#include "settings/SettingsUI.h"
#include "ui/Switch.h"
#include "ui/TextLabel.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

#include <expected>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

constexpr int DESKTOP_CAPTION_SPACING = 4;

/// The switch as the desktop's record has it, and under it the refusal, if there was one.
void show(ui::Switch& control, ui::TextLabel& caption, const DesktopShortcut& shortcut,
          const std::expected<void, QString>& outcome) {
    const QSignalBlocker noChange(control);
    control.setChecked(shortcut.status() == DesktopShortcutStatus::Set);
    const QString text = outcome ? u"For desktops that keep the Super key to themselves"_s : outcome.error();
    caption.setWordWrap(!outcome.has_value()); // the desktop's texts have any length
    caption.setMinimumWidth(outcome ? 0 : 1);
    caption.setText(text);
    control.setAccessibleDescription(text);
}

} // namespace

QWidget* desktopShortcutSection(const SettingsTheme& theme, DesktopShortcut& shortcut) {
    return settingsSection(theme, u"Desktop"_s, [&](QBoxLayout& card) {
        card.addWidget(settingsRow([&](QBoxLayout& line) {
            ui::Switch* const control = settingsSwitch(theme, u"Use the desktop's own shortcut"_s);
            ui::TextLabel* const caption = settingsCaption(theme, {});
            show(*control, *caption, shortcut, {});
            QObject::connect(control, &ui::Switch::toggled, control, [control, caption, &shortcut](bool isOn) {
                show(*control, *caption, shortcut, isOn ? shortcut.set() : shortcut.remove());
            });
            auto* column = new QVBoxLayout;
            column->setSpacing(DESKTOP_CAPTION_SPACING);
            column->addWidget(control);
            column->addWidget(caption);
            line.addLayout(column);
        }));
    });
}

} // namespace zamber::settings
