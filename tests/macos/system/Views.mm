// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"
#include "Windows.h"

#include "tests/macos/System.h"
#include "tests/macos/runtime/Runtime.h"

#import <AppKit/AppKit.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

using namespace zamber::system;

@interface NSView () {
@public
    NSRect _frame;
    __weak NSView* _superview;
    __weak NSWindow* _rootWindow;
    std::vector<NSView*> _subviews;
    BOOL _isWithoutMask;
    unsigned _pinnedEdges; // those that are at its superview's
}
@end

@interface NSLayoutAnchor () {
@public
    __weak NSView* _view;
    unsigned _edge;
}
@end

@interface NSLayoutConstraint () {
@public
    NSLayoutAnchor* _first;
    NSLayoutAnchor* _second;
}
@end

namespace {

constexpr unsigned ALL_EDGES = 0xF;

NSLayoutAnchor* anchor(NSView* view, unsigned edge) {
    NSLayoutAnchor* const made = [NSLayoutAnchor new];
    made->_view = view;
    made->_edge = edge;
    return made;
}

std::map<NSInteger, __weak NSWindow*>& windows() {
    static auto* all = new std::map<NSInteger, __weak NSWindow*>;
    return *all;
}

} // namespace

@implementation NSLayoutAnchor
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor*)other {
    NSLayoutConstraint* const made = [NSLayoutConstraint new];
    made->_first = self;
    made->_second = other;
    return made;
}
@end

@implementation NSLayoutConstraint
+ (void)activateConstraints:(NSArray<NSLayoutConstraint*>*)constraints {
    for (NSLayoutConstraint* const each in constraints) {
        NSView* const view = each->_first->_view;
        NSView* const around = each->_second->_view;
        // NSLayoutConstraint.h: the views have to have an ancestor in common, or it is an error to activate.
        if (view == nil || around == nil || view.superview != around || each->_first->_edge != each->_second->_edge) {
            std::fprintf(stderr, "no constraint that the stand-ins know\n");
            std::abort();
        }
        view->_pinnedEdges |= each->_first->_edge;
    }
}
@end

@implementation NSView
- (instancetype)initWithFrame:(NSRect)frame {
    _frame = frame;
    return self;
}
- (NSRect)frame {
    return _frame;
}
- (void)setFrame:(NSRect)frame {
    _frame = frame;
}
- (NSRect)bounds {
    return {{0, 0}, self.frame.size};
}
- (NSView*)superview {
    return _superview;
}
- (NSArray<NSView*>*)subviews {
    return [NSArray arrayWithObjects:_subviews.data() count:_subviews.size()];
}
- (NSWindow*)window {
    NSView* const around = _superview;
    return around != nil ? around.window : _rootWindow;
}
- (void)setWindowOfRoot:(NSWindow*)window {
    _rootWindow = window;
}
- (BOOL)translatesAutoresizingMaskIntoConstraints {
    return !_isWithoutMask;
}
- (void)setTranslatesAutoresizingMaskIntoConstraints:(BOOL)translates {
    _isWithoutMask = !translates;
}
- (void)addSubview:(NSView*)added {
    NSView* const view = (__bridge NSView*)zamber::runtime::objectOfNumber((__bridge void*)added);
    [view removeFromSuperview];
    _subviews.push_back(view);
    view->_superview = self;
}
- (void)removeFromSuperview {
    NSView* const around = _superview;
    if (around != nil) {
        std::erase(around->_subviews, self);
    }
    _superview = nil;
    _pinnedEdges = 0;
}
- (void)layoutSubtreeIfNeeded {
    layOut(self);
}
- (NSRect)convertRect:(NSRect)rectangle toView:(NSView*)view {
    rectangle.origin.x += _frame.origin.x;
    rectangle.origin.y += _frame.origin.y;
    NSView* const around = _superview;
    return around != nil ? [around convertRect:rectangle toView:view] : rectangle;
}
- (NSLayoutAnchor*)leadingAnchor {
    return anchor(self, 1);
}
- (NSLayoutAnchor*)trailingAnchor {
    return anchor(self, 2);
}
- (NSLayoutAnchor*)topAnchor {
    return anchor(self, 4);
}
- (NSLayoutAnchor*)bottomAnchor {
    return anchor(self, 8);
}
@end

void zamber::system::layOut(NSView* view) {
    for (NSView* const each in view.subviews) {
        // With the mask translated, constraints of one's own contradict it, and what comes of that is the system's.
        if (each->_pinnedEdges == ALL_EDGES && !each.translatesAutoresizingMaskIntoConstraints) {
            each.frame = view.bounds;
        }
        layOut(each);
    }
}

@implementation NSVisualEffectView
@end

@implementation NSWindow {
    NSRect _content;
    NSView* _contentView;
    NSInteger _number;
    NSWindowLevel _level;
    BOOL _isVisible;
    BOOL _isKey;
}
- (instancetype)init {
    static NSInteger last = 100;
    _number = ++last;
    windows()[_number] = self;
    return self;
}
- (instancetype)initWithContentRect:(NSRect)content
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)isDeferred {
    self = [self init];
    _content = content;
    self.contentView = [[NSView alloc] initWithFrame:{{0, 0}, content.size}];
    return self;
}
- (void)dealloc {
    windows().erase(_number);
}
- (NSView*)contentView {
    return _contentView;
}
- (void)setContentView:(NSView*)view {
    _contentView = view;
    [view setWindowOfRoot:self];
}
- (NSInteger)windowNumber {
    return _number;
}
- (BOOL)isVisible {
    return _isVisible;
}
- (BOOL)isKeyWindow {
    return _isKey;
}
- (BOOL)canBecomeKeyWindow {
    return YES;
}
- (NSWindowLevel)level {
    return _level;
}
- (void)setLevel:(NSWindowLevel)level {
    note("NSWindow setLevel: %ld", level);
    _level = level;
}
- (void)orderFront:(id)sender {
    note("NSWindow orderFront:");
    _isVisible = YES;
}
- (void)orderFrontRegardless {
    note("NSWindow orderFrontRegardless");
    _isVisible = YES;
}
- (void)makeKeyWindow {
    note("NSWindow makeKeyWindow");
    _isKey = YES;
}
- (void)makeKeyAndOrderFront:(id)sender {
    note("NSWindow makeKeyAndOrderFront: behavior %lu", self.collectionBehavior);
    _isVisible = YES;
    _isKey = YES;
}
- (void)close {
    _isVisible = NO;
    _isKey = NO;
}
- (NSRect)convertRectToScreen:(NSRect)rectangle {
    rectangle.origin.x += _content.origin.x;
    rectangle.origin.y += _content.origin.y;
    return rectangle;
}
@end

NSWindow* zamber::system::windowNumbered(NSInteger number) {
    const auto found = windows().find(number);
    return found != windows().end() ? found->second : nil;
}

// NSScreen.h: the first one is that with the menu bar, which the coordinates begin at.
@implementation NSScreen {
    NSRect _frame;
}
+ (NSArray<NSScreen*>*)screens {
    NSScreen* const first = [NSScreen new];
    first->_frame = NSMakeRect(0, 0, 1440, 900);
    NSScreen* const beside = [NSScreen new];
    beside->_frame = NSMakeRect(1440, -300, 1920, 1200);
    const id both[] = {first, beside};
    return [NSArray arrayWithObjects:both count:2];
}
- (NSRect)frame {
    return _frame;
}
@end

@implementation NSViewController
@end
