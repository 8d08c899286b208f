// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/PreferenceKeys.h"

#include "ui/SegmentedPicker.h"

#include <QString>

namespace zamber::ui {
class Switch;
}

namespace zamber::settings {

class SettingsTheme;

/// A switch in the colours of the window.
ui::Switch* settingsSwitch(const SettingsTheme& theme, const QString& label);

/// A row with a switch for the preference, and the explanation under it unless the text is empty.
QWidget* settingsSwitchRow(const SettingsTheme& theme, UserDefaults& defaults,
                           const preferences::PreferenceKey<bool>& key, const QString& label,
                           const QString& caption = {});

/// A row with a label and a picker of that width in points, not bound to anything yet.
struct SettingsPickerRow {
    QWidget* row;
    ui::SegmentedPicker* picker;
};
SettingsPickerRow settingsPickerRow(const SettingsTheme& theme, const QString& label, int width,
                                    const QList<ui::SegmentedPicker::Choice>& choices);

} // namespace zamber::settings
