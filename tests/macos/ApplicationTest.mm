// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: the application, its actions, alerts and windows.

#include "platform/macos/AutoreleasePool.h"
#include "platform/macos/MacAlert.h"
#include "platform/macos/MacApplication.h"
#include "platform/macos/MacApplicationDelegate.h"
#include "platform/macos/MacWindows.h"
#include "tests/macos/System.h"

#include <QGuiApplication>
#include <QWidget>

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;

} // namespace

TEST(Recorded, AResponderOfANameTakesThePlaceOfTheOneBefore) {
    macos::MacApplication application;
    std::string answered;
    {
        const QString name = QStringLiteral("answerForARecordedTest:"); // gone before the action comes
        macos::respondToAction(name, [&] { answered += 'a'; });
        macos::respondToAction(name, [&] { answered += 'b'; });
    }
    EXPECT_THAT(callsDuring([&] { EXPECT_TRUE(application.sendAction(QStringLiteral("answerForARecordedTest:"))); }),
                ElementsAre("NSApplication sendAction: answerForARecordedTest: to: nil from: nil"));
    EXPECT_EQ(answered, "b");
}

TEST(Recorded, TheApplicationIsAnAccessoryAndIsActivatedAboveOthers) {
    QGuiApplication::setQuitOnLastWindowClosed(true); // as it is at first
    macos::MacApplication application;
    EXPECT_THAT(callsDuring([&] {
                    application.setAccessoryPolicy();
                    application.activate();
                    application.postNotification(QStringLiteral("openSettings"));
                    application.terminate();
                }),
                ElementsAre("NSApplication setActivationPolicy: 1", "NSApplication activateIgnoringOtherApps: 1",
                            "NSNotificationCenter postNotificationName: openSettings object: nil",
                            "NSApplication terminate: nil"));
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed()) << "it lives on without a window";
}

TEST(Recorded, AnotherStartAsksForUsAndNothingElseIsOpened) {
    macos::MacApplication application;
    id delegate = NSApp.delegate;
    EXPECT_FALSE([delegate applicationShouldHandleReopen:NSApp hasVisibleWindows:NO]);
    int asked = 0;
    application.setShowRequestedHandler([&asked] { ++asked; });
    EXPECT_FALSE([delegate applicationShouldHandleReopen:NSApp hasVisibleWindows:YES]);
    EXPECT_EQ(asked, 1);
    application.setShowRequestedHandler({});
}

TEST(Recorded, AnAlertHasItsTextsAndButtonsInOrderAndIsInFront) {
    macos::MacAlert alert;
    system::answerAlert(1);
    EXPECT_THAT(callsDuring([&] {
                    EXPECT_EQ(alert.run({.style = AlertStyle::Warning,
                                         .message = QStringLiteral("Message?"),
                                         .informativeText = QStringLiteral("More."),
                                         .buttons = {QStringLiteral("First"), QStringLiteral("Second"),
                                                     QStringLiteral("Third")}}),
                              1);
                }),
                ElementsAre("NSAlert addButtonWithTitle: First", "NSAlert addButtonWithTitle: Second",
                            "NSAlert addButtonWithTitle: Third", "NSApplication activateIgnoringOtherApps: 1",
                            "NSAlert runModal style: 0 message: Message? informative: More."));
    system::answerAlert(NSModalResponseAbort);
    EXPECT_THAT(callsDuring("NSAlert",
                            [&] {
                                EXPECT_EQ(alert.run({.message = QStringLiteral("M"),
                                                     .informativeText = {},
                                                     .buttons = {QStringLiteral("Go"), QStringLiteral("No")}}),
                                          1);
                            }),
                ElementsAre(testing::_, testing::_, "NSAlert runModal style: 1 message: M informative: "));
    system::answerAlert(NSModalResponseAbort);
    EXPECT_EQ(alert.run({.message = QStringLiteral("M")}), 0) << "with none of ours it has one of its own";
}

TEST(Recorded, AWindowIsBroughtToTheUsersSpaceAndThenToTheFront) {
    QWidget window;
    window.show();
    EXPECT_THAT(callsDuring("NS", [&] { macos::bringWindowToFront(window.winId()); }),
                ElementsAre("NSApplication activateIgnoringOtherApps: 1", "NSWindow makeKeyAndOrderFront: behavior 2"));
}

TEST(Recorded, APoolHoldsWhatIsGivenAwayBeforeTheLoop) {
    __weak NSObject* watched = nil;
    void* const pool = macos::openAutoreleasePool();
    NSObject* __autoreleasing const given = [NSObject new];
    watched = given;
    EXPECT_TRUE(watched != nil);
    macos::closeAutoreleasePool(pool);
    EXPECT_TRUE(watched == nil);
}

} // namespace zamber
