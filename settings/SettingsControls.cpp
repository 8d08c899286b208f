// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsControls.h"

#include "settings/PreferenceBinding.h"
#include "settings/SettingsLook.h"
#include "settings/SettingsUI.h"
#include "ui/Switch.h"
#include "ui/TextLabel.h"

#include <QVBoxLayout>

namespace zamber::settings {

namespace {
constexpr int CAPTION_SPACING = 4;
} // namespace

ui::Switch* settingsSwitch(const SettingsLook& look, const QString& label) {
    auto* control = new ui::Switch(label);
    look.apply(control, [control, &look](const ui::Palette& palette) {
        control->setColors(palette);
        control->setMotion(look.motion());
    });
    return control;
}

QWidget* settingsSwitchRow(const SettingsLook& look, UserDefaults& defaults,
                           const preferences::PreferenceKey<bool>& key, const QString& label, const QString& caption) {
    return settingsRow([&](QBoxLayout& line) {
        ui::Switch* const control = settingsSwitch(look, label);
        bind(*control, defaults, key);
        auto* column = new QVBoxLayout;
        column->setSpacing(CAPTION_SPACING);
        column->addWidget(control);
        if (!caption.isEmpty()) {
            control->setAccessibleDescription(caption);
            column->addWidget(settingsCaption(look, caption));
        }
        line.addLayout(column);
    });
}

SettingsPickerRow settingsPickerRow(const SettingsLook& look, const QString& label, int width,
                                    const QList<ui::SegmentedPicker::Choice>& choices) {
    auto* picker = new ui::SegmentedPicker(label, choices);
    picker->setFixedWidth(width);
    look.apply(picker, [picker, &look](const ui::Palette& palette) {
        picker->setColors(palette);
        picker->setMotion(look.motion());
    });
    QWidget* const row = settingsRow([&](QBoxLayout& line) {
        line.addWidget(settingsLabel(look, label));
        line.addStretch();
        line.addWidget(picker);
    });
    return {.row = row, .picker = picker};
}

} // namespace zamber::settings
