// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "MainLoop.h"

#include <QCoreApplication>

#import <AppKit/AppKit.h>

namespace zamber::macos {

std::chrono::duration<double> uptime() {
    return std::chrono::duration<double>(NSProcessInfo.processInfo.systemUptime);
}

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
    const auto end = uptime() + patience;
    while (!condition() && uptime() < end) {
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
