// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: other programs, addresses, the Trash and the permission.

#include "platform/macos/MacAccessibilityTrust.h"
#include "platform/macos/MacWorkspace.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"

#include <QFile>
#include <QTemporaryDir>

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;

} // namespace

TEST(Recorded, TheFrontApplicationIsActivatedWithoutOptions) {
    macos::MacWorkspace workspace;
    const int letters = system::openApplication("Letters");
    const auto front = workspace.frontmostApplication();
    ASSERT_TRUE(front);
    EXPECT_EQ(front->localizedName, QStringLiteral("Letters"));
    EXPECT_GT(front->processId, 0);
    EXPECT_EQ(workspace.frontmostApplication(), front);
    system::openApplication("Numbers");
    EXPECT_NE(workspace.frontmostApplication(), front);
    EXPECT_THAT(callsDuring([&] { workspace.activate(*front); }),
                ElementsAre("NSRunningApplication Letters activateWithOptions: 0"));
    EXPECT_EQ(system::applicationInFront(), letters);
    system::quitApplication(letters);
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
    workspace.activate(*front);
    EXPECT_EQ(system::applicationInFront(), 0);
}

TEST(Recorded, AddressesInstancesAndTheTrashAreTheWorkspaces) {
    macos::MacWorkspace workspace;
    const QTemporaryDir home;
    system::setHome(home.path());
    EXPECT_THAT(callsDuring([&] { workspace.open(*macos::MacAccessibilityTrust().settingsAddress()); }),
                ElementsAre("NSWorkspace openURL: "
                            "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
    const QString program = home.filePath(QStringLiteral("Program"));
    QFile file(program);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n:>\"$0.started\"\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    file.close();
    bool isDone = false;
    EXPECT_THAT(callsDuring([&] {
                    workspace.openNewInstance(program, [&isDone](const std::optional<QString>& error) {
                        EXPECT_TRUE(NSThread.isMainThread);
                        EXPECT_EQ(error, std::nullopt);
                        isDone = true;
                    });
                }),
                ElementsAre("NSWorkspace openApplicationAtURL: " + program.toStdString() +
                            " createsNewApplicationInstance: 1"));
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(macos::waitUntil([&isDone] { return isDone; }));
    EXPECT_TRUE(macos::waitUntil([&] { return QFile::exists(program + QStringLiteral(".started")); }));
    EXPECT_THAT(callsDuring([&] { EXPECT_TRUE(workspace.moveToTrash(program)); }),
                ElementsAre("NSFileManager trashItemAtURL: resultingItemURL: nil"));
    EXPECT_FALSE(QFile::exists(program));
    EXPECT_TRUE(QFile::exists(home.filePath(QStringLiteral(".Trash/Program"))));
}

TEST(Recorded, TrustIsAskedAtEachCall) {
    const macos::MacAccessibilityTrust trust;
    system::setTrusted(false);
    EXPECT_FALSE(trust.isTrusted());
    system::setTrusted(true);
    EXPECT_TRUE(trust.isTrusted());
}

} // namespace zamber
