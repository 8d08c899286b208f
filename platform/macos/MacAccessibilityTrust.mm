// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacAccessibilityTrust.h"

#import <ApplicationServices/ApplicationServices.h>

namespace zamber::macos {

bool MacAccessibilityTrust::isTrusted() const {
    return AXIsProcessTrusted() != 0;
}

std::optional<QUrl> MacAccessibilityTrust::settingsAddress() const {
    return QUrl(QString::fromLatin1("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
}

} // namespace zamber::macos
