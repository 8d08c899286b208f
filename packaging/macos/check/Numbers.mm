// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
//
// The numbers behind the names that the adapters and their tests use. ./check-macos holds them against the system's
// headers, the tests on stand-ins against ours, so that neither can differ from the other.
#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>
#import <CoreGraphics/CoreGraphics.h>
#import <ServiceManagement/ServiceManagement.h>

// Hot keys and the paste keystroke: places on the keyboard, modifiers, and what is told of a press.
static_assert(kVK_ANSI_V == 9 && kVK_ANSI_2 == 19 && kVK_ANSI_3 == 20);
static_assert(cmdKey == 0x100 && shiftKey == 0x200);
static_assert(kEventClassKeyboard == 'keyb' && kEventHotKeyPressed == 5 && kEventAttributeNone == 0);
static_assert(kEventParamDirectObject == '----' && typeEventHotKeyID == 'hkid');
static_assert(noErr == 0 && eventNotHandledErr == -9874 && eventHotKeyExistsErr == -9878);
static_assert(sizeof(EventHotKeyID) == 8);
static_assert(kCGEventSourceStateHIDSystemState == 1 && kCGHIDEventTap == 0);
static_assert(kCGEventFlagMaskShift == 0x20000 && kCGEventFlagMaskCommand == 0x100000);

// Keys of the list.
static_assert(kVK_UpArrow == 126 && kVK_DownArrow == 125 && kVK_Return == 36 && kVK_Escape == 53);
static_assert(NSEventTypeKeyDown == 10 && NSEventMaskKeyDown == 1 << 10);

// Application, windows, status item, popover, alert.
static_assert(NSApplicationActivationPolicyRegular == 0 && NSApplicationActivationPolicyAccessory == 1);
static_assert(NSEventTypeLeftMouseUp == 2 && NSEventTypeRightMouseUp == 4 && NSEventTypeApplicationDefined == 15);
static_assert(NSEventMaskLeftMouseUp == 1 << 2 && NSEventMaskRightMouseUp == 1 << 4);
static_assert(NSPopoverBehaviorApplicationDefined == 0 && NSPopoverBehaviorTransient == 1);
static_assert(NSRectEdgeMinX == 0 && NSRectEdgeMinY == 1 && NSRectEdgeMaxX == 2 && NSRectEdgeMaxY == 3);
static_assert(NSAlertStyleWarning == 0 && NSAlertStyleInformational == 1 && NSAlertStyleCritical == 2);
static_assert(NSAlertFirstButtonReturn == 1000);
static_assert(NSModalResponseStop == -1000 && NSModalResponseAbort == -1001);
static_assert(NSNormalWindowLevel == 0 && NSFloatingWindowLevel == 3);
static_assert(NSWindowStyleMaskBorderless == 0 && NSWindowStyleMaskTitled == 1 && NSBackingStoreBuffered == 2);
static_assert(NSWindowCollectionBehaviorMoveToActiveSpace == 1 << 1);
static_assert(NSVisualEffectMaterialPopover == 6 && NSVisualEffectBlendingModeBehindWindow == 0);
static_assert(NSVisualEffectStateFollowsWindowActiveState == 0 && NSVisualEffectStateActive == 1);
static_assert((__builtin_constant_p(NSSquareStatusItemLength) ? NSSquareStatusItemLength : 0) == -2);

// Preferences, files, texts, pictures, time.
static_assert(NSKeyValueObservingOptionNew == 1);
static_assert(NSApplicationSupportDirectory == 14 && NSUserDomainMask == 1);
static_assert(NSPropertyListImmutable == 0 && NSUTF8StringEncoding == 4);
static_assert(NSTextCheckingTypeLink == 1 << 5);
static_assert(kCGImageAlphaPremultipliedFirst == 2 && kCGBitmapByteOrder32Host == 2 << 12);
static_assert(DISPATCH_TIME_NOW == 0);

// The login item.
static_assert(SMAppServiceStatusNotRegistered == 0 && SMAppServiceStatusEnabled == 1);
static_assert(SMAppServiceStatusRequiresApproval == 2 && SMAppServiceStatusNotFound == 3);
