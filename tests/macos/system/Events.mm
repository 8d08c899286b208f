// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "RunLoop.h"
#include "Values.h"
#include "Windows.h"

#include "tests/macos/System.h"

#import <AppKit/AppKit.h>

#include <deque>
#include <vector>

// The rules (NSEvent.h): a local monitor sees an event before the application dispatches it, and what it returns is
// dispatched instead, nothing for nil. "+removeMonitor:" ends it.

@interface NSEvent () {
@public
    NSEventType _type;
    unsigned short _keyCode;
    NSInteger _windowNumber;
}
@end

@interface ZamberEventMonitor : NSObject {
@public
    NSEventMask _mask;
    NSEvent* (^_handler)(NSEvent*);
}
@end
@implementation ZamberEventMonitor
@end

namespace zamber::system {

int eventsSeen = 0;

namespace {

std::deque<NSEvent*>& posted() {
    static auto* events = new std::deque<NSEvent*>;
    return *events;
}

std::vector<ZamberEventMonitor*>& monitors() {
    static auto* all = new std::vector<ZamberEventMonitor*>;
    return *all;
}

void dispatchEvents() {
    while (!posted().empty()) {
        NSEvent* event = posted().front();
        posted().pop_front();
        ++eventsSeen;
        NSApp.currentEvent = event;
        const std::vector<ZamberEventMonitor*> all = monitors();
        for (ZamberEventMonitor* const& monitor : all) {
            if (event != nil && (monitor->_mask & (1ULL << event.type)) != 0) {
                event = monitor->_handler(event);
            }
        }
        if (event != nil && event.type == NSEventTypeKeyDown) {
            [windowNumbered(event.windowNumber) keyDown:event];
        }
        NSApp.currentEvent = nil;
    }
}

const bool isStep = (addToEachTurn(dispatchEvents), true);

} // namespace

NSEvent* mouseEvent(NSEventType type) {
    NSEvent* const event = [NSEvent new];
    event->_type = type;
    return event;
}

} // namespace zamber::system

using namespace zamber::system;

@implementation NSEvent
- (NSEventType)type {
    return _type;
}
- (unsigned short)keyCode {
    return _keyCode;
}
- (NSInteger)windowNumber {
    return _windowNumber;
}
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent*))handler {
    note("NSEvent addLocalMonitorForEventsMatchingMask: %#llx", mask);
    ZamberEventMonitor* const monitor = [ZamberEventMonitor new];
    monitor->_mask = mask;
    monitor->_handler = handler;
    monitors().push_back(monitor);
    return monitor;
}
+ (void)removeMonitor:(id)monitor {
    note("NSEvent removeMonitor:");
    std::erase(monitors(), monitor);
}
+ (NSEvent*)keyEventWithType:(NSEventType)type
                       location:(NSPoint)location
                  modifierFlags:(NSEventModifierFlags)flags
                      timestamp:(NSTimeInterval)time
                   windowNumber:(NSInteger)windowNumber
                        context:(NSGraphicsContext*)context
                     characters:(NSString*)characters
    charactersIgnoringModifiers:(NSString*)unmodified
                      isARepeat:(BOOL)isRepeat
                        keyCode:(unsigned short)code {
    NSEvent* const event = mouseEvent(type);
    event->_keyCode = code;
    event->_windowNumber = windowNumber;
    return event;
}
+ (NSEvent*)otherEventWithType:(NSEventType)type
                      location:(NSPoint)location
                 modifierFlags:(NSEventModifierFlags)flags
                     timestamp:(NSTimeInterval)time
                  windowNumber:(NSInteger)windowNumber
                       context:(NSGraphicsContext*)context
                       subtype:(short)subtype
                         data1:(NSInteger)data1
                         data2:(NSInteger)data2 {
    return mouseEvent(type);
}
@end

@implementation NSApplication (Events)
- (void)postEvent:(NSEvent*)event atStart:(BOOL)atStart {
    atStart ? posted().push_front(event) : posted().push_back(event);
}
@end

void zamber::system::pressKey(unsigned short code) {
    NSEvent* const event = mouseEvent(NSEventTypeKeyDown);
    event->_keyCode = code;
    [NSApp postEvent:event atStart:NO];
}
