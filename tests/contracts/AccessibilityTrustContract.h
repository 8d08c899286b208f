// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// What the suite needs around the permission: `canPost` tells from outside whether key events get through.
template <class Rig>
concept AccessibilityTrustRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.trust() } -> std::same_as<AccessibilityTrust&>;
    { rig.canPost() } -> std::same_as<bool>;
};

template <AccessibilityTrustRig Rig>
class AccessibilityTrustContract : public testing::Test {
protected:
    Rig rig;
};

TYPED_TEST_SUITE_P(AccessibilityTrustContract);

TYPED_TEST_P(AccessibilityTrustContract, TrustIsWhetherKeyEventsGetThrough) {
    EXPECT_EQ(this->rig.trust().isTrusted(), this->rig.canPost());
    EXPECT_EQ(this->rig.trust().isTrusted(), this->rig.canPost());
}

REGISTER_TYPED_TEST_SUITE_P(AccessibilityTrustContract, TrustIsWhetherKeyEventsGetThrough);

} // namespace zamber
