// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplicationDelegate.h"

#include <QApplication>

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "cocoa", 1); // ./test has the others draw offscreen
    testing::InitGoogleTest(&argc, argv);
    zamber::macos::installApplicationDelegate();
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
    return RUN_ALL_TESTS();
}
