// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>

namespace zamber {

/// What the suite needs around an application object:
/// - `run`: runs the main loop, calling the function in its first turn, until the application ends; false when it
///   does not.
template <class Rig>
concept ApplicationRig = std::default_initializable<Rig> && requires(Rig rig, std::function<void()> first) {
    { rig.application() } -> std::same_as<Application&>;
    { rig.run(first) } -> std::same_as<bool>;
};

template <ApplicationRig Rig>
class ApplicationContract : public testing::Test {
protected:
    Rig rig;
};

TYPED_TEST_SUITE_P(ApplicationContract);

TYPED_TEST_P(ApplicationContract, TerminateEndsTheMainLoop) {
    Application& application = this->rig.application();
    application.setAccessoryPolicy();
    EXPECT_TRUE(this->rig.run([&application] { application.terminate(); }));
}

TYPED_TEST_P(ApplicationContract, ActivatingWithoutAWindowDoesNoHarm) {
    Application& application = this->rig.application();
    EXPECT_TRUE(this->rig.run([&application] {
        application.activate();
        application.terminate();
    }));
}

REGISTER_TYPED_TEST_SUITE_P(ApplicationContract, TerminateEndsTheMainLoop, ActivatingWithoutAWindowDoesNoHarm);

} // namespace zamber
