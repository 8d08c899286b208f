// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "MainLoop.h"

#include "platform/macos/MacAccessibilityTrust.h"
#include "platform/macos/MacAppBundle.h"
#include "platform/macos/MacApplicationSupport.h"
#include "platform/macos/MacLinkDetector.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacSymbols.h"
#include "platform/macos/MacSystemSound.h"
#include "platform/macos/MacWorkspace.h"
#include "tests/contracts/AccessibilityTrustContract.h"
#include "tests/contracts/LinkDetectorContract.h"
#include "tests/contracts/SymbolsContract.h"
#include "tests/contracts/SystemSoundContract.h"

#import <AppKit/AppKit.h>

#include <memory>

namespace zamber::macos {

namespace {

struct MacLinkDetectorRig {
    MacLinkDetector real;
    LinkDetector& detector() { return real; }
};

struct MacSymbolsRig {
    MacSymbols real;
    const Symbols& symbols() { return real; }
};

struct MacSystemSoundRig {
    MacSystemSound real;
    SystemSound& sounds() { return real; }
};

struct MacAccessibilityTrustRig {
    MacAccessibilityTrust real;
    AccessibilityTrust& trust() { return real; }
    bool canPost() { return CGPreflightPostEventAccess(); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, LinkDetectorContract, MacLinkDetectorRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, SymbolsContract, MacSymbolsRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, SystemSoundContract, MacSystemSoundRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, AccessibilityTrustContract, MacAccessibilityTrustRig);

TEST(MacAccessibilityTrust, TheAddressIsThatOfTheAccessibilityPane) {
    EXPECT_EQ(MacAccessibilityTrust().settingsAddress()->toString(),
              QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
}

TEST(MacAppBundle, ATestProgramLiesWhereItWasStartedAndHasNoVersion) {
    const MacAppBundle bundle;
    EXPECT_EQ(bundle.path(), QString::fromNSString(NSBundle.mainBundle.bundlePath));
    EXPECT_TRUE(bundle.path().startsWith(u'/'));
    EXPECT_EQ(bundle.version(), std::nullopt);
    EXPECT_EQ(bundle.build(), std::nullopt);
}

TEST(MacApplicationSupport, IsInTheUsersLibrary) {
    EXPECT_TRUE(applicationSupportFolder().string().ends_with("/Library/Application Support"));
}

TEST(MacLoginItem, ATestProgramIsNoLoginItem) {
    EXPECT_NE(MacLoginItem().status(), LoginItemStatus::Enabled);
}

TEST(MacWorkspace, SomethingIsInFrontAndIsTheSameAtEachLook) {
    MacWorkspace workspace;
    const auto front = workspace.frontmostApplication();
    ASSERT_TRUE(front);
    EXPECT_GT(front->processId, 0);
    EXPECT_EQ(workspace.frontmostApplication(), front);
}

TEST(MacWorkspace, WhatIsNotThereCanNeitherBeOpenedNorTrashed) {
    MacWorkspace workspace;
    const auto outcome = std::make_shared<std::optional<QString>>();
    workspace.openNewInstance(QStringLiteral("/nowhere/at all.app"),
                              [outcome](const std::optional<QString>& error) { *outcome = error.value_or(QString()); });
    EXPECT_TRUE(waitUntil([outcome] { return outcome->has_value(); }));
    EXPECT_FALSE(outcome->value_or(QString()).isEmpty());
    const auto moved = workspace.moveToTrash(QStringLiteral("/nowhere/at all"));
    ASSERT_FALSE(moved);
    EXPECT_FALSE(moved.error().isEmpty());
}

} // namespace zamber::macos
