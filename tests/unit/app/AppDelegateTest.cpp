// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "AppDelegateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// Start-up

TEST_F(AppDelegateTest, StartsInOrder) {
    delegate->applicationDidFinishLaunching();
    EXPECT_THAT(journal.entries(), ElementsAre("accessory policy", "status item doc.on.clipboard", "register hot key 1",
                                               "register hot key 2", "register hot key 3"));
    EXPECT_EQ(statusItem.description, QStringLiteral("Zamber"));
    EXPECT_NE(popover.content, nullptr);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(AppDelegateTest, WhatIsOnTheClipboardAtStartIsNotCaptured) {
    pasteboard.copyText("before the start");
    launch();
    scheduler.advance(2s);
    EXPECT_THAT(delegate->clipboardManager->items(), IsEmpty());
}

TEST_F(AppDelegateTest, WhenTheDelegateHasBeenReleasedALateOnPasteDoesNothing) {
    launch();
    const auto manager = delegate->clipboardManager;
    delegate.reset();
    manager->onPaste();
    scheduler.advance(1s);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
}

TEST_F(AppDelegateTest, WithThePermissionPresentTheStartLogsOneLine) {
    testing::internal::CaptureStdout();
    launch();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "✅ Accessibility: trusted\n");
}

TEST_F(AppDelegateTest, AnotherStartShowsThePopover) {
    launch();
    application.startAgain();
    EXPECT_TRUE(popover.isShown());
}

// Status item

TEST_F(AppDelegateTest, ALeftClickOpensThePopoverWhenItIsClosedAndClosesItWhenItIsOpen) {
    launch();
    statusItem.click(MouseButton::Left);
    EXPECT_TRUE(popover.isShown());
    statusItem.click(MouseButton::Left);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(AppDelegateTest, ARightClickOpensTheMenuAndNeverThePopover) {
    launch();
    statusItem.click(MouseButton::Right);
    EXPECT_FALSE(popover.isShown());
    ASSERT_EQ(statusItem.shownMenus.size(), 1);
    EXPECT_EQ(statusItem.shownMenus[0].last().title, QStringLiteral("Quit Zamber"));
    EXPECT_EQ(statusItem.shownMenus[0].last().keyEquivalent, QStringLiteral("q"));
}

TEST_F(AppDelegateTest, AfterAMenuTheNextLeftClickTogglesThePopoverAgain) {
    launch();
    statusItem.click(MouseButton::Right);
    statusItem.click(MouseButton::Left);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(AppDelegateTest, QuitEndsTheProgramAtOnce) {
    launch();
    statusItem.click(MouseButton::Right);
    statusItem.shownMenus[0].last().action();
    EXPECT_TRUE(application.isTerminated);
}

// Popover

TEST_F(AppDelegateTest, ThePopoverRemembersWhoWasInFrontBeforeItTakesTheFocus) {
    launch();
    openInFront("Editor");
    delegate->showPopover();
    EXPECT_THAT(journal.entries(), ElementsAre("frontmost application", "activate"));
    ASSERT_EQ(popover.showings.size(), 1);
    EXPECT_EQ(popover.showings[0].edge, PopoverEdge::MinY);
    EXPECT_EQ(popover.showings[0].anchor.screenRectangle, statusItem.place->screenRectangle);
}

TEST_F(AppDelegateTest, ThePopoverNeverOpensWithoutAStatusButtonAndThenNobodyIsRemembered) {
    launch();
    statusItem.place.reset();
    openInFront("Editor");
    delegate->showPopover();
    EXPECT_FALSE(popover.isShown());
    EXPECT_THAT(journal.entries(), IsEmpty());
}

struct SizeCase {
    std::optional<const char*> stored;
    QSize size;
};

class PopoverSizeTest : public AppDelegateTest, public testing::WithParamInterface<SizeCase> {};

TEST_P(PopoverSizeTest, FollowsThePreference) {
    if (GetParam().stored) {
        defaults.setString(keys::popoverSize.name, QString::fromLatin1(*GetParam().stored));
    }
    launch();
    EXPECT_EQ(popover.contentSize, GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(Values, PopoverSizeTest,
                         testing::Values(SizeCase{std::nullopt, {440, 420}}, SizeCase{"compact", {360, 340}},
                                         SizeCase{"normal", {440, 420}}, SizeCase{"large", {500, 520}},
                                         SizeCase{"Compact", {440, 420}}, SizeCase{"LARGE", {440, 420}},
                                         SizeCase{"", {440, 420}}, SizeCase{"huge", {440, 420}}));

struct ThemeCase {
    std::optional<const char*> stored;
    PopoverAppearance appearance;
};

class PopoverThemeTest : public AppDelegateTest, public testing::WithParamInterface<ThemeCase> {};

TEST_P(PopoverThemeTest, FollowsThePreference) {
    popover.appearance = PopoverAppearance::Dark; // whatever it was
    if (GetParam().stored) {
        defaults.setString(keys::appTheme.name, QString::fromLatin1(*GetParam().stored));
    }
    launch();
    EXPECT_EQ(popover.appearance, GetParam().appearance);
}

INSTANTIATE_TEST_SUITE_P(
    Values, PopoverThemeTest,
    testing::Values(ThemeCase{std::nullopt, PopoverAppearance::System}, ThemeCase{"auto", PopoverAppearance::System},
                    ThemeCase{"light", PopoverAppearance::Light}, ThemeCase{"dark", PopoverAppearance::Dark},
                    ThemeCase{"Dark", PopoverAppearance::System}, ThemeCase{"sepia", PopoverAppearance::System}));

TEST_F(AppDelegateTest, SizeAndThemeChangeWhileThePopoverIsOpenButNotInTheMiddleOfTheWrite) {
    launch();
    delegate->showPopover();
    defaults.setString(keys::popoverSize.name, QStringLiteral("large"));
    defaults.setString(keys::appTheme.name, QStringLiteral("dark"));
    EXPECT_EQ(popover.contentSize, QSize(440, 420));
    EXPECT_EQ(popover.appearance, PopoverAppearance::System);
    scheduler.advance(0ms);
    EXPECT_EQ(popover.contentSize, QSize(500, 520));
    EXPECT_EQ(popover.appearance, PopoverAppearance::Dark);
    EXPECT_TRUE(popover.isShown());
    EXPECT_EQ(popover.showings.size(), 1);
}

} // namespace

} // namespace zamber
