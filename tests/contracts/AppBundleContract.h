// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AppBundle.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

template <class Rig>
concept AppBundleRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.bundle() } -> std::same_as<AppBundle&>;
};

template <AppBundleRig Rig>
class AppBundleContract : public testing::Test {
protected:
    Rig rig;
    AppBundle& bundle = rig.bundle();
};

TYPED_TEST_SUITE_P(AppBundleContract);

TYPED_TEST_P(AppBundleContract, LiesAtAnAbsolutePathThatEndsInItsName) {
    EXPECT_TRUE(this->bundle.path().startsWith(u'/'));
    EXPECT_FALSE(this->bundle.path().endsWith(u'/'));
}

TYPED_TEST_P(AppBundleContract, VersionAndBuildAreTextsWhereTheyAreThere) {
    EXPECT_NE(this->bundle.version(), QString());
    EXPECT_NE(this->bundle.build(), QString());
    EXPECT_EQ(this->bundle.version(), this->bundle.version());
}

REGISTER_TYPED_TEST_SUITE_P(AppBundleContract, LiesAtAnAbsolutePathThatEndsInItsName,
                            VersionAndBuildAreTextsWhereTheyAreThere);

} // namespace zamber
