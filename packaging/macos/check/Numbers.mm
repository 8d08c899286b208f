// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
//
// The numbers behind the names that the adapters use, held against the system's headers when ./check-macos compiles.
#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>
#import <CoreGraphics/CoreGraphics.h>

// Hot keys and the paste keystroke: places on the keyboard, modifiers, and what is told of a press.
static_assert(kVK_ANSI_V == 9 && kVK_ANSI_2 == 19 && kVK_ANSI_3 == 20);
static_assert(cmdKey == 0x100 && shiftKey == 0x200);
static_assert(kEventClassKeyboard == 'keyb' && kEventHotKeyPressed == 5);
static_assert(kEventParamDirectObject == '----' && typeEventHotKeyID == 'hkid');
static_assert(sizeof(EventHotKeyID) == 8);
static_assert(kCGEventSourceStateHIDSystemState == 1 && kCGHIDEventTap == 0 && kCGEventFlagMaskCommand == 0x100000);

// Keys of the list.
static_assert(kVK_UpArrow == 126 && kVK_DownArrow == 125 && kVK_Return == 36 && kVK_Escape == 53);

// Application, status item, popover, alert.
static_assert(NSApplicationActivationPolicyAccessory == 1);
static_assert(NSEventTypeRightMouseUp == 4 && NSEventMaskLeftMouseUp == 1 << 2 && NSEventMaskRightMouseUp == 1 << 4);
static_assert(NSPopoverBehaviorTransient == 1 && NSRectEdgeMinY == 1);
static_assert(NSAlertFirstButtonReturn == 1000);
static_assert(NSModalResponseStop < NSAlertFirstButtonReturn);
static_assert(NSFloatingWindowLevel == 3);
static_assert((__builtin_constant_p(NSSquareStatusItemLength) ? NSSquareStatusItemLength : 0) == -2);
