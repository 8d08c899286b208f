// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// The whole program as it is, main function and all, on the stand-ins: from its start to a paste, and its end.

#include "popover/HistoryListWidget.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"
#include "tests/macos/runtime/Runtime.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QTemporaryDir>

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

#include <algorithm>

int zamberMain(int argc, char** argv); // ZamberApp.cpp's

namespace zamber {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using namespace std::chrono_literals;

constexpr unsigned short ARROW_DOWN = 125;
constexpr unsigned short RETURN = 36;

std::size_t place(const std::string& call) {
    const auto& calls = system::calls();
    const auto found = std::ranges::find_if(calls, [&](const std::string& each) { return each.starts_with(call); });
    EXPECT_NE(found, calls.end()) << call;
    return static_cast<std::size_t>(found - calls.begin());
}

/// Where the call was made last.
std::size_t lastPlace(const std::string& call) {
    const auto& calls = system::calls();
    const auto found = std::ranges::find(calls.rbegin(), calls.rend(), call);
    EXPECT_NE(found, calls.rend()) << call;
    return static_cast<std::size_t>(calls.rend() - found) - 1;
}

std::vector<std::string> callsSince(std::size_t first, const std::string& beginning) {
    std::vector<std::string> found;
    std::copy_if(system::calls().begin() + static_cast<std::ptrdiff_t>(first), system::calls().end(),
                 std::back_inserter(found), [&](const std::string& each) { return each.starts_with(beginning); });
    return found;
}

popover::HistoryListWidget* list() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const found = widget->findChild<popover::HistoryListWidget*>()) {
            return found;
        }
    }
    return nullptr;
}

bool isPopoverShown() {
    return list() != nullptr && list()->isVisible();
}

void expectTheStartInItsOrder() {
    EXPECT_LT(place("NSApplication setActivationPolicy: 1"), place("NSStatusBar statusItemWithLength: -2"));
    EXPECT_LT(place("NSStatusBarButton sendActionOn: 0x14"), place("NSPopover setContentSize: 440 x 420"));
    EXPECT_LT(place("NSPopover setContentSize: 440 x 420"), place("NSPopover setContentViewController:"));
    // The list has observers of its own, from before.
    const std::string observed = "NSUserDefaults standard addObserver forKeyPath: ";
    EXPECT_LT(place("NSPopover setContentViewController:"),
              lastPlace(observed + "popoverSize options: 1 context: (nil)"));
    EXPECT_LT(lastPlace(observed + "popoverSize options: 1 context: (nil)"),
              lastPlace(observed + "appTheme options: 1 context: (nil)"));
    EXPECT_LT(lastPlace(observed + "appTheme options: 1 context: (nil)"), place("NSPopover setAppearance: nil"));
    EXPECT_LT(place("NSPopover setAppearance: nil"), place("RegisterEventHotKey code: 9"));
    EXPECT_LT(place("InstallEventHandler"), place("NSTimer scheduledTimerWithTimeInterval: 0.5 repeats: 1"));
    EXPECT_LT(place("NSTimer scheduledTimerWithTimeInterval: 0.5 repeats: 1"),
              place("NSTimer scheduledTimerWithTimeInterval: 14400 repeats: 1"));
}

/// Without the permission the pane is opened, the window floats, and nothing takes the keyboard from the pane.
void expectToBeAskedForThePermission() {
    EXPECT_LT(place("NSTimer scheduledTimerWithTimeInterval: 14400 repeats: 1"),
              place("NSWorkspace openURL: x-apple.systempreferences:"));
    EXPECT_LT(place("NSWorkspace openURL: x-apple.systempreferences:"), place("NSWindow setLevel: 3"));
    EXPECT_LT(place("NSWindow setLevel: 3"), place("NSTimer scheduledTimerWithTimeInterval: 1 repeats: 1"));
    EXPECT_THAT(system::calls(), Not(Contains(StartsWith("NSApplication activateIgnoringOtherApps:"))));
    const auto isAsked = [] {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* widget) {
            return widget->isVisible() && widget->windowTitle() == QStringLiteral("Zamber — Permission Required");
        });
    };
    EXPECT_TRUE(isAsked());
    system::setTrusted(true);
    EXPECT_TRUE(macos::waitUntil([&] { return !isAsked(); }));
}

