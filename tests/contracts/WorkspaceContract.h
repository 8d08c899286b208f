// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>

namespace zamber {

/// What the suite needs around a workspace, which starts with nothing in front. The rest is the desktop and its user:
/// - `openApplication`: a program with that name opens a window, which comes to the front; the number names it below;
/// - `closeApplication`: it quits; `bringToFront`: the user clicks its window;
/// - `isInFront`: whether the desktop has it in front;
/// - `wasOpened`: whether the program for addresses of the scheme "zamber-test" was given that one, once;
/// - `settle`: lets the desktop carry out all that it has been asked for;
/// - `waitUntil`: lets the main loop run until the condition holds; false when it gives up.
template <class Rig>
concept WorkspaceRig = std::default_initializable<Rig> &&
                       requires(Rig rig, const char* name, int number, std::function<bool()> condition) {
                           { rig.workspace() } -> std::same_as<Workspace&>;
                           { rig.openApplication(name) } -> std::same_as<int>;
                           rig.closeApplication(number);
                           rig.bringToFront(number);
                           { rig.wasOpened(QUrl()) } -> std::same_as<bool>;
                           { rig.isInFront(number) } -> std::same_as<bool>;
                           rig.settle();
                           { rig.waitUntil(condition) } -> std::same_as<bool>;
                       };

template <WorkspaceRig Rig>
class WorkspaceContract : public testing::Test {
protected:
    Rig rig;
    Workspace& workspace = rig.workspace();
};

TYPED_TEST_SUITE_P(WorkspaceContract);

TYPED_TEST_P(WorkspaceContract, AnEmptyDesktopHasNothingInFront) {
    EXPECT_EQ(this->workspace.frontmostApplication(), std::nullopt);
}

TYPED_TEST_P(WorkspaceContract, TheApplicationInFrontIsKnownByItsName) {
    this->rig.openApplication("Letters");
    const auto front = this->workspace.frontmostApplication();
    ASSERT_TRUE(front);
    EXPECT_EQ(front->localizedName, QStringLiteral("Letters"));
    EXPECT_GT(front->processId, 0);
}

TYPED_TEST_P(WorkspaceContract, TheSameApplicationIsEqualAtEachLook) {
    this->rig.openApplication("Letters");
    EXPECT_EQ(this->workspace.frontmostApplication(), this->workspace.frontmostApplication());
}

TYPED_TEST_P(WorkspaceContract, AnApplicationIsActivatedFromBehindAnother) {
    const int letters = this->rig.openApplication("Letters");
    const auto remembered = this->workspace.frontmostApplication();
    ASSERT_TRUE(remembered);
    const int numbers = this->rig.openApplication("Numbers");
    ASSERT_TRUE(this->rig.isInFront(numbers));
    EXPECT_NE(this->workspace.frontmostApplication(), remembered);

    this->workspace.activate(*remembered);
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.isInFront(letters); }));
    EXPECT_EQ(this->workspace.frontmostApplication(), remembered);
}

TYPED_TEST_P(WorkspaceContract, ActivatingAnApplicationThatHasQuitDoesNothing) {
    const int letters = this->rig.openApplication("Letters");
    const auto remembered = this->workspace.frontmostApplication();
    ASSERT_TRUE(remembered);
    this->rig.closeApplication(letters);
    const int numbers = this->rig.openApplication("Numbers");

    this->workspace.activate(*remembered);
    this->rig.settle();
    EXPECT_TRUE(this->rig.isInFront(numbers));
}

TYPED_TEST_P(WorkspaceContract, AnApplicationStartedAgainIsAnother) {
    const int first = this->rig.openApplication("Letters");
    const auto remembered = this->workspace.frontmostApplication();
    this->rig.closeApplication(first);
    this->rig.openApplication("Letters");
    EXPECT_NE(this->workspace.frontmostApplication(), remembered);
}

TYPED_TEST_P(WorkspaceContract, AnAddressIsOpenedByTheProgramForIt) {
    const QUrl address(QStringLiteral("zamber-test:page?one=1#two"));
    this->workspace.open(address);
    EXPECT_TRUE(this->rig.waitUntil([&] { return this->rig.wasOpened(address); }));
}

REGISTER_TYPED_TEST_SUITE_P(WorkspaceContract, AnEmptyDesktopHasNothingInFront, TheApplicationInFrontIsKnownByItsName,
                            TheSameApplicationIsEqualAtEachLook, AnApplicationIsActivatedFromBehindAnother,
                            ActivatingAnApplicationThatHasQuitDoesNothing, AnApplicationStartedAgainIsAnother,
                            AnAddressIsOpenedByTheProgramForIt);

} // namespace zamber
