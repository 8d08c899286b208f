// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "AppDelegateFixture.h"

#include "tests/support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace zamber::app {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(AppDelegateTest, APasteClosesThePopoverActivatesAndTypesAfter350Milliseconds) {
    launch();
    capture("chosen");
    const auto editor = openInFront("Editor");
    delegate->showPopover();
    workspace.bringToFront(std::nullopt);
    journal.clear();
    LogCapture log;
    choose(0);
    EXPECT_FALSE(popover.isShown());
    EXPECT_THAT(journal.entries(), ElementsAre("close popover", "activate Editor"));
    scheduler.advance(349ms);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    scheduler.advance(1ms);
    ASSERT_THAT(keystrokes.asked, SizeIs(1));
    EXPECT_EQ(keystrokes.asked.front().target, editor);
    EXPECT_THAT(keystrokes.received, ElementsAre(editor));
    EXPECT_EQ(log.take(), "🔵 Pasting into: Editor\n✅ Pasted via CGEvent\n");
}

TEST_F(AppDelegateTest, WithTheSoundOnItPlaysBeforeThePreviousApplicationComesToTheFront) {
    launch();
    write(userDefaults, preferences::playSoundOnPaste, true);
    capture("chosen");
    openInFront("Editor");
    delegate->showPopover();
    journal.clear();
    choose(0);
    EXPECT_THAT(journal.entries(), ElementsAre("close popover", "sound Tink", "activate Editor"));
    scheduler.advance(350ms);
    EXPECT_EQ(journal.entries().back(), "post paste");
}

TEST_F(AppDelegateTest, WithoutAPreviousApplicationNoSoundPlays) {
    launch();
    write(userDefaults, preferences::playSoundOnPaste, true);
    capture("chosen");
    delegate->showPopover();
    journal.clear();
    choose(0);
    EXPECT_THAT(journal.entries(), ElementsAre("close popover"));
}

TEST_F(AppDelegateTest, WithoutPermissionThePopoversSoundPlaysAllTheSame) {
    launch();
    write(userDefaults, preferences::playSoundOnPaste, true);
    capture("chosen");
    openInFront("Editor");
    delegate->showPopover();
    trust.isGranted = false;
    journal.clear();
    choose(0);
    scheduler.advance(1s);
    EXPECT_THAT(journal.entries(), ElementsAre("close popover", "sound Tink", "activate Editor"));
}

TEST_F(AppDelegateTest, APasteUnderWayOutlivesTheDelegatesOwner) {
    launch();
    capture("chosen");
    const auto editor = openInFront("Editor");
    delegate->showPopover();
    choose(0);
    delegate.reset();
    scheduler.advance(350ms);
    EXPECT_THAT(keystrokes.received, ElementsAre(editor));
}

TEST_F(AppDelegateTest, WithoutAPreviousApplicationThePopoverClosesAndTheLogSaysSo) {
    launch();
    capture("chosen");
    delegate->showPopover();
    LogCapture log;
    choose(0);
    scheduler.advance(1s);
    EXPECT_EQ(log.take(), "❌ No previous app to paste into\n");
    EXPECT_FALSE(popover.isShown());
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    EXPECT_EQ(pasteboard.string(), "chosen");
}

TEST_F(AppDelegateTest, AnApplicationWithoutANameIsLoggedAsUnknown) {
    launch();
    capture("chosen");
    workspace.bringToFront(workspace.launch(std::nullopt));
    delegate->showPopover();
    LogCapture log;
    choose(0);
    EXPECT_THAT(log.take(), HasSubstr("🔵 Pasting into: unknown\n"));
}

TEST_F(AppDelegateTest, WithoutPermissionTheApplicationComesBackAndTheLogSaysHowToGrantIt) {
    launch();
    capture("chosen");
    openInFront("Editor");
    delegate->showPopover();
    trust.isGranted = false;
    LogCapture log;
    choose(0);
    scheduler.advance(350ms);
    EXPECT_EQ(log.take(), "🔵 Pasting into: Editor\n"
                          "❌ Accessibility NOT granted. Clipboard is set — press ⌘+V manually.\n"
                          "💡 To fix: System Settings → Privacy → Accessibility → add Xcode (or Zamber)\n"
                          "💡 Then REMOVE it and RE-ADD it, then restart the app.\n");
    EXPECT_THAT(keystrokes.asked, IsEmpty());
}

TEST_F(AppDelegateTest, TwoPastesInARowWithoutReopeningGoToTheSameApplication) {
    launch();
    capture("one");
    capture("two");
    const auto editor = openInFront("Editor");
    delegate->showPopover();
    choose(0);
    scheduler.advance(350ms);
    choose(1);
    scheduler.advance(350ms);
    EXPECT_THAT(keystrokes.received, ElementsAre(editor, editor));
}

TEST_F(AppDelegateTest, APreviousApplicationThatQuitLeavesTheKeystrokeToWhoeverIsInFront) {
    launch();
    capture("chosen");
    const auto editor = openInFront("Editor");
    delegate->showPopover();
    workspace.quit(editor);
    const auto browser = openInFront("Browser");
    choose(0);
    scheduler.advance(350ms);
    EXPECT_THAT(keystrokes.received, ElementsAre(browser));
}

