// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "install/LaunchAtLoginManager.h"

#include "tests/fakes/FakeLoginItem.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

namespace zamber::install {

namespace {

class LaunchAtLoginManagerTest : public testing::Test {
protected:
    std::string logOf(bool isEnabled) {
        LogCapture log;
        manager.setEnabled(isEnabled);
        return log.take();
    }

    FakeLoginItem item;
    LaunchAtLoginManager manager{item};
};

TEST_F(LaunchAtLoginManagerTest, OnlyAnEnabledItemIsEnabled) {
    item.current = LoginItemStatus::Enabled;
    EXPECT_TRUE(manager.isEnabled());
    for (const auto status :
         {LoginItemStatus::NotRegistered, LoginItemStatus::RequiresApproval, LoginItemStatus::NotFound}) {
        item.current = status;
        EXPECT_FALSE(manager.isEnabled());
    }
}

TEST_F(LaunchAtLoginManagerTest, TheStateIsReadAnewEachTime) {
    EXPECT_FALSE(manager.isEnabled());
    item.current = LoginItemStatus::Enabled; // by the user, in the desktop's settings
    EXPECT_TRUE(manager.isEnabled());
}

TEST_F(LaunchAtLoginManagerTest, EnablingRegistersAndSaysSo) {
    EXPECT_EQ(logOf(true), "✅ Launch at Login: enabled\n");
    EXPECT_EQ(item.current, LoginItemStatus::Enabled);
}

TEST_F(LaunchAtLoginManagerTest, DisablingUnregistersAndSaysSo) {
    item.current = LoginItemStatus::Enabled;
    EXPECT_EQ(logOf(false), "✅ Launch at Login: disabled\n");
    EXPECT_EQ(item.current, LoginItemStatus::NotRegistered);
}

TEST_F(LaunchAtLoginManagerTest, TheDesktopIsAskedAlsoWhenNothingWouldChange) {
    logOf(false);
    EXPECT_EQ(item.changesAsked, 1);
    logOf(true);
    logOf(true);
    EXPECT_EQ(item.changesAsked, 3);
}

TEST_F(LaunchAtLoginManagerTest, AFailureIsLoggedInTheDesktopsWordsAndNothingElseHappens) {
    item.failure = QStringLiteral("Read-only file system");
    EXPECT_EQ(logOf(true), "❌ Launch at Login error: Read-only file system\n");
    EXPECT_FALSE(manager.isEnabled());
    item.current = LoginItemStatus::Enabled;
    EXPECT_EQ(logOf(false), "❌ Launch at Login error: Read-only file system\n");
    EXPECT_TRUE(manager.isEnabled());
    EXPECT_EQ(item.changesAsked, 2) << "there is no second attempt";
}

} // namespace

} // namespace zamber::install
