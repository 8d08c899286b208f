// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/PreferenceKeys.h"

#include <functional>

class QObject;

namespace zamber::ui {
class SegmentedPicker;
class Switch;
} // namespace zamber::ui

namespace zamber::settings {

/// Calls `show` now and after each change of the preference of that name, for as long as the context lives.
void follow(QObject& context, UserDefaults& defaults, QLatin1StringView key, std::function<void()> show);

// Bind a control to a preference for as long as the control lives: the user's choice is written at once, and every
// other change of the preference is shown at once. Binding itself writes nothing.
void bind(ui::Switch& control, UserDefaults& defaults, const preferences::PreferenceKey<bool>& key);
void bind(ui::SegmentedPicker& control, UserDefaults& defaults, const preferences::PreferenceKey<QStringView>& key);
/// The choices' values are decimal numbers. A number that is none of them shows no segment and is left alone.
void bind(ui::SegmentedPicker& control, UserDefaults& defaults, const preferences::PreferenceKey<int>& key);

} // namespace zamber::settings
