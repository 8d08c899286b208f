// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacKeystrokePoster.h"

#import <Carbon/Carbon.h>
#import <CoreGraphics/CoreGraphics.h>

namespace zamber::macos {

namespace {

void post(CGEventRef event) {
    if (event != nullptr) {
        CGEventSetFlags(event, kCGEventFlagMaskCommand);
        CGEventPost(kCGHIDEventTap, event);
        CFRelease(event);
    }
}

} // namespace

void MacKeystrokePoster::postPaste(const Paste&, Done done) {
    CGEventSourceRef source = CGEventSourceCreate(kCGEventSourceStateHIDSystemState);
    CGEventRef keyDown = CGEventCreateKeyboardEvent(source, kVK_ANSI_V, true);
    CGEventRef keyUp = CGEventCreateKeyboardEvent(source, kVK_ANSI_V, false);
    post(keyDown);
    post(keyUp);
    if (source != nullptr) {
        CFRelease(source);
    }
    done(PasteOutcome::Posted);
}

} // namespace zamber::macos
