// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "AppDelegateFixture.h"

#include "tests/support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace zamber::app {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// Start-up

/// The journal, and the state at each of its notes that no port is told of.
struct Trace {
    std::map<std::string, bool> hasOnPaste;
    std::map<std::string, std::size_t> timers;
    std::map<std::string, int> trustAsked;
};

TEST_F(AppDelegateTest, StartsInOrder) {
    Trace trace;
    journal.onNote = [&] {
        const std::string& note = journal.entries().back();
        trace.hasOnPaste.emplace(note, static_cast<bool>(delegate->clipboardManager->onPaste));
        trace.timers.emplace(note, scheduler.pendingTimers());
        trace.trustAsked.emplace(note, trust.timesAsked);
    };
    delegate->applicationDidFinishLaunching();
    journal.onNote = nullptr;

    std::vector<std::string> steps = journal.entries();
    // The list observes preferences of its own while it is made the popover's content.
    const auto content = std::ranges::find(steps, "popover content");
    steps.erase(std::remove_if(steps.begin(), content, [](const auto& note) { return note.starts_with("observe "); }),
                content);
    EXPECT_THAT(steps,
                ElementsAre("accessory policy", "status item doc.on.clipboard", "popover size", "popover content",
                            "observe popoverSize", "observe appTheme", "popover appearance", "register hot key 1",
                            "register hot key 2", "register hot key 3", "check and prompt move"));
    EXPECT_EQ(statusItem.description, QStringLiteral("Zamber"));
    EXPECT_NE(popover.content, nullptr);
    EXPECT_FALSE(popover.isShown());

    // A paste is possible as soon as there is a popover to choose from.
    EXPECT_FALSE(trace.hasOnPaste["status item doc.on.clipboard"]);
    EXPECT_TRUE(trace.hasOnPaste["popover size"]);
    // The clipboard is watched, and newer versions are asked for, once the hot keys work.
    EXPECT_EQ(trace.timers["register hot key 3"], 0U);
    EXPECT_EQ(trace.timers["check and prompt move"], 3U);
    // The permission comes last.
    EXPECT_EQ(trace.trustAsked["check and prompt move"], 0);
    EXPECT_EQ(trust.timesAsked, 1);
}