/// The hot key opens the popover on two copies; the arrow and Return paste the older one.
void pasteTheOlderOfTwo() {
    const int letters = system::openApplication("Letters");
    system::copyTextElsewhere(QStringLiteral("first"));
    macos::letPass(700ms);
    system::copyTextElsewhere(QStringLiteral("second"));
    macos::letPass(700ms);
    std::size_t now = system::calls().size();
    system::pressHotKey(9, 0x300);
    macos::letPass();
    EXPECT_THAT(callsSince(now, "NSWorkspace frontmost"), ElementsAre("NSWorkspace frontmostApplication"));
    EXPECT_THAT(callsSince(now, "NSPopover show"),
                ElementsAre("NSPopover showRelativeToRect: 0,0 24x22 preferredEdge: 1"));
    EXPECT_THAT(callsSince(now, "NSApplication activate"), ElementsAre("NSApplication activateIgnoringOtherApps: 1"));
    system::openApplication("Zamber");
    now = system::calls().size();
    for (const unsigned short key : {ARROW_DOWN, RETURN}) {
        system::pressKey(key);
        macos::letPass(20ms);
    }
    EXPECT_EQ(system::applicationInFront(), letters);
    EXPECT_THAT(callsSince(now, "CGEvent"), IsEmpty()) << "before the application is back in front";
    macos::letPass(500ms);
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
    EXPECT_EQ(system::pastesReceived(letters), 1);
    EXPECT_TRUE([[NSPasteboard.generalPasteboard stringForType:NSPasteboardTypeString] isEqualToString:@"first"]);
    EXPECT_FALSE(isPopoverShown());
}

/// The second entry by its own hot key, when that is switched on.
void pasteTheSecondAtOnce() {
    const std::size_t now = system::calls().size();
    system::pressHotKey(19, 0x300);
    macos::letPass(300ms);
    EXPECT_THAT(callsSince(now, "CGEventPost"), IsEmpty());
    [NSUserDefaults.standardUserDefaults setBool:YES forKey:@"quickPasteEnabled"];
    [NSUserDefaults.standardUserDefaults setBool:YES forKey:@"playSoundOnPaste"];
    system::pressHotKey(19, 0x300);
    macos::letPass(300ms);
    EXPECT_THAT(callsSince(now, "CGEventPost"), SizeIs(2));
    EXPECT_THAT(callsSince(now, "NSSound"), ElementsAre("NSSound soundNamed: Tink", "NSSound play"));
    EXPECT_THAT(callsSince(now, "NSPopover"), IsEmpty());
}

/// A click opens the popover and the next one closes it; one in the midst of the fade has it back with its content.
void toggleThePopover() {
    const auto longerThanTheFade = 3 * std::chrono::milliseconds(system::FADE_MILLISECONDS);
    system::clickStatusItem(system::Click::Left);
    macos::letPass(longerThanTheFade);
    EXPECT_TRUE(isPopoverShown());
    system::clickStatusItem(system::Click::Left);
    macos::letPass(longerThanTheFade);
    EXPECT_FALSE(isPopoverShown());
    for (int click = 0; click < 3; ++click) {
        system::clickStatusItem(system::Click::Left);
        macos::letPass(5ms);
    }
    macos::letPass(longerThanTheFade);
    EXPECT_TRUE(isPopoverShown());
}

/// What is behind the content is the system's material, which is seen through it.
void seeThroughTheContent() {
    const QImage picture = list()->window()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(1, picture.height() / 2).alpha(), 0) << "the ground of the list";
    const int bar = picture.pixelColor(1, picture.height() - 2).alpha();
    EXPECT_TRUE(bar > 0 && bar < 255) << "the bar at the lower edge has " << bar;
}

