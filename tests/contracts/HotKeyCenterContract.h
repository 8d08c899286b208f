// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>
#include <vector>

namespace zamber {

/// What the suite needs around a hot-key center. The rest is the user and another program:
/// - `press`: the user presses Command, Shift and the key, and lets go; `pressWithLocks`: while Caps Lock and Num Lock
///   are on; `pressAlone`: the key without modifiers;
/// - `takeElsewhere`: another program holds Command, Shift and that key;
/// - `waitUntil`: lets the main loop run until the condition holds; false when it gives up.
template <class Rig>
concept HotKeyCenterRig =
    std::default_initializable<Rig> && requires(Rig rig, PhysicalKey key, std::function<bool()> condition) {
        { rig.center() } -> std::same_as<HotKeyCenter&>;
        rig.press(key);
        rig.pressWithLocks(key);
        rig.pressAlone(key);
        rig.takeElsewhere(key);
        { rig.waitUntil(condition) } -> std::same_as<bool>;
    };

template <HotKeyCenterRig Rig>
class HotKeyCenterContract : public testing::Test {
protected:
    static constexpr HotKeyModifiers COMMAND_SHIFT{.command = true, .shift = true};
    static constexpr std::uint32_t SIGNATURE = 0x54455354; // "TEST"

    HotKeyCenterContract() {
        center.setPressedHandler([this](std::uint32_t id) { pressed.push_back(id); });
    }

    Rig rig;
    HotKeyCenter& center = rig.center();
    std::vector<std::uint32_t> pressed;
};

TYPED_TEST_SUITE_P(HotKeyCenterContract);

TYPED_TEST_P(HotKeyCenterContract, EachPressIsToldOnceByItsId) {
    ASSERT_TRUE(this->center.registerHotKey(PhysicalKey::V, this->COMMAND_SHIFT, {this->SIGNATURE, 1}));
    ASSERT_TRUE(this->center.registerHotKey(PhysicalKey::Digit2, this->COMMAND_SHIFT, {this->SIGNATURE, 2}));
    ASSERT_TRUE(this->center.registerHotKey(PhysicalKey::Digit3, this->COMMAND_SHIFT, {this->SIGNATURE, 3}));
    for (const PhysicalKey key : {PhysicalKey::V, PhysicalKey::Digit3, PhysicalKey::Digit2, PhysicalKey::V}) {
        this->rig.press(key);
    }
    EXPECT_TRUE(this->rig.waitUntil([this] { return this->pressed.size() >= 4; }));
    EXPECT_EQ(this->pressed, (std::vector<std::uint32_t>{1, 3, 2, 1}));
}

TYPED_TEST_P(HotKeyCenterContract, LockKeysDoNotMatter) {
    ASSERT_TRUE(this->center.registerHotKey(PhysicalKey::V, this->COMMAND_SHIFT, {this->SIGNATURE, 1}));
    this->rig.pressWithLocks(PhysicalKey::V);
    EXPECT_TRUE(this->rig.waitUntil([this] { return !this->pressed.empty(); }));
    EXPECT_EQ(this->pressed, std::vector<std::uint32_t>{1});
}

TYPED_TEST_P(HotKeyCenterContract, TheKeyAloneAndOtherKeysAreNotTold) {
    ASSERT_TRUE(this->center.registerHotKey(PhysicalKey::V, this->COMMAND_SHIFT, {this->SIGNATURE, 1}));
    this->rig.pressAlone(PhysicalKey::V);
    this->rig.press(PhysicalKey::Digit2);
    this->rig.press(PhysicalKey::V); // the last one, so that waiting for it is waiting for all
    EXPECT_TRUE(this->rig.waitUntil([this] { return !this->pressed.empty(); }));
    EXPECT_EQ(this->pressed, std::vector<std::uint32_t>{1});
}

TYPED_TEST_P(HotKeyCenterContract, ACombinationThatSomebodyElseHoldsFailsAlone) {
    this->rig.takeElsewhere(PhysicalKey::Digit2);
    EXPECT_FALSE(this->center.registerHotKey(PhysicalKey::Digit2, this->COMMAND_SHIFT, {this->SIGNATURE, 2}));
    ASSERT_TRUE(this->center.registerHotKey(PhysicalKey::V, this->COMMAND_SHIFT, {this->SIGNATURE, 1}));
    this->rig.press(PhysicalKey::Digit2);
    this->rig.press(PhysicalKey::V);
    EXPECT_TRUE(this->rig.waitUntil([this] { return !this->pressed.empty(); }));
    EXPECT_EQ(this->pressed, std::vector<std::uint32_t>{1});
}

REGISTER_TYPED_TEST_SUITE_P(HotKeyCenterContract, EachPressIsToldOnceByItsId, LockKeysDoNotMatter,
                            TheKeyAloneAndOtherKeysAreNotTold, ACombinationThatSomebodyElseHoldsFailsAlone);

} // namespace zamber
