// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "MainLoop.h"

#include <QCoreApplication>

#import <AppKit/AppKit.h>

namespace zamber::macos {

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition() && std::chrono::steady_clock::now() < end) {
        @autoreleasepool {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            [NSRunLoop.currentRunLoop runMode:NSDefaultRunLoopMode
                                   beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.001]];
        }
    }
    return condition();
}

void letPass(std::chrono::milliseconds time) {
    waitUntil([] { return false; }, time);
}

} // namespace zamber::macos
