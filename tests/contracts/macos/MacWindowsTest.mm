// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacWindows.h"

#include <QWidget>

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

namespace zamber::macos {

namespace {

NSWindow* systemWindow(const QWidget& widget) {
    return ((__bridge NSView*)reinterpret_cast<void*>(widget.winId())).window;
}

} // namespace

TEST(FloatingLevel, WhatStaysOnTopFloatsAndTheRestDoesNot) {
    const FloatingLevel floatingLevel;
    QWidget onTop(nullptr, Qt::Dialog | Qt::WindowStaysOnTopHint);
    QWidget plain;
    onTop.show();
    plain.show();
    EXPECT_EQ(systemWindow(onTop).level, NSFloatingWindowLevel);
    EXPECT_EQ(systemWindow(plain).level, NSNormalWindowLevel);
}

TEST(MacWindows, AWindowThatIsBroughtToTheFrontComesToTheSpaceOfTheUser) {
    QWidget window;
    window.show();
    bringWindowToFront(window.winId());
    EXPECT_TRUE(systemWindow(window).visible);
    EXPECT_TRUE((systemWindow(window).collectionBehavior & NSWindowCollectionBehaviorMoveToActiveSpace) != 0);
}

} // namespace zamber::macos
