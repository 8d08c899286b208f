// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/UserDefaults.h"

namespace zamber {

namespace {
UserDefaults* standardDefaults = nullptr;
}

UserDefaults& UserDefaults::standard() {
    Q_ASSERT_X(standardDefaults, "UserDefaults::standard", "setStandard comes first");
    return *standardDefaults;
}

void UserDefaults::setStandard(UserDefaults* defaults) {
    standardDefaults = defaults;
}

} // namespace zamber
