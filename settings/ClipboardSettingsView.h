// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsPage.h"

namespace zamber {
class UserDefaults;
}

namespace zamber::settings {}

namespace zamber::settings {}

namespace zamber::settings {

/// How much is kept, what the rows of the popover show, and what they mask.
class ClipboardSettingsView final : public SettingsPage {
    Q_OBJECT

public:
    ClipboardSettingsView(const SettingsLook& look, UserDefaults& defaults);
};

} // namespace zamber::settings
