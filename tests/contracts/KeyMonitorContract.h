// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyMonitor.h"

#include <gtest/gtest.h>

#include <concepts>
#include <string>

namespace zamber {

/// What the suite needs around a key monitor: `press` presses a key in one of the program's windows and tells whether
/// the window was kept from it.
template <class Rig>
concept KeyMonitorRig = std::default_initializable<Rig> && requires(Rig rig, HardwareKey key) {
    { rig.monitor() } -> std::same_as<KeyMonitor&>;
    { rig.press(key) } -> std::same_as<KeyDisposition>;
};

template <KeyMonitorRig Rig>
class KeyMonitorContract : public testing::Test {
protected:
    Rig rig;
    KeyMonitor& monitor = rig.monitor();
    std::string log;

    KeyMonitor::Handler note(char what, KeyDisposition disposition) {
        return [this, what, disposition](HardwareKey) {
            log += what;
            return disposition;
        };
    }
};

TYPED_TEST_SUITE_P(KeyMonitorContract);

TYPED_TEST_P(KeyMonitorContract, WithoutAHandlerKeysPassOn) {
    EXPECT_EQ(this->rig.press(HardwareKey::Return), KeyDisposition::PassOn);
}

TYPED_TEST_P(KeyMonitorContract, EachKeyIsToldByItsPlace) {
    std::vector<HardwareKey> seen;
    this->monitor.addHandler([&](HardwareKey key) {
        seen.push_back(key);
        return KeyDisposition::PassOn;
    });
    const std::vector keys = {HardwareKey::UpArrow, HardwareKey::DownArrow, HardwareKey::Return, HardwareKey::Escape,
                              HardwareKey::Other};
    for (const HardwareKey key : keys) {
        this->rig.press(key);
    }
    EXPECT_EQ(seen, keys);
}

TYPED_TEST_P(KeyMonitorContract, TheHandlerDecidesWhatBecomesOfAPress) {
    KeyDisposition wanted = KeyDisposition::Swallow;
    this->monitor.addHandler([&](HardwareKey) { return wanted; });
    EXPECT_EQ(this->rig.press(HardwareKey::Escape), KeyDisposition::Swallow);
    wanted = KeyDisposition::PassOn;
    EXPECT_EQ(this->rig.press(HardwareKey::Escape), KeyDisposition::PassOn);
}

TYPED_TEST_P(KeyMonitorContract, HandlersAreAskedInOrderUntilOneSwallows) {
    this->monitor.addHandler(this->note('a', KeyDisposition::PassOn));
    this->monitor.addHandler(this->note('b', KeyDisposition::Swallow));
    this->monitor.addHandler(this->note('c', KeyDisposition::Swallow));
    EXPECT_EQ(this->rig.press(HardwareKey::Return), KeyDisposition::Swallow);
    EXPECT_EQ(this->log, "ab");
}

TYPED_TEST_P(KeyMonitorContract, ARemovedHandlerIsNotAsked) {
    const auto token = this->monitor.addHandler(this->note('a', KeyDisposition::Swallow));
    this->monitor.removeHandler(token);
    this->monitor.removeHandler(token);
    this->monitor.removeHandler({});
    EXPECT_EQ(this->rig.press(HardwareKey::Return), KeyDisposition::PassOn);
    EXPECT_EQ(this->log, "");
}

TYPED_TEST_P(KeyMonitorContract, AHandlerMayRemoveItselfAndTheNextOne) {
    KeyMonitor::Token first;
    KeyMonitor::Token second;
    first = this->monitor.addHandler([&](HardwareKey) {
        this->log += '1';
        this->monitor.removeHandler(first);
        this->monitor.removeHandler(second);
        return KeyDisposition::PassOn;
    });
    second = this->monitor.addHandler(this->note('2', KeyDisposition::Swallow));
    EXPECT_EQ(this->rig.press(HardwareKey::Escape), KeyDisposition::PassOn);
    EXPECT_EQ(this->rig.press(HardwareKey::Escape), KeyDisposition::PassOn);
    EXPECT_EQ(this->log, "1");
}

REGISTER_TYPED_TEST_SUITE_P(KeyMonitorContract, WithoutAHandlerKeysPassOn, EachKeyIsToldByItsPlace,
                            TheHandlerDecidesWhatBecomesOfAPress, HandlersAreAskedInOrderUntilOneSwallows,
                            ARemovedHandlerIsNotAsked, AHandlerMayRemoveItselfAndTheNextOne);

} // namespace zamber
