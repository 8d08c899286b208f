// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/AppKit.h>

/// For the stand-ins among themselves.
namespace zamber::system {

NSWindow* windowNumbered(NSInteger number);

/// An event with nothing but its type.
NSEvent* mouseEvent(NSEventType type);

/// Views that are pinned to the edges of those around them take their places.
void layOut(NSView* view);

} // namespace zamber::system

@interface NSView (Places)
- (void)setWindowOfRoot:(NSWindow*)window;
@end