TEST_F(AppDelegateTest, QuickPasteTypes150MillisecondsAfterTheWriteAndLogsOnlyTheKeystroke) {
    launchWithQuickPaste({"one", "two"});
    openInFront("Editor");
    LogCapture log;
    delegate->quickPaste(1);
    EXPECT_EQ(pasteboard.string(), "one");
    scheduler.advance(149ms);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    scheduler.advance(1ms);
    EXPECT_EQ(keystrokes.asked.size(), 1U);
    EXPECT_EQ(log.take(), "✅ Pasted via CGEvent\n");
    EXPECT_THAT(popover.showings, IsEmpty());
}

TEST_F(AppDelegateTest, QuickPasteIsForTheApplicationThatIsInFrontWhenTheKeystrokeIsTyped) {
    launchWithQuickPaste({"one", "two"});
    openInFront("Editor");
    hotKeys.press(PhysicalKey::Digit2);
    scheduler.advance(100ms);
    const auto browser = openInFront("Browser");
    scheduler.advance(50ms);
    EXPECT_THAT(keystrokes.received, ElementsAre(browser));
}

TEST_F(AppDelegateTest, EachPasteIsOfWhatWasWrittenForIt) {
    launchWithQuickPaste({"one", "two", "three"});
    openInFront("Editor");
    delegate->showPopover();
    std::vector<int> counts;
    choose(0);
    counts.push_back(pasteboard.changeCount());
    scheduler.advance(200ms);
    for (const PhysicalKey key : {PhysicalKey::Digit2, PhysicalKey::Digit3}) {
        hotKeys.press(key);
        scheduler.advance(10ms);
        counts.push_back(pasteboard.changeCount());
    }
    scheduler.advance(1s);
    ASSERT_EQ(keystrokes.asked.size(), 3U);
    // The popover's paste has the longest delay, though here not longer than that of the second press.
    std::ranges::sort(keystrokes.asked, {}, &Paste::changeCount);
    for (std::size_t i = 0; i < counts.size(); ++i) {
        EXPECT_EQ(keystrokes.asked[i].changeCount, counts[i]) << i;
    }
}

TEST_F(AppDelegateTest, APasteThatWasGivenUpIsNotLoggedAsOne) {
    launch();
    capture("one");
    capture("two");
    openInFront("Editor");
    keystrokes.clipboardIsOurs = false;
    LogCapture log;
    delegate->quickPaste(1);
    scheduler.advance(1s);
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(keystrokes.asked.size(), 1U);
}

TEST_F(AppDelegateTest, QuickPasteRemembersWhoIsInFrontThenWritesThenPlaysTheSound) {
    launch();
    write(userDefaults, preferences::playSoundOnPaste, true);
    capture("one");
    capture("two");
    openInFront("Editor");
    journal.clear();
    journal.onNote = [this] {
        if (journal.entries().back() == "sound Tink") {
            EXPECT_EQ(pasteboard.string(), "one");
        }
    };
    delegate->quickPaste(1);
    scheduler.advance(150ms);
    EXPECT_THAT(journal.entries(), ElementsAre("frontmost application", "sound Tink", "post paste"));
}

TEST_F(AppDelegateTest, QuickPasteOfAnEntryThatIsNotThereLeavesEverythingUntouched) {
    launch();
    write(userDefaults, preferences::playSoundOnPaste, true);
    capture("one");
    openInFront("Editor");
    journal.clear();
    delegate->quickPaste(1);
    scheduler.advance(1s);
    EXPECT_THAT(journal.entries(), IsEmpty());
    EXPECT_THAT(pasteboard.writes, IsEmpty());
}

TEST_F(AppDelegateTest, QuickPasteWithoutPermissionLeavesTheEntryOnTheClipboardInSilence) {
    launch();
    capture("one");
    capture("two");
    openInFront("Editor");
    trust.isGranted = false;
    LogCapture log;
    delegate->quickPaste(1);
    scheduler.advance(1s);
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(pasteboard.string(), "one");
    EXPECT_THAT(keystrokes.asked, IsEmpty());
}

TEST_F(AppDelegateTest, QuickPasteHoldsTheDelegateWeakly) {
    launch();
    capture("one");
    capture("two");
    openInFront("Editor");
    delegate->quickPaste(1);
    delegate.reset();
    scheduler.advance(1s);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
}

TEST_F(AppDelegateTest, WithASearchTextTypedQuickPasteTakesTheSecondEntryOfTheFilteredList) {
    launch();
    capture("apple pie");
    capture("pear");
    capture("apple juice");
    openInFront("Editor");
    delegate->clipboardManager->setSearchText(QStringLiteral("apple"));
    delegate->quickPaste(1);
    EXPECT_EQ(pasteboard.string(), "apple pie");
}

} // namespace

} // namespace zamber::app
