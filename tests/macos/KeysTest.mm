// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: hot keys, the paste keystroke, keys of our own.

#include "platform/macos/MacHotKeyCenter.h"
#include "platform/macos/MacKeyMonitor.h"
#include "platform/macos/MacKeystrokePoster.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"

#include <QMenu>

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

#include <vector>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr HotKeyModifiers COMMAND_SHIFT{.command = true, .shift = true};
constexpr std::uint32_t SIGNATURE = 0x5A4D4252; // ZMBR
constexpr unsigned HOT_KEY_PRESSED = 5;
constexpr unsigned HOT_KEY_RELEASED = 6;
constexpr unsigned short RETURN = 36;

void noteOutcome(PasteOutcome outcome) {
    system::note(outcome == PasteOutcome::Posted ? "done: posted" : "done: given up");
}

} // namespace

TEST(Recorded, TheHotKeysAreThreeAndTheirHandlerComesLast) {
    static macos::MacHotKeyCenter center; // for the life of the process
    static std::vector<std::uint32_t> pressed;
    EXPECT_THAT(
        callsDuring([] {
            EXPECT_TRUE(center.registerHotKey(PhysicalKey::V, COMMAND_SHIFT, {SIGNATURE, 1}));
            EXPECT_TRUE(center.registerHotKey(PhysicalKey::Digit2, COMMAND_SHIFT, {SIGNATURE, 2}));
            EXPECT_TRUE(center.registerHotKey(PhysicalKey::Digit3, COMMAND_SHIFT, {SIGNATURE, 3}));
            center.setPressedHandler([](std::uint32_t id) { pressed.push_back(id); });
        }),
        ElementsAre("RegisterEventHotKey code: 9 modifiers: 0x300 signature: 0x5a4d4252 id: 1 target: "
                    "application options: 0",
                    "RegisterEventHotKey code: 19 modifiers: 0x300 signature: 0x5a4d4252 id: 2 target: "
                    "application options: 0",
                    "RegisterEventHotKey code: 20 modifiers: 0x300 signature: 0x5a4d4252 id: 3 target: "
                    "application options: 0",
                    "InstallEventHandler target: application types: 1 class: 0x6b657962 kind: 5 installed: nil"));
    EXPECT_THAT(
        callsDuring([] { system::sendKeyboardEvent(HOT_KEY_PRESSED, 3); }),
        ElementsAre("GetEventParameter name: 0x2d2d2d2d type: 0x686b6964 actualType: nil size: 8 actualSize: nil",
                    "a handler returned 0"));
    EXPECT_THAT(pressed, IsEmpty()) << "told within the event manager's handler";
    system::sendKeyboardEvent(HOT_KEY_PRESSED, 1);
    system::sendKeyboardEvent(HOT_KEY_RELEASED, 1);
    system::sendKeyboardEvent(HOT_KEY_PRESSED, std::nullopt); // one whose id cannot be read
    macos::letPass();
    EXPECT_THAT(pressed, ElementsAre(3, 1, 0));
}

TEST(Recorded, APressWithoutAnEventOrWithoutACenterIsTakenAndToldToNobody) {
    static macos::MacHotKeyCenter center; // for the life of the process
    static std::vector<std::uint32_t> pressed;
    center.setPressedHandler([](std::uint32_t id) { pressed.push_back(id); });
    EXPECT_THAT(callsDuring([] { system::callNewestHandlerWithNothing(); }),
                ElementsAre("a handler returned 0", "a handler returned 0"));
    macos::letPass();
    EXPECT_THAT(pressed, IsEmpty());
}

TEST(Recorded, AHotKeyAloneHasItsOwnModifiersAndOneHeldElsewhereIsNone) {
    macos::MacHotKeyCenter center;
    EXPECT_THAT(callsDuring([&] { center.registerHotKey(PhysicalKey::V, {.command = true}, {SIGNATURE, 9}); }),
                ElementsAre(testing::HasSubstr("modifiers: 0x100 ")));
    EXPECT_THAT(callsDuring([&] { center.registerHotKey(PhysicalKey::V, {.shift = true}, {SIGNATURE, 9}); }),
                ElementsAre(testing::HasSubstr("modifiers: 0x200 ")));
    system::holdHotKeyElsewhere(19, true);
    EXPECT_FALSE(center.registerHotKey(PhysicalKey::Digit2, COMMAND_SHIFT, {SIGNATURE, 2}));
    system::holdHotKeyElsewhere(19, false);
    EXPECT_EQ(center.commandKeyHint(), QString());
}

TEST(Recorded, ThePasteIsTwoEventsOfOneSourceAndIsOverBeforeItIsSaidToBe) {
    const int before = system::livingKeyEvents();
    macos::MacKeystrokePoster poster;
    EXPECT_THAT(callsDuring([&] { poster.postPaste({}, noteOutcome); }),
                ElementsAre("CGEventSourceCreate 1", "CGEventCreateKeyboardEvent source: one key: 9 down",
                            "CGEventCreateKeyboardEvent source: one key: 9 up",
                            "CGEventPost tap: 0 key: 9 down flags: 0x100000",
                            "CGEventPost tap: 0 key: 9 up flags: 0x100000", "done: posted"));
    EXPECT_EQ(system::livingKeyEvents(), before);
}

TEST(Recorded, EventsThatCannotBeMadeAreNotPosted) {
    system::failToCreateEvents(true);
    macos::MacKeystrokePoster poster;
    EXPECT_THAT(callsDuring([&] { poster.postPaste({}, noteOutcome); }),
                ElementsAre("CGEventSourceCreate 1", testing::_, testing::_, "done: posted"));
    system::failToCreateEvents(false);
}

TEST(Recorded, WhileAMenuOfOurOwnIsOpenTheKeysAreItsOwn) {
    macos::MacKeyMonitor monitor;
    int asked = 0;
    monitor.addHandler([&asked](HardwareKey) {
        ++asked;
        return KeyDisposition::Swallow;
    });
    QMenu menu;
    menu.addAction(QStringLiteral("Copy"));
    menu.popup({});
    system::pressKey(RETURN);
    macos::letPass();
    EXPECT_EQ(asked, 0);
    menu.hide();
    system::pressKey(RETURN);
    macos::letPass();
    EXPECT_EQ(asked, 1);
}

TEST(Recorded, TheKeyMonitorIsThereWhileSomebodyHasAHandler) {
    macos::MacKeyMonitor monitor;
    const auto passOn = [](HardwareKey) { return KeyDisposition::PassOn; };
    KeyMonitor::Token first;
    KeyMonitor::Token second;
    EXPECT_THAT(callsDuring([&] { first = monitor.addHandler(passOn); }),
                ElementsAre("NSEvent addLocalMonitorForEventsMatchingMask: 0x400"));
    EXPECT_THAT(callsDuring([&] { second = monitor.addHandler(passOn); }), IsEmpty());
    EXPECT_THAT(callsDuring([&] { monitor.removeHandler(first); }), IsEmpty());
    EXPECT_THAT(callsDuring([&] { monitor.removeHandler(second); }), ElementsAre("NSEvent removeMonitor:"));
    EXPECT_THAT(callsDuring([&] {
                    macos::MacKeyMonitor another;
                    another.addHandler(passOn);
                }),
                ElementsAre("NSEvent addLocalMonitorForEventsMatchingMask: 0x400", "NSEvent removeMonitor:"));
}

} // namespace zamber
