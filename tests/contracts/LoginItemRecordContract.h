// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/contracts/LoginItemContract.h"

namespace zamber {

/// What a record that is the program's own to write promises on top.
template <LoginItemRig Rig>
class LoginItemRecordContract : public LoginItemContract<Rig> {};

TYPED_TEST_SUITE_P(LoginItemRecordContract);

TYPED_TEST_P(LoginItemRecordContract, BothMayBeAskedAgain) {
    EXPECT_TRUE(this->item.unregisterItem());
    EXPECT_TRUE(this->item.registerItem());
    EXPECT_TRUE(this->item.registerItem());
    EXPECT_EQ(this->item.status(), LoginItemStatus::Enabled);
}

TYPED_TEST_P(LoginItemRecordContract, RegisteringAgainClearsWhatTheUserHasSwitchedOff) {
    EXPECT_TRUE(this->item.registerItem());
    this->rig.switchOff();
    EXPECT_TRUE(this->item.registerItem());
    EXPECT_EQ(this->item.status(), LoginItemStatus::Enabled);
}

REGISTER_TYPED_TEST_SUITE_P(LoginItemRecordContract, BothMayBeAskedAgain,
                            RegisteringAgainClearsWhatTheUserHasSwitchedOff);

} // namespace zamber
