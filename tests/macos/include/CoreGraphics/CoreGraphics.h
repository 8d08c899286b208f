// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <Foundation/Foundation.h>

typedef struct ZamberEventSource* CGEventSourceRef;
typedef struct ZamberKeyEvent* CGEventRef;
typedef struct ZamberColorSpace* CGColorSpaceRef;
typedef struct ZamberBitmap* CGContextRef;
typedef uint16_t CGKeyCode;
typedef uint64_t CGEventFlags;
typedef int32_t CGEventSourceStateID;
typedef uint32_t CGEventTapLocation;

enum : CGEventSourceStateID { kCGEventSourceStateHIDSystemState = 1 };
enum : CGEventTapLocation { kCGHIDEventTap = 0 };
enum : CGEventFlags { kCGEventFlagMaskShift = 0x20000, kCGEventFlagMaskCommand = 0x100000 };
enum : uint32_t { kCGImageAlphaPremultipliedFirst = 2, kCGBitmapByteOrder32Host = 2U << 12U };

extern const CFStringRef kCGColorSpaceSRGB;

extern "C" {
CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state);
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool isDown);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);
bool CGPreflightPostEventAccess();

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);
void CGColorSpaceRelease(CGColorSpaceRef space);
CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef space, uint32_t bitmapInfo);
void CGContextRelease(CGContextRef context);
}
