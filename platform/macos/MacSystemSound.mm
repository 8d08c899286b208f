// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacSystemSound.h"

#import <AppKit/AppKit.h>

namespace zamber::macos {

void MacSystemSound::play(const QString& name) {
    [[NSSound soundNamed:name.toNSString()] play];
}

} // namespace zamber::macos
