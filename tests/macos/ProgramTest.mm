// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// The whole program as it is, main function and all, on the stand-ins: from its start to a paste, and its end.

#include "platform/macos/MacScheduler.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"
#include "tests/macos/runtime/Runtime.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyle>
#include <QTemporaryDir>

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

#include <algorithm>

int zamberMain(int argc, char** argv); // ZamberApp.cpp's

namespace zamber {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

std::size_t place(const std::string& call) {
    const auto& calls = system::calls();
    const auto found = std::ranges::find_if(calls, [&](const std::string& each) { return each.starts_with(call); });
    EXPECT_NE(found, calls.end()) << call;
    return static_cast<std::size_t>(found - calls.begin());
}

void pressKey(unsigned short code) {
    [NSApp postEvent:[NSEvent keyEventWithType:NSEventTypeKeyDown
                                            location:NSZeroPoint
                                       modifierFlags:0
                                           timestamp:0
                                        windowNumber:0
                                             context:nil
                                          characters:@""
                         charactersIgnoringModifiers:@""
                                           isARepeat:NO
                                             keyCode:code]
             atStart:NO];
    macos::letPass(std::chrono::milliseconds(20));
}

std::vector<std::string> callsSince(std::size_t first, const std::string& beginning) {
    std::vector<std::string> found;
    std::copy_if(system::calls().begin() + static_cast<std::ptrdiff_t>(first), system::calls().end(),
                 std::back_inserter(found), [&](const std::string& each) { return each.starts_with(beginning); });
    return found;
}

/// What a person does once the program runs; it ends the program.
void useIt() {
    // The start, in its order.
    EXPECT_LT(place("NSApplication setActivationPolicy: 1"), place("NSStatusBar statusItemWithLength: -2"));
    EXPECT_LT(place("NSStatusBarButton sendActionOn: 0x14"), place("NSPopover setContentSize: 440 x 420"));
    EXPECT_LT(place("NSPopover setContentSize: 440 x 420"), place("NSPopover setContentViewController:"));
    EXPECT_LT(place("NSPopover setContentViewController:"),
              place("NSUserDefaults standard addObserver forKeyPath: popoverSize options: 1 context: (nil)"));
    EXPECT_LT(place("NSUserDefaults standard addObserver forKeyPath: appTheme options: 1 context: (nil)"),
              place("NSPopover setAppearance: nil"));
    EXPECT_LT(place("NSPopover setAppearance: nil"), place("RegisterEventHotKey code: 9"));
    EXPECT_LT(place("InstallEventHandler"), place("NSTimer scheduledTimerWithTimeInterval: 0.5 repeats: 1"));
    // Not trusted yet: the pane is opened, the window floats, and nothing takes the keyboard from the pane.
    EXPECT_LT(place("NSTimer scheduledTimerWithTimeInterval: 0.5 repeats: 1"),
              place("NSWorkspace openURL: x-apple.systempreferences:"));
    EXPECT_LT(place("NSWorkspace openURL: x-apple.systempreferences:"), place("NSWindow setLevel: 3"));
    EXPECT_LT(place("NSWindow setLevel: 3"), place("NSTimer scheduledTimerWithTimeInterval: 1 repeats: 1"));
    EXPECT_THAT(system::calls(), Not(Contains(StartsWith("NSApplication activateIgnoringOtherApps:"))));
    EXPECT_EQ(runtime::objectsWithoutPool(), 0U);
    system::setTrusted(true);

    // Two copies elsewhere.
    const int letters = system::openApplication("Letters");
    system::copyTextElsewhere(QStringLiteral("first"));
    macos::letPass(std::chrono::milliseconds(700));
    system::copyTextElsewhere(QStringLiteral("second"));
    macos::letPass(std::chrono::milliseconds(700));

    // The hot key opens the popover on them; the arrow and Return paste the older one.
    std::size_t now = system::calls().size();
    system::sendKeyboardEvent(5, 1);
    macos::letPass();
    EXPECT_THAT(callsSince(now, "NSWorkspace frontmost"), ElementsAre("NSWorkspace frontmostApplication"));
    EXPECT_THAT(callsSince(now, "NSPopover show"),
                ElementsAre("NSPopover showRelativeToRect: 0,0 24x24 preferredEdge: 1"));
    EXPECT_THAT(callsSince(now, "NSApplication activate"), ElementsAre("NSApplication activateIgnoringOtherApps: 1"));
    system::openApplication("Zamber");
    now = system::calls().size();
    pressKey(125);
    pressKey(36);
    EXPECT_EQ(system::applicationInFront(), letters);
    EXPECT_THAT(callsSince(now, "CG"), IsEmpty()) << "before the application is back in front";
    macos::letPass(std::chrono::milliseconds(500));
    const std::vector<std::string> wanted{"NSPasteboard clearContents",
                                          "NSPasteboard setString: 5 characters forType: public.utf8-plain-text",
                                          "NSPopover performClose: nil",
                                          "NSRunningApplication Letters activateWithOptions: 0",
                                          "CGEventPost tap: 0 key: 9 down flags: 0x100000",
                                          "CGEventPost tap: 0 key: 9 up flags: 0x100000"};
    std::vector<std::string> made;
    std::copy_if(system::calls().begin() + static_cast<std::ptrdiff_t>(now), system::calls().end(),
                 std::back_inserter(made),
                 [&](const std::string& each) { return std::ranges::find(wanted, each) != wanted.end(); });
    EXPECT_EQ(made, wanted);
    EXPECT_TRUE([[NSPasteboard.generalPasteboard stringForType:NSPasteboardTypeString] isEqualToString:@"first"]);

    // The second entry by its own hot key, when that is switched on.
    now = system::calls().size();
    system::sendKeyboardEvent(5, 2);
    macos::letPass(std::chrono::milliseconds(300));
    EXPECT_THAT(callsSince(now, "CGEventPost"), IsEmpty());
    [NSUserDefaults.standardUserDefaults setBool:YES forKey:@"quickPasteEnabled"];
    [NSUserDefaults.standardUserDefaults setBool:YES forKey:@"playSoundOnPaste"];
    system::sendKeyboardEvent(5, 2);
    macos::letPass(std::chrono::milliseconds(300));
    EXPECT_THAT(callsSince(now, "CGEventPost").size(), 2U);
    EXPECT_THAT(callsSince(now, "NSSound"), ElementsAre("NSSound soundNamed: Tink", "NSSound play"));

    // A preference that is changed elsewhere, and the settings window.
    now = system::calls().size();
    [NSUserDefaults.standardUserDefaults setObject:@"large" forKey:@"popoverSize"];
    EXPECT_THAT(callsSince(now, "NSPopover"), IsEmpty()) << "in the middle of the write";
    macos::letPass();
    EXPECT_THAT(callsSince(now, "NSPopover"), ElementsAre("NSPopover setContentSize: 500 x 520"));
    system::setMenuChoice([](const auto&) { return 0; });
    now = system::calls().size();
    system::clickStatusItem(system::Click::Right);
    macos::letPass();
    EXPECT_THAT(callsSince(now, "NSApplication sendAction: showSettingsWindow:"), testing::SizeIs(1));
    EXPECT_THAT(callsSince(now, "NSApplication sendAction: showPreferencesWindow:"), IsEmpty());
    EXPECT_THAT(callsSince(now, "NSWindow makeKeyAndOrderFront:"),
                ElementsAre("NSWindow makeKeyAndOrderFront: behavior 2"));

    // Quit, from the menu.
    system::setMenuChoice([](const auto&) { return 4; });
    system::clickStatusItem(system::Click::Right);
}

} // namespace

TEST(Program, StartsPastesAndQuits) {
    const QTemporaryDir home;
    system::setHome(home.path());
    system::setTrusted(false);
    system::openApplication("Before");
    __block bool wasUsed = false;
    [NSRunLoop.mainRunLoop addTimer:[NSTimer timerWithTimeInterval:0.3
                                                           repeats:NO
                                                             block:^(NSTimer*) {
                                                               useIt();
                                                               wasUsed = true;
                                                             }]
                            forMode:NSDefaultRunLoopMode];
    char name[] = "zamber";
    char* arguments[] = {name, nullptr};
    EXPECT_EQ(zamberMain(1, arguments), 0);
    EXPECT_TRUE(wasUsed);
    EXPECT_EQ(runtime::objectsWithoutPool(), 0U) << "given away where nobody would ever let it go";
}

} // namespace zamber
