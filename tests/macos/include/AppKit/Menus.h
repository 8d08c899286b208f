// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <AppKit/Views.h>

@class NSImage;

@interface NSMenuItem : NSObject
@property(class, readonly) NSMenuItem* separatorItem;
@property(copy) NSString* title;
@property SEL action;
@property(weak) id target;
@property NSInteger tag;
@property(copy) NSString* keyEquivalent;
@property(readonly, getter=isSeparatorItem) BOOL separatorItem;
@end

@interface NSMenu : NSObject
@property(readonly) NSInteger numberOfItems;
@property BOOL autoenablesItems;
- (NSMenuItem*)itemAtIndex:(NSInteger)index;
- (void)addItem:(NSMenuItem*)item;
- (NSMenuItem*)addItemWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key;
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view;
@end

@interface NSStatusBarButton : NSView
@property(strong) NSImage* image;
@property SEL action;
@property(weak) id target;
- (NSInteger)sendActionOn:(NSEventMask)mask;
- (void)performClick:(id)sender;
@end

@interface NSStatusItem : NSObject
@property(readonly) NSStatusBarButton* button;
@property(strong) NSMenu* menu;
@end

constexpr CGFloat NSSquareStatusItemLength = -2;

@interface NSStatusBar : NSObject
@property(class, readonly) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end
