// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopShortcut.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// What the suite needs around a desktop whose shortcut is not set at first:
/// - `breakRecord`: no change of the desktop's record succeeds from now on.
template <class Rig>
concept DesktopShortcutRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.shortcut() } -> std::same_as<DesktopShortcut&>;
    rig.breakRecord();
};

template <DesktopShortcutRig Rig>
class DesktopShortcutContract : public testing::Test {
protected:
    Rig rig;
    DesktopShortcut& shortcut = rig.shortcut();
};

TYPED_TEST_SUITE_P(DesktopShortcutContract);

TYPED_TEST_P(DesktopShortcutContract, NothingIsSetAtFirst) {
    EXPECT_EQ(this->shortcut.status(), DesktopShortcutStatus::NotSet);
}

TYPED_TEST_P(DesktopShortcutContract, ItIsSetAndTakenAway) {
    EXPECT_TRUE(this->shortcut.set());
    EXPECT_EQ(this->shortcut.status(), DesktopShortcutStatus::Set);
    EXPECT_TRUE(this->shortcut.remove());
    EXPECT_EQ(this->shortcut.status(), DesktopShortcutStatus::NotSet);
}

TYPED_TEST_P(DesktopShortcutContract, BothMayBeAskedAgain) {
    EXPECT_TRUE(this->shortcut.remove());
    EXPECT_TRUE(this->shortcut.set());
    EXPECT_TRUE(this->shortcut.set());
    EXPECT_EQ(this->shortcut.status(), DesktopShortcutStatus::Set);
    EXPECT_TRUE(this->shortcut.remove());
    EXPECT_EQ(this->shortcut.status(), DesktopShortcutStatus::NotSet);
}

TYPED_TEST_P(DesktopShortcutContract, AFailureHasATextAndSetsNothing) {
    this->rig.breakRecord();
    const auto outcome = this->shortcut.set();
    ASSERT_FALSE(outcome);
    EXPECT_FALSE(outcome.error().isEmpty());
    EXPECT_NE(this->shortcut.status(), DesktopShortcutStatus::Set);
}

REGISTER_TYPED_TEST_SUITE_P(DesktopShortcutContract, NothingIsSetAtFirst, ItIsSetAndTakenAway, BothMayBeAskedAgain,
                            AFailureHasATextAndSetsNothing);

} // namespace zamber
