// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// What the suite needs around a login item, which is not registered at first. The rest is the user and the desktop:
/// - `switchOff`: the user switches the registered item off in the desktop's settings;
/// - `breakRecord`: no change of the desktop's record succeeds from now on.
template <class Rig>
concept LoginItemRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.item() } -> std::same_as<LoginItem&>;
    rig.switchOff();
    rig.breakRecord();
};

template <LoginItemRig Rig>
class LoginItemContract : public testing::Test {
protected:
    Rig rig;
    LoginItem& item = rig.item();
};

TYPED_TEST_SUITE_P(LoginItemContract);

TYPED_TEST_P(LoginItemContract, NothingIsRegisteredAtFirst) {
    EXPECT_EQ(this->item.status(), LoginItemStatus::NotRegistered);
}

TYPED_TEST_P(LoginItemContract, RegisteringEnablesAndUnregisteringRemoves) {
    EXPECT_TRUE(this->item.registerItem());
    EXPECT_EQ(this->item.status(), LoginItemStatus::Enabled);
    EXPECT_TRUE(this->item.unregisterItem());
    EXPECT_EQ(this->item.status(), LoginItemStatus::NotRegistered);
}

TYPED_TEST_P(LoginItemContract, WhatTheUserHasSwitchedOffIsNotEnabled) {
    EXPECT_TRUE(this->item.registerItem());
    this->rig.switchOff();
    EXPECT_EQ(this->item.status(), LoginItemStatus::RequiresApproval);
}

TYPED_TEST_P(LoginItemContract, AFailureHasATextAndChangesNothing) {
    this->rig.breakRecord();
    const auto outcome = this->item.registerItem();
    ASSERT_FALSE(outcome);
    EXPECT_FALSE(outcome.error().isEmpty());
    EXPECT_EQ(this->item.status(), LoginItemStatus::NotRegistered);
}

REGISTER_TYPED_TEST_SUITE_P(LoginItemContract, NothingIsRegisteredAtFirst, RegisteringEnablesAndUnregisteringRemoves,
                            WhatTheUserHasSwitchedOffIsNotEnabled, AFailureHasATextAndChangesNothing);

} // namespace zamber
