// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "RunLoop.h"
#include "Values.h"
#include "Windows.h"

#include "tests/macos/System.h"

#import <AppKit/AppKit.h>

#include <vector>

// The rules:
// - A click reaches the button's action only by the mouse buttons that sendActionOn: names; the event is the
//   application's current one meanwhile (NSControl.h, NSApplication.h).
// - With a menu attached the item shows it instead of sending the action, at performClick: too (NSStatusItem.h).
// - A menu keeps its caller until it is closed, in the event-tracking mode; the chosen line's action is sent then.

using namespace zamber::system;

namespace {

bool hasButton = true;
__weak NSStatusItem* newestItem = nil;

std::function<int(const std::vector<std::string>&)>& menuChoice() {
    static auto* choice = new std::function<int(const std::vector<std::string>&)>([](const auto&) { return -1; });
    return *choice;
}

/// Shows the menu until somebody has chosen, and sends the action of what was chosen.
BOOL track(NSMenu* menu) {
    std::vector<std::string> titles;
    for (NSInteger i = 0; i < menu.numberOfItems; ++i) {
        NSMenuItem* const item = [menu itemAtIndex:i];
        titles.push_back(item.separatorItem ? "-" : words(item.title));
        if (item.separatorItem) {
            note("NSMenu separator");
        } else {
            note("NSMenu item '%s' action: %s target: %s keyEquivalent: '%s'", words(item.title).c_str(),
                 item.action != nullptr ? words(NSStringFromSelector(item.action)).c_str() : "none",
                 item.target != nil ? "one" : "nil", words(item.keyEquivalent).c_str());
        }
    }
    NSEvent* const before = NSApp.currentEvent;
    turn(NSEventTrackingRunLoopMode.qtText);
    const int chosen = menuChoice()(titles);
    if (chosen >= 0) {
        NSApp.currentEvent = mouseEvent(NSEventTypeLeftMouseUp); // the click on the line
        NSMenuItem* const item = [menu itemAtIndex:chosen];
        [NSApp sendAction:item.action to:item.target from:item];
    }
    NSApp.currentEvent = before;
    return chosen >= 0;
}

} // namespace

@implementation NSMenuItem {
    BOOL _isSeparator;
}
+ (NSMenuItem*)separatorItem {
    NSMenuItem* const item = [NSMenuItem new];
    item->_isSeparator = YES;
    return item;
}
- (BOOL)isSeparatorItem {
    return _isSeparator;
}
@end

@implementation NSMenu {
    std::vector<NSMenuItem*> _items;
}
- (NSInteger)numberOfItems {
    return static_cast<NSInteger>(_items.size());
}
- (NSMenuItem*)itemAtIndex:(NSInteger)index {
    return _items.at(static_cast<std::size_t>(index));
}
- (void)addItem:(NSMenuItem*)item {
    _items.push_back(item);
}
- (NSMenuItem*)addItemWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key {
    NSMenuItem* const item = [NSMenuItem new];
    item.title = title;
    item.action = action;
    item.keyEquivalent = key;
    _items.push_back(item);
    return item;
}
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view {
    note("NSMenu popUpMenuPositioningItem: %s atLocation: %g,%g inView: %s", item != nil ? "one" : "nil", location.x,
         location.y, view != nil ? "a view" : "nil");
    return track(self);
}
@end

@interface NSStatusItem () {
@public
    NSStatusBarButton* _button;
    NSMenu* _menu;
    NSWindow* _window;
}
@end

@implementation NSStatusBarButton {
@public
    __weak NSStatusItem* _item;
    NSEventMask _mask;
}
- (NSInteger)sendActionOn:(NSEventMask)mask {
    note("NSStatusBarButton sendActionOn: %#llx", mask);
    _mask = mask;
    return NSEventMaskLeftMouseUp;
}
- (void)performClick:(id)sender {
    note("NSStatusBarButton performClick: %s menu: %s", sender != nil ? "a sender" : "nil",
         _item.menu != nil ? "attached" : "none");
    if (_item.menu != nil) {
        track(_item.menu);
    } else {
        [NSApp sendAction:self.action to:self.target from:self];
    }
}
@end

@implementation NSStatusItem
- (NSStatusBarButton*)button {
    return hasButton ? _button : nil;
}
- (NSMenu*)menu {
    return _menu;
}
- (void)setMenu:(NSMenu*)menu {
    note("NSStatusItem setMenu: %s", menu != nil ? "one" : "nil");
    _menu = menu;
}
@end

@implementation NSStatusBar
+ (NSStatusBar*)systemStatusBar {
    static NSStatusBar* const only = [NSStatusBar new];
    return only;
}
- (NSStatusItem*)statusItemWithLength:(CGFloat)length {
    note("NSStatusBar statusItemWithLength: %g", length);
    NSStatusItem* const item = [NSStatusItem new];
    item->_button = [NSStatusBarButton new];
    item->_button->_item = item;
    item->_button->_mask = NSEventMaskLeftMouseUp;
    item->_window = [[NSWindow alloc] initWithContentRect:NSMakeRect(1000, 876, 28, 24)
                                                styleMask:NSWindowStyleMaskBorderless
                                                  backing:NSBackingStoreBuffered
                                                    defer:NO];
    item->_button.frame = NSMakeRect(2, 1, 24, 22);
    [item->_window.contentView addSubview:item->_button];
    newestItem = item;
    return item;
}
- (void)removeStatusItem:(NSStatusItem*)item {
    note("NSStatusBar removeStatusItem:");
}
@end

namespace zamber::system {

void clickStatusItem(Click click) {
    @autoreleasepool {
        NSStatusItem* const item = newestItem;
        const NSEventType type = click == Click::Left ? NSEventTypeLeftMouseUp : NSEventTypeRightMouseUp;
        if (item.menu == nil && (item.button->_mask & (1ULL << type)) == 0) {
            return;
        }
        NSApp.currentEvent = mouseEvent(type);
        [item.button performClick:item.button];
        NSApp.currentEvent = nil;
    }
}

void setMenuChoice(std::function<int(const std::vector<std::string>& titles)> choose) {
    menuChoice() = std::move(choose);
}

void setStatusItemHasButton(bool has) {
    hasButton = has;
}

} // namespace zamber::system
