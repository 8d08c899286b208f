// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <AppKit/Applications.h>

@class NSView, NSWindow;

@interface NSLayoutConstraint : NSObject
+ (void)activateConstraints:(NSArray<NSLayoutConstraint*>*)constraints;
@end

@interface NSLayoutAnchor<AnchorType> : NSObject
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor*)other;
@end

@interface NSView : NSResponder
@property NSRect frame;
@property(readonly) NSRect bounds;
@property(readonly) NSWindow* window;
@property(readonly, weak) NSView* superview;
@property(readonly, copy) NSArray<NSView*>* subviews;
@property BOOL translatesAutoresizingMaskIntoConstraints;
@property(readonly) NSLayoutAnchor* leadingAnchor;
@property(readonly) NSLayoutAnchor* trailingAnchor;
@property(readonly) NSLayoutAnchor* topAnchor;
@property(readonly) NSLayoutAnchor* bottomAnchor;
- (instancetype)initWithFrame:(NSRect)frame;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (void)layoutSubtreeIfNeeded;
- (NSRect)convertRect:(NSRect)rectangle toView:(NSView*)view;
@end

typedef NSInteger NSVisualEffectMaterial;
typedef NSInteger NSVisualEffectBlendingMode;
typedef NSInteger NSVisualEffectState;
enum : NSVisualEffectMaterial { NSVisualEffectMaterialPopover = 6 };
enum : NSVisualEffectBlendingMode { NSVisualEffectBlendingModeBehindWindow = 0 };
enum : NSVisualEffectState { NSVisualEffectStateFollowsWindowActiveState = 0, NSVisualEffectStateActive = 1 };

@interface NSVisualEffectView : NSView
@property NSVisualEffectMaterial material;
@property NSVisualEffectBlendingMode blendingMode;
@property NSVisualEffectState state;
@end

typedef NSUInteger NSWindowStyleMask;
typedef NSUInteger NSBackingStoreType;
typedef NSUInteger NSWindowCollectionBehavior;
typedef NSInteger NSWindowLevel;
enum : NSWindowStyleMask { NSWindowStyleMaskBorderless = 0, NSWindowStyleMaskTitled = 1 };
enum : NSBackingStoreType { NSBackingStoreBuffered = 2 };
enum : NSWindowCollectionBehavior { NSWindowCollectionBehaviorMoveToActiveSpace = 1U << 1U };
constexpr NSWindowLevel NSNormalWindowLevel = 0;
constexpr NSWindowLevel NSFloatingWindowLevel = 3;

@interface NSWindow : NSResponder
- (instancetype)initWithContentRect:(NSRect)content
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)isDeferred;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property(strong) NSView* contentView;
@property(readonly, getter=isVisible) BOOL visible;
@property(readonly, getter=isKeyWindow) BOOL keyWindow;
@property(readonly) BOOL canBecomeKeyWindow;
@property(readonly) NSInteger windowNumber;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior;
- (void)orderFront:(id)sender;
- (void)orderFrontRegardless;
- (void)makeKeyAndOrderFront:(id)sender;
- (void)makeKeyWindow;
- (void)close;
- (NSRect)convertRectToScreen:(NSRect)rectangle;
@end

@interface NSScreen : NSObject
@property(class, readonly) NSArray<NSScreen*>* screens;
@property(readonly) NSRect frame;
@end

@interface NSViewController : NSResponder
@property(strong) NSView* view;
@end

typedef NSInteger NSPopoverBehavior;
enum : NSPopoverBehavior { NSPopoverBehaviorApplicationDefined = 0, NSPopoverBehaviorTransient = 1 };
extern NSString* const NSPopoverDidCloseNotification;

@protocol NSPopoverDelegate <NSObject>
@optional
- (void)popoverDidClose:(NSNotification*)notification;
@end

@class NSAppearance;
@interface NSPopover : NSResponder
@property(weak) id<NSPopoverDelegate> delegate;
@property(strong) NSAppearance* appearance;
@property NSPopoverBehavior behavior;
@property(strong) NSViewController* contentViewController;
@property NSSize contentSize;
@property(readonly, getter=isShown) BOOL shown;
- (void)showRelativeToRect:(NSRect)rectangle ofView:(NSView*)view preferredEdge:(NSRectEdge)edge;
- (void)performClose:(id)sender;
- (void)close;
@end
