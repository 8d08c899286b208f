// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <Foundation/Foundation.h>

@class NSAppearance, NSApplication, NSEvent, NSGraphicsContext;

typedef NSInteger NSApplicationActivationPolicy;
enum : NSApplicationActivationPolicy {
    NSApplicationActivationPolicyRegular = 0,
    NSApplicationActivationPolicyAccessory = 1,
};
typedef NSInteger NSModalResponse;
enum : NSModalResponse { NSModalResponseStop = -1000, NSModalResponseAbort = -1001 };
extern NSRunLoopMode const NSModalPanelRunLoopMode;
extern NSRunLoopMode const NSEventTrackingRunLoopMode;

@protocol NSApplicationDelegate <NSObject>
@optional
- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)hasVisibleWindows;
@end

@interface NSResponder : NSObject
- (void)keyDown:(NSEvent*)event;
@end

@interface NSApplication : NSResponder
@property(class, readonly) NSApplication* sharedApplication;
@property(weak) id delegate;
@property(strong) NSEvent* currentEvent;
@property(strong) NSAppearance* appearance;
@property(readonly) NSAppearance* effectiveAppearance;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (void)activateIgnoringOtherApps:(BOOL)ignoring;
- (void)hide:(id)sender;
- (void)unhideWithoutActivation;
- (void)terminate:(id)sender;
- (BOOL)sendAction:(SEL)action to:(id)target from:(id)sender;
- (void)postEvent:(NSEvent*)event atStart:(BOOL)atStart;
- (void)stopModalWithCode:(NSModalResponse)code;
@end
extern "C" NSApplication* NSApp;

typedef NSUInteger NSEventType;
typedef unsigned long long NSEventMask;
typedef NSUInteger NSEventModifierFlags;
enum : NSEventType {
    NSEventTypeLeftMouseUp = 2,
    NSEventTypeRightMouseUp = 4,
    NSEventTypeKeyDown = 10,
    NSEventTypeApplicationDefined = 15,
};
enum : NSEventMask {
    NSEventMaskLeftMouseUp = 1ULL << 2U,
    NSEventMaskRightMouseUp = 1ULL << 4U,
    NSEventMaskKeyDown = 1ULL << 10U,
};

@interface NSEvent : NSObject
@property(readonly) NSEventType type;
@property(readonly) unsigned short keyCode;
@property(readonly) NSInteger windowNumber;
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent*))handler;
+ (void)removeMonitor:(id)monitor;
+ (NSEvent*)keyEventWithType:(NSEventType)type
                       location:(NSPoint)location
                  modifierFlags:(NSEventModifierFlags)flags
                      timestamp:(NSTimeInterval)time
                   windowNumber:(NSInteger)windowNumber
                        context:(NSGraphicsContext*)context
                     characters:(NSString*)characters
    charactersIgnoringModifiers:(NSString*)unmodified
                      isARepeat:(BOOL)isRepeat
                        keyCode:(unsigned short)code;
+ (NSEvent*)otherEventWithType:(NSEventType)type
                      location:(NSPoint)location
                 modifierFlags:(NSEventModifierFlags)flags
                     timestamp:(NSTimeInterval)time
                  windowNumber:(NSInteger)windowNumber
                       context:(NSGraphicsContext*)context
                       subtype:(short)subtype
                         data1:(NSInteger)data1
                         data2:(NSInteger)data2;
@end

typedef NSUInteger NSAlertStyle;
enum : NSAlertStyle { NSAlertStyleWarning = 0, NSAlertStyleInformational = 1, NSAlertStyleCritical = 2 };
constexpr NSModalResponse NSAlertFirstButtonReturn = 1000;

@interface NSAlert : NSObject
@property NSAlertStyle alertStyle;
@property(copy) NSString* messageText;
@property(copy) NSString* informativeText;
- (id)addButtonWithTitle:(NSString*)title;
- (NSModalResponse)runModal;
@end
