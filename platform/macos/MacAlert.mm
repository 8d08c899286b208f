// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacAlert.h"

#import <AppKit/AppKit.h>

namespace zamber {

int MacAlert::run(const AlertContent& content) {
    NSAlert* const alert = [NSAlert new];
    alert.alertStyle = content.style == AlertStyle::Warning ? NSAlertStyleWarning : NSAlertStyleInformational;
    alert.messageText = content.message.toNSString();
    alert.informativeText = content.informativeText.toNSString();
    for (const QString& button : content.buttons) {
        [alert addButtonWithTitle:button.toNSString()];
    }
    [NSApp activateIgnoringOtherApps:YES];
    const NSModalResponse response = [alert runModal];
    const bool isButton = response >= NSAlertFirstButtonReturn;
    return isButton ? static_cast<int>(response - NSAlertFirstButtonReturn)
                    : static_cast<int>(content.buttons.size()) - 1;
}

} // namespace zamber
