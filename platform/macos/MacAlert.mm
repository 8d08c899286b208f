// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacAlert.h"

#import <AppKit/AppKit.h>

namespace zamber::macos {

int MacAlert::run(const AlertContent& content) {
    NSAlert* const alert = [NSAlert new];
    alert.alertStyle = content.style == AlertStyle::Warning ? NSAlertStyleWarning : NSAlertStyleInformational;
    alert.messageText = content.message.toNSString();
    alert.informativeText = content.informativeText.toNSString();
    for (const QString& button : content.buttons) {
        [alert addButtonWithTitle:button.toNSString()];
    }
    [NSApp activateIgnoringOtherApps:YES];
    const NSInteger pressed = [alert runModal] - NSAlertFirstButtonReturn;
    const NSInteger last =
        qMax<NSInteger>(content.buttons.size(), 1) - 1; // without buttons of ours the alert adds one itself
    return static_cast<int>(pressed >= 0 ? pressed : last);
}

} // namespace zamber::macos
