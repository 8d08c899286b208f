// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplication.h"

#include "MainLoop.h"

#include "platform/macos/MacAppearance.h"
#include "platform/macos/MacApplicationDelegate.h"
#include "platform/macos/MacHotKeyCenter.h"
#include "platform/macos/MacKeyMonitor.h"
#include "platform/macos/MacStatusItem.h"
#include "tests/contracts/AppearanceContract.h"
#include "tests/contracts/ApplicationContract.h"
#include "tests/contracts/KeyMonitorContract.h"

#include <QApplication>
#include <QTimer>

#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>

#include <vector>

/// Counts the key presses that reach it.
@interface ZamberKeyWindow : NSWindow
@property(nonatomic) int presses;
@end

@implementation ZamberKeyWindow
- (BOOL)canBecomeKeyWindow {
    return YES;
}
- (void)keyDown:(NSEvent*)event {
    self.presses += 1;
}
@end

namespace zamber::macos {

namespace {

struct MacApplicationRig {
    MacApplication real;
    std::vector<id> observers;

    ~MacApplicationRig() {
        for (const id& observer : observers) {
            [NSNotificationCenter.defaultCenter removeObserver:observer];
        }
    }

    Application& application() { return real; }
    void respondTo(const QString& name, const std::function<void()>& responder) { respondToAction(name, responder); }
    void observe(const QString& name, std::function<void()> observer) {
        observers.push_back([NSNotificationCenter.defaultCenter addObserverForName:name.toNSString()
                                                                            object:nil
                                                                             queue:nil
                                                                        usingBlock:^(NSNotification*) {
                                                                          observer();
                                                                        }]);
    }
    bool run(const std::function<void()>& first) {
        bool gaveUp = false;
        QTimer::singleShot(0, qApp, first);
        QTimer giveUp;
        giveUp.setSingleShot(true);
        QObject::connect(&giveUp, &QTimer::timeout, qApp, [&gaveUp] {
            gaveUp = true;
            QApplication::exit();
        });
        giveUp.start(std::chrono::seconds(5));
        QApplication::exec();
        return !gaveUp;
    }
};

struct MacAppearanceRig {
    MacAppearance real;

    ~MacAppearanceRig() { NSApp.appearance = nil; }

    Appearance& appearance() { return real; }
    void setDark(bool isDark) {
        NSApp.appearance = [NSAppearance appearanceNamed:isDark ? NSAppearanceNameDarkAqua : NSAppearanceNameAqua];
        letPass();
    }
};

unsigned short keyCodeOf(HardwareKey key) {
    switch (key) {
    case HardwareKey::UpArrow:
        return 126;
    case HardwareKey::DownArrow:
        return 125;
    case HardwareKey::Return:
        return 36;
    case HardwareKey::Escape:
        return 53;
    case HardwareKey::Other:
        break;
    }
    return 76; // the keypad's Enter
}

/// The press is handed to the application's own queue, which no other program sees.
struct MacKeyMonitorRig {
    MacKeyMonitor real;
    ZamberKeyWindow* window = [[ZamberKeyWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                                                 styleMask:NSWindowStyleMaskTitled
                                                                   backing:NSBackingStoreBuffered
                                                                     defer:NO];

    MacKeyMonitorRig() {
        window.releasedWhenClosed = NO;
        [window makeKeyAndOrderFront:nil];
    }
    ~MacKeyMonitorRig() { [window close]; }

    KeyMonitor& monitor() { return real; }
    KeyDisposition press(HardwareKey key) {
        const int before = window.presses;
        [NSApp postEvent:[NSEvent keyEventWithType:NSEventTypeKeyDown
                                                location:NSZeroPoint
                                           modifierFlags:0
                                               timestamp:NSProcessInfo.processInfo.systemUptime
                                            windowNumber:window.windowNumber
                                                 context:nil
                                              characters:@""
                             charactersIgnoringModifiers:@""
                                               isARepeat:NO
                                                 keyCode:keyCodeOf(key)]
                 atStart:NO];
        letPass();
        return window.presses == before ? KeyDisposition::Swallow : KeyDisposition::PassOn;
    }
};

/// What the event manager sends at a press, without a press.
void sendHotKeyPress(UInt32 id) {
    EventRef event = nullptr;
    ASSERT_EQ(CreateEvent(nullptr, kEventClassKeyboard, kEventHotKeyPressed, 0, kEventAttributeNone, &event), noErr);
    const EventHotKeyID hotKey{'TEST', id};
    SetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, sizeof(hotKey), &hotKey);
    SendEventToEventTarget(event, GetApplicationEventTarget());
    ReleaseEvent(event);
}

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, ApplicationContract, MacApplicationRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, AppearanceContract, MacAppearanceRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, KeyMonitorContract, MacKeyMonitorRig);

TEST(MacHotKeyCenter, APressIsToldByItsIdAndAfterTheEventManagersHandler) {
    static MacHotKeyCenter center; // for the life of the process
    static std::vector<std::uint32_t> pressed;
    EXPECT_TRUE(center.registerHotKey(PhysicalKey::V, {.command = true, .shift = true}, {'TEST', 1}));
    EXPECT_TRUE(center.registerHotKey(PhysicalKey::Digit2, {.command = true, .shift = true}, {'TEST', 2}));
    EXPECT_TRUE(center.registerHotKey(PhysicalKey::Digit3, {.command = true, .shift = true}, {'TEST', 3}));
    center.setPressedHandler([](std::uint32_t id) { pressed.push_back(id); });
    sendHotKeyPress(3);
    sendHotKeyPress(1);
    EXPECT_TRUE(pressed.empty());
    EXPECT_TRUE(waitUntil([] { return pressed.size() >= 2; }));
    EXPECT_EQ(pressed, (std::vector<std::uint32_t>{3, 1}));
}

TEST(MacStatusItem, ItsButtonIsAPlaceAndSendsItsActionAlongTheResponderChain) {
    MacStatusItem item;
    std::vector<MouseButton> clicks;
    item.setClickedHandler([&clicks](MouseButton button) { clicks.push_back(button); });
    item.showSymbol(QStringLiteral("doc.on.clipboard"), QStringLiteral("Test"));
    const auto anchor = item.button();
    ASSERT_TRUE(anchor);
    EXPECT_FALSE(anchor->screenRectangle.isEmpty());
    auto* const button = (__bridge NSStatusBarButton*)reinterpret_cast<void*>(anchor->handle);
    EXPECT_NE(button.image, nil);
    [button performClick:nil];
    EXPECT_EQ(clicks, std::vector{MouseButton::Left});
}

} // namespace zamber::macos
