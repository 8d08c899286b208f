// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsControls.h"

#include "settings/PreferenceBinding.h"
#include "settings/SettingsTheme.h"
#include "settings/SettingsUI.h"
#include "ui/Switch.h"
#include "ui/TextLabel.h"

#include <QVBoxLayout>

namespace zamber::settings {

namespace {
constexpr int CAPTION_SPACING = 4;
} // namespace

ui::Switch* settingsSwitch(const SettingsTheme& theme, const QString& label) {
    auto* control = new ui::Switch(label);
    theme.apply(control, [control, &theme](const ui::Palette& palette) {
        control->setColors(palette);
        control->setMotion(theme.motion());
    });
    return control;
}

QWidget* settingsSwitchRow(const SettingsTheme& theme, UserDefaults& defaults,
                           const preferences::PreferenceKey<bool>& key, const QString& label, const QString& caption) {
    return settingsRow([&](QBoxLayout& line) {
        ui::Switch* const control = settingsSwitch(theme, label);
        bind(*control, defaults, key);
        auto* column = new QVBoxLayout;
        column->setSpacing(CAPTION_SPACING);
        column->addWidget(control);
        if (!caption.isEmpty()) {
            control->setAccessibleDescription(caption);
            column->addWidget(settingsCaption(theme, caption));
        }
        line.addLayout(column);
    });
}

SettingsPickerRow settingsPickerRow(const SettingsTheme& theme, const QString& label, int width,
                                    const QList<ui::SegmentedPicker::Choice>& choices) {
    auto* picker = new ui::SegmentedPicker(label, choices);
    picker->setFixedWidth(width);
    theme.apply(picker, [picker, &theme](const ui::Palette& palette) {
        picker->setColors(palette);
        picker->setMotion(theme.motion());
    });
    QWidget* const row = settingsRow([&](QBoxLayout& line) {
        line.addWidget(settingsLabel(theme, label));
        line.addStretch();
        line.addWidget(picker);
    });
    return {.row = row, .picker = picker};
}

} // namespace zamber::settings
