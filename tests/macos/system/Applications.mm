// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "RunLoop.h"
#include "Values.h"

#include "tests/macos/System.h"

#include <QCoreApplication>

#import <AppKit/AppKit.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

// The rules:
// - An action without a target goes along the responder chain, which ends at the application's delegate
//   (NSApplication.h, sendAction:to:from:).
// - stopModalWithCode: takes effect when the modal loop has the next event (NSApplication's documentation of
//   stopModal).
// - Qt activates the application when its own is made, unless its environment variable says otherwise
//   (QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM, qcocoaintegration.mm).

using namespace zamber::system;

namespace {

std::optional<NSModalResponse> modalCode;
std::optional<NSModalResponse> nextAnswer;

} // namespace

NSApplication* NSApp = nil;

@implementation NSResponder
- (void)keyDown:(NSEvent*)event {
}
@end

@implementation NSApplication
+ (NSApplication*)sharedApplication {
    static NSApplication* const only = [NSApplication new];
    return NSApp = only;
}
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
    note("NSApplication setActivationPolicy: %ld", policy);
    return YES;
}
- (void)activateIgnoringOtherApps:(BOOL)ignoring {
    note("NSApplication activateIgnoringOtherApps: %d", ignoring);
}
- (void)terminate:(id)sender {
    note("NSApplication terminate: %s", sender != nil ? "a sender" : "nil");
    if (QCoreApplication::instance() != nullptr) {
        QCoreApplication::quit(); // Qt's delegate has it so
    }
}
- (BOOL)sendAction:(SEL)action to:(id)target from:(id)sender {
    note("NSApplication sendAction: %s to: %s from: %s", reinterpret_cast<const char*>(action),
         target != nil ? "a target" : "nil", sender != nil ? "a sender" : "nil");
    const id receiver = target != nil ? target : self.delegate;
    if (![receiver respondsToSelector:action]) {
        return NO;
    }
    [receiver performSelector:action withObject:sender];
    return YES;
}
- (void)stopModalWithCode:(NSModalResponse)code {
    modalCode = code;
}
- (void)hide:(id)sender {
    pressOutsidePopover();
}
- (void)unhideWithoutActivation {
}
@end

@implementation NSAlert {
    int _buttons;
}
- (id)addButtonWithTitle:(NSString*)title {
    note("NSAlert addButtonWithTitle: %s", words(title).c_str());
    ++_buttons;
    return nil;
}
- (NSModalResponse)runModal {
    note("NSAlert runModal style: %lu message: %s informative: %s", self.alertStyle, words(self.messageText).c_str(),
         words(self.informativeText).c_str());
    modalCode.reset();
    if (nextAnswer) {
        return *std::exchange(nextAnswer, std::nullopt);
    }
    eventsSeen = 0;
    runUntil(NSModalPanelRunLoopMode, [] { return modalCode && eventsSeen > 0; });
    return *modalCode;
}
@end

namespace zamber::system {

void answerAlert(int buttonOrCode) {
    nextAnswer = buttonOrCode >= 0 ? NSAlertFirstButtonReturn + buttonOrCode : buttonOrCode;
}

namespace {

void activateAsQt() {
    if (qEnvironmentVariableIsEmpty("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM")) {
        note("NSApplication activateIgnoringOtherApps: 1 by Qt");
    }
}
Q_COREAPP_STARTUP_FUNCTION(activateAsQt)

} // namespace

} // namespace zamber::system
