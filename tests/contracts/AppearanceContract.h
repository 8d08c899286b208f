// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// What the suite needs around an appearance: `setDark` is the user's choice, and has arrived when it returns.
template <class Rig>
concept AppearanceRig = std::default_initializable<Rig> && requires(Rig rig, bool isDark) {
    { rig.appearance() } -> std::same_as<Appearance&>;
    rig.setDark(isDark);
};

template <AppearanceRig Rig>
class AppearanceContract : public testing::Test {
protected:
    Rig rig;
    Appearance& appearance = rig.appearance();
};

TYPED_TEST_SUITE_P(AppearanceContract);

TYPED_TEST_P(AppearanceContract, LightAndDarkFollowTheDesktop) {
    for (const bool isDark : {true, false, true}) {
        this->rig.setDark(isDark);
        EXPECT_EQ(this->appearance.isDark(), isDark);
    }
}

TYPED_TEST_P(AppearanceContract, TheHandlerIsCalledAfterAChangeAndOnlyThen) {
    this->rig.setDark(false);
    int calls = 0;
    bool wasDarkWhenCalled = false;
    this->appearance.addChangedHandler([&] {
        ++calls;
        wasDarkWhenCalled = this->appearance.isDark();
    });
    this->rig.setDark(false);
    EXPECT_EQ(calls, 0);
    this->rig.setDark(true);
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(wasDarkWhenCalled);
}

TYPED_TEST_P(AppearanceContract, EveryHandlerIsTold) {
    this->rig.setDark(false);
    int first = 0;
    int second = 0;
    this->appearance.addChangedHandler([&] { ++first; });
    this->appearance.addChangedHandler([&] { ++second; });
    this->rig.setDark(true);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TYPED_TEST_P(AppearanceContract, ThereIsAlwaysAnOpaqueAccentColour) {
    EXPECT_TRUE(this->appearance.accentColor().isValid());
    EXPECT_EQ(this->appearance.accentColor().alpha(), 255);
}

REGISTER_TYPED_TEST_SUITE_P(AppearanceContract, LightAndDarkFollowTheDesktop, TheHandlerIsCalledAfterAChangeAndOnlyThen,
                            EveryHandlerIsTold, ThereIsAlwaysAnOpaqueAccentColour);

} // namespace zamber
