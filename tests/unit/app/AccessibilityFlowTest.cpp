// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "AppDelegateFixture.h"

#include "tests/support/LogCapture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zamber::app {

namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

QWidget* permissionWindow() {
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [](const QWidget* window) {
        return window->windowTitle() == QStringLiteral("Zamber — Permission Required");
    });
    return found == windows.end() ? nullptr : *found;
}

class AccessibilityFlowTest : public AppDelegateTest {
protected:
    AccessibilityFlowTest() { trust.isGranted = false; }
};

TEST_F(AppDelegateTest, StartedWithThePermissionThereIsOneLineNoSettingsNoWindowAndNoPoll) {
    LogCapture log;
    delegate->applicationDidFinishLaunching();
    scheduler.advance(5s);
    EXPECT_EQ(log.take(), "✅ Accessibility: trusted\n");
    EXPECT_EQ(permissionWindow(), nullptr);
    EXPECT_THAT(journal.entries(), Not(Contains(HasSubstr("open "))));
    EXPECT_EQ(trust.timesAsked, 1);
}

TEST_F(AccessibilityFlowTest, WithoutItTheSettingsOpenAndTheWindowAppears) {
    LogCapture log;
    delegate->applicationDidFinishLaunching();
    EXPECT_EQ(log.take(), "⚠️ Accessibility: NOT trusted — opening System Settings\n");
    EXPECT_EQ(journal.entries().back(), "open settings:accessibility");
    ASSERT_NE(permissionWindow(), nullptr);
    EXPECT_TRUE(permissionWindow()->isVisible());
    // It floats; the program is not activated for it.
    EXPECT_THAT(journal.entries(), Not(Contains("activate")));
}

TEST_F(AccessibilityFlowTest, WhereNobodyCanGrantItNoAddressIsOpenedButTheWindowAppears) {
    trust.address.reset();
    launch();
    EXPECT_THAT(journal.entries(), Not(Contains(HasSubstr("open "))));
    EXPECT_NE(permissionWindow(), nullptr);
}

TEST_F(AccessibilityFlowTest, WhereTheDesktopAsksTheUserItselfTheWindowsButtonLeadsThere) {
    trust.address.reset();
    trust.hasOwnDialog = true;
    launch();
    EXPECT_EQ(trust.dialogsShown, 0) << "nobody is asked unless the user wants it";
    auto* const button = permissionWindow()->findChild<QAbstractButton*>();
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_EQ(trust.dialogsShown, 1);
    EXPECT_FALSE(permissionWindow()->isVisible()) << "it would hide the dialog";
    trust.isGranted = true;
    LogCapture log;
    scheduler.advance(1s);
    EXPECT_EQ(log.take(), "✅ Accessibility granted!\n");
}

TEST_F(AccessibilityFlowTest, WithoutADialogOfTheDesktopsThereIsNoButton) {
    launch();
    EXPECT_EQ(permissionWindow()->findChild<QAbstractButton*>(), nullptr);
}

TEST_F(AccessibilityFlowTest, ADesktopThatHasToBeAskedFirstIsWaitedFor) {
    trust.isKnown = false;
    LogCapture log;
    delegate->applicationDidFinishLaunching();
    scheduler.advance(5s);
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(permissionWindow(), nullptr);
    trust.answer();
    EXPECT_EQ(log.take(), "⚠️ Accessibility: NOT trusted — opening System Settings\n");
    EXPECT_NE(permissionWindow(), nullptr);
}

TEST_F(AccessibilityFlowTest, WithinASecondOfGrantingTheWindowClosesByItself) {
    launch();
    scheduler.advance(10s);
    ASSERT_NE(permissionWindow(), nullptr);
    trust.isGranted = true;
    LogCapture log;
    scheduler.advance(1s);
    EXPECT_EQ(permissionWindow(), nullptr);
    EXPECT_EQ(log.take(), "✅ Accessibility granted!\n");

    const int timesAsked = trust.timesAsked;
    trust.isGranted = false;
    scheduler.advance(10s);
    EXPECT_EQ(trust.timesAsked, timesAsked) << "granted once, it is not asked for again";
    EXPECT_EQ(permissionWindow(), nullptr);
}

TEST_F(AccessibilityFlowTest, TheFirstPollComesAfterASecondAndThenEachSecond) {
    launch();
    const int atStart = trust.timesAsked;
    scheduler.advance(999ms);
    EXPECT_EQ(trust.timesAsked, atStart);
    scheduler.advance(1ms);
    EXPECT_EQ(trust.timesAsked, atStart + 1);
    scheduler.advance(60s);
    EXPECT_EQ(trust.timesAsked, atStart + 61);
}

TEST_F(AccessibilityFlowTest, ClosingTheWindowByHandDoesNotStopThePolling) {
    launch();
    permissionWindow()->close();
    scheduler.advance(5s);
    EXPECT_FALSE(permissionWindow()->isVisible()) << "it is not shown again";
    trust.isGranted = true;
    LogCapture log;
    scheduler.advance(1s);
    EXPECT_EQ(log.take(), "✅ Accessibility granted!\n");
    EXPECT_EQ(permissionWindow(), nullptr);
}

TEST_F(AccessibilityFlowTest, WhenTheDelegateHasGoneTheGrantIsLoggedAndThePollStops) {
    launch();
    const std::size_t timers = scheduler.pendingTimers();
    delegate.reset();
    EXPECT_EQ(permissionWindow(), nullptr);
    trust.isGranted = true;
    LogCapture log;
    scheduler.advance(10s);
    EXPECT_EQ(log.take(), "✅ Accessibility granted!\n");
    EXPECT_LT(scheduler.pendingTimers(), timers);
}

TEST_F(AccessibilityFlowTest, TheWindowIsCentredFloatingAndCanOnlyBeMovedAndClosed) {
    launch();
    const QWidget* const window = permissionWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->width(), 380);
    EXPECT_GE(window->height(), 200);
    EXPECT_EQ(window->minimumSize(), window->maximumSize());
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(window->windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(window->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    const QPoint offset = window->geometry().center() - window->screen()->availableGeometry().center();
    EXPECT_LE(offset.manhattanLength(), 2);
}

TEST_F(AccessibilityFlowTest, TheProgramWorksWithoutThePermission) {
    launch();
    capture("copied");
    openInFront("Editor");
    hotKeys.press(PhysicalKey::V);
    scheduler.advance(0ms);
    EXPECT_TRUE(popover.isShown());
    choose(0);
    EXPECT_EQ(pasteboard.string(), "copied");
}

} // namespace

} // namespace zamber::app
