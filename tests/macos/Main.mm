// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplicationDelegate.h"
#include "tests/macos/System.h"

#include <QApplication>

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

namespace {

/// What a test finds on a Mac: another program in front, and no hot key of ours.
class Desk final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        zamber::system::openApplication("Finder");
        zamber::system::forgetHotKeys();
    }
};

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new Desk);
    @autoreleasepool {
        zamber::macos::installApplicationDelegate();
        const QApplication application(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        return RUN_ALL_TESTS();
    }
}
