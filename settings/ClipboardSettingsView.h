// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsPage.h"

namespace zamber {
class UserDefaults;
}

namespace zamber::settings {

/// The page about the history: its length, the facts that rows show, and the masking of sensitive texts.
class ClipboardSettingsView final : public SettingsPage {
    Q_OBJECT

public:
    ClipboardSettingsView(const SettingsTheme& theme, UserDefaults& defaults);
};

} // namespace zamber::settings