TEST_F(AppDelegateTest, WithoutATrayEverythingElseStarts) {
    statusItem.place.reset();
    delegate->applicationDidFinishLaunching();
    EXPECT_EQ(hotKeys.registrations.size(), 3U);
    capture("copied");
    EXPECT_EQ(delegate->clipboardManager->items().size(), 1);
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
    LogCapture log;
    launch();
    EXPECT_EQ(log.take(), "✅ Accessibility: trusted\n");
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

TEST_F(AppDelegateTest, TheMenuIsSettingsLaunchAtLoginQuit) {
    launch();
    const QList<MenuItem> menu = openMenu();
    ASSERT_EQ(menu.size(), 5);
    EXPECT_EQ(menu[0].title, QStringLiteral("Settings…"));
    EXPECT_EQ(menu[0].keyEquivalent, QStringLiteral(","));
    EXPECT_TRUE(menu[1].title.isEmpty());
    EXPECT_EQ(menu[2].title, QStringLiteral("  Launch at Login"));
    EXPECT_TRUE(menu[2].keyEquivalent.isEmpty());
    EXPECT_TRUE(menu[3].title.isEmpty());
    EXPECT_EQ(menu[4].title, QStringLiteral("Quit Zamber"));
    EXPECT_EQ(menu[4].keyEquivalent, QStringLiteral("q"));
}

TEST_F(AppDelegateTest, QuitEndsTheProgramAtOnce) {
    launch();
    capture("not yet saved");
    openMenu()[4].action();
    EXPECT_TRUE(application.isTerminated);
}

TEST_F(AppDelegateTest, TheLaunchAtLoginTitleShowsTheStateAtTheMomentOfTheRightClick) {
    launch();
    loginItem.current = LoginItemStatus::Enabled;
    EXPECT_EQ(openMenu()[2].title, QStringLiteral("✓ Launch at Login"));
    loginItem.current = LoginItemStatus::RequiresApproval;
    EXPECT_EQ(openMenu()[2].title, QStringLiteral("  Launch at Login"));
}

TEST_F(AppDelegateTest, TogglingLaunchAtLoginAndRightClickingAgainShowsTheOtherTitle) {
    launch();
    LogCapture log;
    openMenu()[2].action();
    EXPECT_EQ(openMenu()[2].title, QStringLiteral("✓ Launch at Login"));
    openMenu()[2].action();
    EXPECT_EQ(openMenu()[2].title, QStringLiteral("  Launch at Login"));
    EXPECT_EQ(log.take(), "✅ Launch at Login: enabled\n✅ Launch at Login: disabled\n");
}

TEST_F(AppDelegateTest, WhenRegistrationFailsTheErrorIsLoggedAndTheTitleStays) {
    launch();
    loginItem.failure = QStringLiteral("Permission denied");
    LogCapture log;
    openMenu()[2].action();
    EXPECT_EQ(log.take(), "❌ Launch at Login error: Permission denied\n");
    EXPECT_EQ(openMenu()[2].title, QStringLiteral("  Launch at Login"));
}

TEST_F(AppDelegateTest, SettingsActivateAndThenAskForTheSettingsWindow) {
    launch();
    bool isShown = false;
    application.respondTo(QStringLiteral("showSettingsWindow:"), [&] { isShown = true; });
    openMenu()[0].action();
    EXPECT_THAT(journal.entries(), ElementsAre("activate", "action showSettingsWindow:"));
    EXPECT_TRUE(isShown);
}

TEST_F(AppDelegateTest, TheOlderNameOfTheSettingsWindowIsAskedForNext) {
    launch();
    application.respondTo(QStringLiteral("showPreferencesWindow:"), [] {});
    delegate->openSettings();
    EXPECT_THAT(journal.entries(),
                ElementsAre("activate", "action showSettingsWindow:", "action showPreferencesWindow:"));
}

TEST_F(AppDelegateTest, SettingsThatNobodyShowsLeaveANotification) {
    launch();
    delegate->openSettings();
    EXPECT_THAT(journal.entries(), ElementsAre("activate", "action showSettingsWindow:",
                                               "action showPreferencesWindow:", "notification openSettings"));
}

// Popover

TEST_F(AppDelegateTest, ThePopoverRemembersWhoWasInFrontBeforeItTakesTheFocus) {
    launch();
    openInFront("Editor");
    delegate->showPopover();
    EXPECT_THAT(journal.entries(), ElementsAre("frontmost application", "show popover", "activate"));
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

void PrintTo(const SizeCase& row, std::ostream* out) {
    *out << row.stored.value_or("nothing stored");
}

class PopoverSizeTest : public AppDelegateTest, public testing::WithParamInterface<SizeCase> {};

TEST_P(PopoverSizeTest, FollowsThePreference) {
    if (GetParam().stored) {
        userDefaults.setString(preferences::popoverSize.name, QString::fromLatin1(*GetParam().stored));
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

void PrintTo(const ThemeCase& row, std::ostream* out) {
    *out << row.stored.value_or("nothing stored");
}

class PopoverThemeTest : public AppDelegateTest, public testing::WithParamInterface<ThemeCase> {};

TEST_P(PopoverThemeTest, FollowsThePreference) {
    popover.appearance = PopoverAppearance::Dark; // whatever it was
    if (GetParam().stored) {
        userDefaults.setString(preferences::appTheme.name, QString::fromLatin1(*GetParam().stored));
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
    userDefaults.setString(preferences::popoverSize.name, QStringLiteral("large"));
    userDefaults.setString(preferences::appTheme.name, QStringLiteral("dark"));
    EXPECT_EQ(popover.contentSize, QSize(440, 420));
    EXPECT_EQ(popover.appearance, PopoverAppearance::System);
    scheduler.advance(0ms);
    EXPECT_EQ(popover.contentSize, QSize(500, 520));
    EXPECT_EQ(popover.appearance, PopoverAppearance::Dark);
    EXPECT_TRUE(popover.isShown());
    EXPECT_EQ(popover.showings.size(), 1);
}

} // namespace

} // namespace zamber::app
