// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "clipboard/ClipboardManager.h"
#include "settings/keys/PreferenceKeys.h"
#include "tests/fakes/FakeAccessibilityTrust.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeHotKeyCenter.h"
#include "tests/fakes/FakeKeyMonitor.h"
#include "tests/fakes/FakeKeystrokePoster.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakePopoverHost.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeStatusItem.h"
#include "tests/fakes/FakeSymbols.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/fakes/FakeWorkspace.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest() {
        UserDefaults::setStandard(&defaults);
        delegate = std::make_shared<AppDelegate>(Desktop{.application = application,
                                                         .pasteboard = pasteboard,
                                                         .workspace = workspace,
                                                         .hotKeys = hotKeys,
                                                         .keystrokes = keystrokes,
                                                         .keyMonitor = keyMonitor,
                                                         .trust = trust,
                                                         .statusItem = statusItem,
                                                         .popover = popover,
                                                         .appearance = appearance,
                                                         .symbols = symbols,
                                                         .userDefaults = defaults,
                                                         .scheduler = scheduler},
                                                 folder.filePath(QStringLiteral("history.json")).toStdString());
    }

    ~AppDelegateTest() override { UserDefaults::setStandard(nullptr); }

    void launch() {
        delegate->applicationDidFinishLaunching();
        journal.clear();
    }

    /// A text that another program copies, captured by the next look at the clipboard.
    void capture(const QByteArray& text) {
        pasteboard.copyText(text);
        scheduler.advance(500ms);
    }

    RunningApplication openInFront(const char* name) {
        const RunningApplication app = workspace.launch(QString::fromLatin1(name));
        workspace.bringToFront(app);
        return app;
    }

    void choose(int index) {
        const auto items = delegate->clipboardManager->filteredItems();
        delegate->clipboardManager->copyToClipboard(items[index]);
        delegate->clipboardManager->onPaste();
    }

    QTemporaryDir folder;
    Journal journal;
    FakeApplication application{journal};
    FakePasteboard pasteboard;
    FakeWorkspace workspace{journal};
    FakeHotKeyCenter hotKeys{journal};
    FakeKeystrokePoster keystrokes{journal, workspace};
    FakeKeyMonitor keyMonitor;
    FakeAccessibilityTrust trust;
    FakeStatusItem statusItem{journal};
    FakePopoverHost popover;
    FakeAppearance appearance;
    FakeSymbols symbols;
    FakeUserDefaults defaults;
    FakeScheduler scheduler;
    std::shared_ptr<AppDelegate> delegate;
};

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

// Hot keys

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
    write(defaults, keys::quickPasteEnabled, true);
    hotKeys.press(PhysicalKey::Digit2);
    scheduler.advance(1s);
    EXPECT_THAT(keystrokes.received, ElementsAre(editor));
    EXPECT_EQ(pasteboard.writes.last().bytes, "one");

    write(defaults, keys::quickPasteEnabled, false);
    hotKeys.press(PhysicalKey::Digit2);
    scheduler.advance(1s);
    EXPECT_EQ(keystrokes.received.size(), 1U);
}

TEST_F(AppDelegateTest, WithOneEntryQuickPasteDoesNothingAndWithTwoOnlyTheSecondIsThere) {
    launch();
    write(defaults, keys::quickPasteEnabled, true);
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

// Paste

TEST_F(AppDelegateTest, APasteClosesThePopoverActivatesAndTypesAfter350Milliseconds) {
    launch();
    capture("chosen");
    const auto editor = openInFront("Editor");
    delegate->showPopover();
    workspace.bringToFront(std::nullopt);
    journal.clear();
    testing::internal::CaptureStdout();
    choose(0);
    EXPECT_FALSE(popover.isShown());
    EXPECT_THAT(journal.entries(), ElementsAre("activate Editor"));
    scheduler.advance(349ms);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    scheduler.advance(1ms);
    EXPECT_THAT(keystrokes.received, ElementsAre(editor));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "🔵 Pasting into: Editor\n✅ Pasted via CGEvent\n");
}

TEST_F(AppDelegateTest, WithoutAPreviousApplicationThePopoverClosesAndTheLogSaysSo) {
    launch();
    capture("chosen");
    delegate->showPopover();
    testing::internal::CaptureStdout();
    choose(0);
    scheduler.advance(1s);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "❌ No previous app to paste into\n");
    EXPECT_FALSE(popover.isShown());
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    EXPECT_EQ(pasteboard.string(), "chosen");
}

TEST_F(AppDelegateTest, AnApplicationWithoutANameIsLoggedAsUnknown) {
    launch();
    capture("chosen");
    workspace.bringToFront(workspace.launch(std::nullopt));
    delegate->showPopover();
    testing::internal::CaptureStdout();
    choose(0);
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("🔵 Pasting into: unknown\n"));
}

TEST_F(AppDelegateTest, WithoutPermissionTheApplicationComesBackAndTheLogSaysHowToGrantIt) {
    launch();
    capture("chosen");
    openInFront("Editor");
    delegate->showPopover();
    trust.isGranted = false;
    testing::internal::CaptureStdout();
    choose(0);
    scheduler.advance(350ms);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "🔵 Pasting into: Editor\n"
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
    launch();
    write(defaults, keys::quickPasteEnabled, true);
    capture("one");
    capture("two");
    openInFront("Editor");
    testing::internal::CaptureStdout();
    delegate->quickPaste(1);
    EXPECT_EQ(pasteboard.string(), "one");
    scheduler.advance(149ms);
    EXPECT_THAT(keystrokes.asked, IsEmpty());
    scheduler.advance(1ms);
    EXPECT_EQ(keystrokes.asked.size(), 1U);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "✅ Pasted via CGEvent\n");
    EXPECT_THAT(popover.showings, IsEmpty());
}

TEST_F(AppDelegateTest, QuickPasteWithoutPermissionLeavesTheEntryOnTheClipboardInSilence) {
    launch();
    capture("one");
    capture("two");
    openInFront("Editor");
    trust.isGranted = false;
    testing::internal::CaptureStdout();
    delegate->quickPaste(1);
    scheduler.advance(1s);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
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

} // namespace zamber

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