/// The menu of a row is the system's, and what is chosen in it happens while the popover stays.
void deleteByTheMenuOfARow() {
    system::setMenuChoice([](const std::vector<std::string>& titles) {
        EXPECT_THAT(titles, ElementsAre("Copy", "-", "Pin", "Delete"));
        return 3;
    });
    const std::size_t now = system::calls().size();
    ASSERT_NE(list(), nullptr);
    ASSERT_EQ(list()->items().size(), 2);
    const QPoint place = list()->rowRectangle(1).center();
    QContextMenuEvent press(QContextMenuEvent::Mouse, place, list()->mapToGlobal(place));
    QApplication::sendEvent(list(), &press);
    EXPECT_THAT(callsSince(now, "NSMenu popUp"), SizeIs(1));
    EXPECT_EQ(list()->items().size(), 1);
    EXPECT_TRUE(isPopoverShown());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

/// A preference that is changed elsewhere takes effect, not in the midst of the write.
void changeTheSize() {
    const std::size_t now = system::calls().size();
    [NSUserDefaults.standardUserDefaults setObject:@"large" forKey:@"popoverSize"];
    EXPECT_THAT(callsSince(now, "NSPopover"), IsEmpty());
    macos::letPass();
    EXPECT_THAT(callsSince(now, "NSPopover"), ElementsAre("NSPopover setContentSize: 500 x 520"));
}

void openTheSettings() {
    system::setMenuChoice([](const auto&) { return 0; });
    const std::size_t now = system::calls().size();
    system::clickStatusItem(system::Click::Right);
    macos::letPass();
    EXPECT_THAT(callsSince(now, "NSApplication sendAction: openSettings"), SizeIs(1));
    EXPECT_THAT(callsSince(now, "NSApplication sendAction: showSettingsWindow:"), SizeIs(1));
    EXPECT_THAT(callsSince(now, "NSApplication sendAction: showPreferencesWindow:"), IsEmpty());
    EXPECT_THAT(callsSince(now, "NSWindow makeKeyAndOrderFront:"),
                ElementsAre("NSWindow makeKeyAndOrderFront: behavior 2"));
}

/// What a person does once the program runs; it ends the program.
void useIt() {
    expectTheStartInItsOrder();
    expectToBeAskedForThePermission();
    pasteTheOlderOfTwo();
    pasteTheSecondAtOnce();
    toggleThePopover();
    seeThroughTheContent();
    deleteByTheMenuOfARow();
    changeTheSize();
    openTheSettings();
    macos::letPass(1100ms); // the history is written
    EXPECT_EQ(runtime::objectsWithoutPool(), 0U) << "given away where nobody would ever let it go";
    system::setMenuChoice([](const auto&) { return 4; }); // Quit
    system::clickStatusItem(system::Click::Right);
}

} // namespace

TEST(Program, StartsPastesAndQuits) {
    const QTemporaryDir home;
    system::setHome(home.path());
    __block bool wasUsed = false;
    @autoreleasepool { // the program has to bring its own
        system::setTrusted(false);
        system::openApplication("Before");
        [NSRunLoop.mainRunLoop addTimer:[NSTimer timerWithTimeInterval:0.3
                                                               repeats:NO
                                                                 block:^(NSTimer*) {
                                                                   useIt();
                                                                   wasUsed = true;
                                                                 }]
                                forMode:NSDefaultRunLoopMode];
    }
    char name[] = "zamber";
    char* arguments[] = {name, nullptr};
    EXPECT_EQ(zamberMain(1, arguments), 0);
    EXPECT_TRUE(wasUsed);
    EXPECT_TRUE(
        QFile::exists(home.filePath(QStringLiteral("Library/Application Support/Zamber/clipboard_history.json"))));
}

} // namespace zamber
