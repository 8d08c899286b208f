// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <gtest/gtest.h>

#include <concepts>
#include <memory>
#include <utility>
#include <vector>

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
    // Handlers stay for as long as the appearance does, which outlives the test's own variables.
    const auto darkAtCalls = std::make_shared<std::vector<bool>>();
    this->appearance.addChangedHandler(
        [darkAtCalls, &appearance = this->appearance] { darkAtCalls->push_back(appearance.isDark()); });
    this->rig.setDark(false);
    EXPECT_TRUE(darkAtCalls->empty());
    this->rig.setDark(true);
    EXPECT_EQ(*darkAtCalls, std::vector<bool>{true});
}

TYPED_TEST_P(AppearanceContract, EveryHandlerIsTold) {
    this->rig.setDark(false);
    const auto calls = std::make_shared<std::pair<int, int>>();
    this->appearance.addChangedHandler([calls] { ++calls->first; });
    this->appearance.addChangedHandler([calls] { ++calls->second; });
    this->rig.setDark(true);
    EXPECT_EQ(*calls, std::pair(1, 1));
}

TYPED_TEST_P(AppearanceContract, ThereIsAlwaysAnOpaqueAccentColour) {
    EXPECT_TRUE(this->appearance.accentColor().isValid());
    EXPECT_EQ(this->appearance.accentColor().alpha(), 255);
}

REGISTER_TYPED_TEST_SUITE_P(AppearanceContract, LightAndDarkFollowTheDesktop, TheHandlerIsCalledAfterAChangeAndOnlyThen,
                            EveryHandlerIsTold, ThereIsAlwaysAnOpaqueAccentColour);

} // namespace zamber
