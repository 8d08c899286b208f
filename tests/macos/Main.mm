// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplicationDelegate.h"

#include <QApplication>

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    @autoreleasepool {
        zamber::macos::installApplicationDelegate();
        const QApplication application(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        return RUN_ALL_TESTS();
    }
}
