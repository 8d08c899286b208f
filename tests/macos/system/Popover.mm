// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"
#include "Windows.h"

#include "tests/macos/System.h"

#import <AppKit/AppKit.h>

#include <cstdio>
#include <cstdlib>

// The rules (NSPopover.h and NSPopover's documentation):
// - shown is "NO" from the moment that it begins to close, while its window still fades; popoverDidClose: is sent when
//   the window is gone, also when the popover was shown again meanwhile.
// - It cannot be shown relative to a view that is in no window.
// - "The popover's content size is set to match the size of the content view when the content view controller is set."
// - Its window is larger than its content.
// - A transient one closes at a press outside it.

using namespace zamber::system;

NSString* const NSPopoverDidCloseNotification = @"NSPopoverDidCloseNotification";

namespace {

__weak NSPopover* shownLast = nil;

} // namespace

@implementation NSPopover {
    NSViewController* _controller;
    NSAppearance* _appearance;
    NSPopoverBehavior _behavior;
    NSSize _contentSize;
    NSWindow* _window;
    BOOL _isShown;
}
- (NSAppearance*)appearance {
    return _appearance;
}
- (void)setAppearance:(NSAppearance*)appearance {
    note("NSPopover setAppearance: %s", words(appearance.name).c_str());
    _appearance = appearance;
}
- (NSPopoverBehavior)behavior {
    return _behavior;
}
- (void)setBehavior:(NSPopoverBehavior)behavior {
    note("NSPopover setBehavior: %ld", behavior);
    _behavior = behavior;
}
- (NSViewController*)contentViewController {
    return _controller;
}
- (void)setContentViewController:(NSViewController*)controller {
    note("NSPopover setContentViewController: its view is a %s", words([controller.view description]).c_str());
    _controller = controller;
    _contentSize = controller.view.frame.size;
}
- (NSSize)contentSize {
    return _contentSize;
}
- (void)setContentSize:(NSSize)size {
    note("NSPopover setContentSize: %g x %g", size.width, size.height);
    _contentSize = size;
    [self placeContent];
}
- (void)placeContent {
    if (_window != nil) {
        _controller.view.frame = {{POPOVER_INSET, POPOVER_INSET}, _contentSize};
        layOut(_controller.view);
    }
}
- (BOOL)isShown {
    return _isShown;
}
- (void)showRelativeToRect:(NSRect)rectangle ofView:(NSView*)view preferredEdge:(NSRectEdge)edge {
    note("NSPopover showRelativeToRect: %g,%g %gx%g preferredEdge: %lu", rectangle.origin.x, rectangle.origin.y,
         rectangle.size.width, rectangle.size.height, edge);
    if (view.window == nil) {
        std::fprintf(stderr, "a popover is shown at a view that is in no window\n");
        std::abort();
    }
    if (_window == nil) {
        _window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, _contentSize.width + 2 * POPOVER_INSET,
                                                                   _contentSize.height + 2 * POPOVER_INSET)
                                              styleMask:NSWindowStyleMaskBorderless
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
    }
    [_window.contentView addSubview:_controller.view];
    [self placeContent];
    _isShown = YES;
    shownLast = self;
}
- (void)performClose:(id)sender {
    note("NSPopover performClose: %s", sender != nil ? "a sender" : "nil");
    [self close];
}
- (void)close {
    if (!_isShown) {
        return;
    }
    _isShown = NO;
    __weak NSPopover* const popover = self;
    later(FADE_MILLISECONDS, [popover] { [popover tellClosed]; });
}
- (void)tellClosed {
    note("NSPopover popoverDidClose:");
    [self.delegate popoverDidClose:nil];
    [NSNotificationCenter.defaultCenter postNotificationName:NSPopoverDidCloseNotification object:self];
}
@end

void zamber::system::pressOutsidePopover() {
    if (shownLast.behavior == NSPopoverBehaviorTransient) {
        [shownLast close];
    }
}
