// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreGraphics/CoreGraphics.h>

typedef uint32_t UInt32;
typedef int32_t OSStatus;
typedef UInt32 OSType;
typedef unsigned long ByteCount;
typedef double EventTime;

enum : OSStatus { noErr = 0, eventNotHandledErr = -9874, eventHotKeyExistsErr = -9878 };
enum {
    kVK_ANSI_V = 9,
    kVK_ANSI_2 = 19,
    kVK_ANSI_3 = 20,
    kVK_Return = 36,
    kVK_Escape = 53,
    kVK_DownArrow = 125,
    kVK_UpArrow = 126,
};
enum { cmdKey = 0x100, shiftKey = 0x200 };
enum : UInt32 {
    kEventClassKeyboard = 'keyb',
    kEventHotKeyPressed = 5,
    kEventParamDirectObject = '----',
    typeEventHotKeyID = 'hkid',
    kEventAttributeNone = 0,
};

struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};
struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};

typedef struct ZamberHotKey* EventHotKeyRef;
typedef struct ZamberEvent* EventRef;
typedef struct ZamberEventTarget* EventTargetRef;
typedef struct ZamberEventHandler* EventHandlerRef;
typedef struct ZamberHandlerCall* EventHandlerCallRef;
typedef OSStatus (*EventHandlerUPP)(EventHandlerCallRef next, EventRef event, void* userData);

extern "C" {
EventTargetRef GetApplicationEventTarget();
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target, UInt32 options,
                             EventHotKeyRef* registered);
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, unsigned long typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* installed);
OSStatus GetEventParameter(EventRef event, OSType name, OSType type, OSType* actualType, ByteCount size,
                           ByteCount* actualSize, void* data);
OSStatus SetEventParameter(EventRef event, OSType name, OSType type, ByteCount size, const void* data);
OSStatus CreateEvent(void* allocator, OSType eventClass, UInt32 kind, EventTime when, UInt32 attributes,
                     EventRef* event);
OSStatus SendEventToEventTarget(EventRef event, EventTargetRef target);
void ReleaseEvent(EventRef event);
}
