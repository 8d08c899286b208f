// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "AppDelegateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber::app {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(AppDelegateTest, TheThreeHotKeysAreCommandShiftOnPhysicalKeysUnderOneSignature) {
    launch();
    ASSERT_EQ(hotKeys.registrations.size(), 3U);
    const PhysicalKey keys[] = {PhysicalKey::V, PhysicalKey::Digit2, PhysicalKey::Digit3};
    for (std::uint32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(hotKeys.registrations[i].key, keys[i]);
        EXPECT_TRUE(hotKeys.registrations[i].modifiers.command);
        EXPECT_TRUE(hotKeys.registrations[i].modifiers.shift);
        EXPECT_EQ(hotKeys.registrations[i].id.id, i + 1);
        EXPECT_EQ(hotKeys.registrations[i].id.signature, 0x5A4D4252U); // "ZMBR"
    }
}

TEST_F(AppDelegateTest, TheMainHotKeyOpensThePopoverAfterTheHandlerHasReturned) {
    launch();
    hotKeys.press(PhysicalKey::V);
    EXPECT_FALSE(popover.isShown());
    scheduler.advance(0ms);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(AppDelegateTest, TheMainHotKeyKeepsAnOpenPopoverOpenAndShowsItAgain) {
    launch();
    for (int i = 0; i < 2; ++i) {
        hotKeys.press(PhysicalKey::V);
        scheduler.advance(0ms);
    }
    EXPECT_TRUE(popover.isShown());
    EXPECT_EQ(popover.showings.size(), 2);
}

TEST_F(AppDelegateTest, TheMainHotKeyInAnOpenPopoverRemembersThisApplication) {
    launch();
    capture("chosen");
    openInFront("Editor");
    hotKeys.press(PhysicalKey::V);
    scheduler.advance(0ms);
    const auto zamber = openInFront("Zamber");
    hotKeys.press(PhysicalKey::V);
    scheduler.advance(0ms);
    choose(0);
    scheduler.advance(350ms);
    EXPECT_THAT(keystrokes.received, ElementsAre(zamber));
}

TEST_F(AppDelegateTest, AnUnknownHotKeyDoesNothing) {
    launch();
    hotKeys.pressUnknown(0);
    hotKeys.pressUnknown(4);
    scheduler.advance(1s);
    EXPECT_THAT(journal.entries(), IsEmpty());
}

TEST_F(AppDelegateTest, AHotKeyThatSomebodyElseHoldsLeavesTheOthers) {
    hotKeys.takeElsewhere(PhysicalKey::Digit2);
    launch();
    hotKeys.press(PhysicalKey::V);
    scheduler.advance(0ms);
    EXPECT_TRUE(popover.isShown());
    EXPECT_EQ(hotKeys.registrations.size(), 2U);
}

TEST_F(AppDelegateTest, AHotKeyPressedAfterTheDelegateHasGoneDoesNothing) {
    launch();
    delegate.reset();
    hotKeys.press(PhysicalKey::V);
    scheduler.advance(0ms);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(AppDelegateTest, WithQuickPasteNeverWrittenItsKeysAreRegisteredAndDoNothing) {
    launch();
    capture("one");
    capture("two");
    capture("three");
    openInFront("Editor");
    hotKeys.press(PhysicalKey::Digit2);
    hotKeys.press(PhysicalKey::Digit3);
    scheduler.advance(1s);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    EXPECT_THAT(pasteboard.writes, IsEmpty());
}

TEST_F(AppDelegateTest, QuickPasteIsReadAtEachPress) {
    launch();
    capture("one");
    capture("two");
    const auto editor = openInFront("Editor");
    write(userDefaults, preferences::quickPasteEnabled, true);
    hotKeys.press(PhysicalKey::Digit2);
    scheduler.advance(1s);
    EXPECT_THAT(keystrokes.received, ElementsAre(editor));
    EXPECT_EQ(pasteboard.writes.last().bytes, "one");

    write(userDefaults, preferences::quickPasteEnabled, false);
    hotKeys.press(PhysicalKey::Digit2);
    scheduler.advance(1s);
    EXPECT_EQ(keystrokes.received.size(), 1U);
}

TEST_F(AppDelegateTest, WithOneEntryQuickPasteDoesNothingAndWithTwoOnlyTheSecondIsThere) {
    launch();
    write(userDefaults, preferences::quickPasteEnabled, true);
    openInFront("Editor");
    capture("one");
    journal.clear();
    hotKeys.press(PhysicalKey::Digit2);
    scheduler.advance(1s);
    EXPECT_THAT(journal.entries(), IsEmpty());
    EXPECT_THAT(pasteboard.writes, IsEmpty());

    capture("two");
    hotKeys.press(PhysicalKey::Digit3);
    scheduler.advance(1s);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    hotKeys.press(PhysicalKey::Digit2);
    scheduler.advance(1s);
    EXPECT_EQ(keystrokes.asked.size(), 1U);
}

} // namespace

} // namespace zamber::app
