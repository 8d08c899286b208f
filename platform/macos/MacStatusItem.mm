// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacStatusItem.h"

#include "platform/macos/MacApplicationDelegate.h"
#include "platform/macos/Retained.h"
#include "platform/macos/SystemCoordinates.h"

#import <AppKit/AppKit.h>

#include <utility>

/// The action that the status item's button sends and the application's delegate responds to.
@protocol ZamberStatusItemActions
- (void)togglePopover;
@end

namespace zamber::macos {

namespace {

QRect onScreen(NSView* view) {
    const NSRect place = [view.window convertRectToScreen:[view convertRect:view.bounds toView:nil]];
    return fromSystemCoordinates(QRectF::fromCGRect(place), NSHeight(NSScreen.screens.firstObject.frame));
}

} // namespace

MacStatusItem::~MacStatusItem() {
    if (m_item != nullptr) {
        [NSStatusBar.systemStatusBar removeStatusItem:released<NSStatusItem>(m_item)];
    }
}

void MacStatusItem::showSymbol(const QString& symbol, const QString& accessibilityDescription) {
    NSStatusItem* const item = [NSStatusBar.systemStatusBar statusItemWithLength:NSSquareStatusItemLength];
    m_item = retained(item);
    item.button.image = [NSImage imageWithSystemSymbolName:symbol.toNSString()
                                  accessibilityDescription:accessibilityDescription.toNSString()];
    item.button.action = @selector(togglePopover);
    [item.button sendActionOn:NSEventMaskLeftMouseUp | NSEventMaskRightMouseUp];
}

std::optional<Anchor> MacStatusItem::button() const {
    NSStatusBarButton* const button = borrowed<NSStatusItem>(m_item).button;
    if (button == nil) {
        return std::nullopt;
    }
    return Anchor{.screenRectangle = onScreen(button),
                  .handle = reinterpret_cast<std::uintptr_t>((__bridge void*)button)};
}

void MacStatusItem::setClickedHandler(ClickedHandler handler) {
    respondToAction(
        QString::fromNSString(NSStringFromSelector(@selector(togglePopover))), [handler = std::move(handler)] {
            NSEvent* const event = NSApp.currentEvent;
            handler(event != nil && event.type == NSEventTypeRightMouseUp ? MouseButton::Right : MouseButton::Left);
        });
}

void MacStatusItem::showMenuOnce(const QList<MenuItem>& menu) {
    NSMenu* const systemMenu = [NSMenu new];
    for (const MenuItem& line : menu) {
        if (line.title.isEmpty()) {
            [systemMenu addItem:NSMenuItem.separatorItem];
            continue;
        }
        respondToAction(line.selector, line.action);
        [systemMenu addItemWithTitle:line.title.toNSString()
                              action:NSSelectorFromString(line.selector.toNSString())
                       keyEquivalent:line.keyEquivalent.toNSString()];
    }
    // The menu is attached for this click alone: with a menu, the button would not send its action any more.
    NSStatusItem* const item = borrowed<NSStatusItem>(m_item);
    item.menu = systemMenu;
    [item.button performClick:nil];
    item.menu = nil;
}

} // namespace zamber::macos
