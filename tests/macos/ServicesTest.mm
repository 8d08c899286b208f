// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: login item, sound, links, bundle, folders and disk images.

#include "platform/macos/MacAppBundle.h"
#include "platform/macos/MacApplicationSupport.h"
#include "platform/macos/MacBundleFiles.h"
#include "platform/macos/MacDiskImageTool.h"
#include "platform/macos/MacLinkDetector.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacSystemSound.h"
#include "tests/contracts/StandInDiskImageTool.h"
#include "tests/macos/System.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#import <AppKit/AppKit.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;

} // namespace

TEST(Recorded, TheLoginItemIsTheMainApplicationsService) {
    macos::MacLoginItem item;
    const std::vector states{LoginItemStatus::NotRegistered, LoginItemStatus::Enabled,
                             LoginItemStatus::RequiresApproval, LoginItemStatus::NotFound};
    for (int state = 0; state < 4; ++state) {
        system::setLoginItemStatus(state);
        EXPECT_EQ(item.status(), states[static_cast<std::size_t>(state)]);
    }
    EXPECT_THAT(callsDuring([&] {
                    EXPECT_TRUE(item.registerItem());
                    EXPECT_EQ(item.status(), LoginItemStatus::Enabled);
                    EXPECT_TRUE(item.unregisterItem());
                }),
                ElementsAre("SMAppService registerAndReturnError:", "SMAppService status",
                            "SMAppService unregisterAndReturnError:"));
    system::failLoginItem(true);
    const auto outcome = item.registerItem();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error(),
              QStringLiteral("Error Domain=SMAppServiceErrorDomain Code=1 \"Operation not permitted\""));
    EXPECT_FALSE(item.unregisterItem());
    system::failLoginItem(false);
    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
}

TEST(Recorded, ASoundIsPlayedByName) {
    macos::MacSystemSound sounds;
    EXPECT_THAT(callsDuring([&] { sounds.play(QStringLiteral("Tink")); }),
                ElementsAre("NSSound soundNamed: Tink", "NSSound play"));
    system::setSoundsThere(false);
    EXPECT_THAT(callsDuring([&] { sounds.play(QStringLiteral("Tink")); }), ElementsAre("NSSound soundNamed: Tink"));
    system::setSoundsThere(true);
}

TEST(Recorded, LinksAreLookedForInTheWholeText) {
    macos::MacLinkDetector detector;
    detector.firstLink({});
    EXPECT_THAT(callsDuring([&] { detector.firstLink(QStringLiteral("🎉 a.org")); }),
                ElementsAre("NSDataDetector firstMatchInString: options: 0 range: 0, 8"));
    EXPECT_EQ(std::ranges::count(system::calls(), "NSDataDetector dataDetectorWithTypes: 0x20"), 1);
}

TEST(Recorded, TheBundleTellsTextsAlone) {
    const macos::MacAppBundle bundle;
    system::setBundle(QStringLiteral("/Volumes/Zamber/Zamber.app"),
                      {{QStringLiteral("CFBundleShortVersionString"), QStringLiteral("1.2.3")}},
                      {{QStringLiteral("CFBundleVersion"), 7}});
    EXPECT_EQ(bundle.path(), QStringLiteral("/Volumes/Zamber/Zamber.app"));
    EXPECT_EQ(bundle.version(), QStringLiteral("1.2.3"));
    EXPECT_EQ(bundle.build(), std::nullopt);
    system::setBundle({}, {{QStringLiteral("CFBundleVersion"), QStringLiteral("8")}});
    EXPECT_EQ(bundle.version(), std::nullopt);
    EXPECT_EQ(bundle.build(), QStringLiteral("8"));
    system::setBundle({}, {});
}

TEST(Recorded, TheHistorysFolderIsTheUsersApplicationSupport) {
    system::setHome(QStringLiteral("/Users/someone"));
    EXPECT_THAT(
        callsDuring([] { EXPECT_EQ(macos::applicationSupportFolder(), "/Users/someone/Library/Application Support"); }),
        ElementsAre("NSFileManager URLsForDirectory: 14 inDomains: 1"));
}

TEST(Recorded, WhatWasCopiedOfABundleBeforeAFailureIsTakenAway) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("from")));
    ASSERT_EQ(mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("from/pipe"))).constData(), 0600), 0);
    macos::MacBundleFiles files(folder.path());
    EXPECT_THAT(callsDuring([&] { EXPECT_FALSE(files.copy(QStringLiteral("/from"), QStringLiteral("/to"))); }),
                ElementsAre("NSFileManager copyItemAtPath:toPath:", "NSFileManager removeItemAtPath:"));
    EXPECT_FALSE(files.exists(QStringLiteral("/to")));
}

TEST(Recorded, WhatTheDiskImageToolComplainsOfIsNotOurs) {
    const QTemporaryDir folder;
    const QByteArray complaints = QFile::encodeName(folder.filePath(QStringLiteral("complaints")));
    const int before = dup(STDERR_FILENO);
    const int file = open(complaints.constData(), O_WRONLY | O_CREAT, 0600);
    dup2(file, STDERR_FILENO);
    macos::MacDiskImageTool(QStringLiteral("/bin/ls")).detach(folder.filePath(QStringLiteral("nothing")));
    dup2(before, STDERR_FILENO);
    close(before);
    close(file);
    EXPECT_EQ(QFileInfo(QFile::decodeName(complaints)).size(), 0);
}

TEST(Recorded, TheDiskImageToolIsWaitedForBeforeItsReportIsRead) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("late")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\nsleep 0.1\necho '<plist version=\"1.0\"><dict><key>images</key><array><dict>"
               "<key>image-path</key><string>/a.dmg</string></dict></array></dict></plist>'\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    file.close();
    macos::MacDiskImageTool tool(file.fileName());
    EXPECT_THAT(
        callsDuring([&] { EXPECT_EQ(tool.attachedImages().value().size(), 1); }),
        ElementsAre("NSTask launchAndReturnError:", "NSTask waitUntilExit", "NSFileHandle readDataToEndOfFile"));
    EXPECT_THAT(callsDuring([&] { tool.detach(QStringLiteral("/Volumes/Zamber")); }),
                ElementsAre("NSTask launchAndReturnError:", "NSTask waitUntilExit"));
}

TEST(Recorded, TheDiskImageToolIsAskedInItsOwnWordsAndOutOfTheLog) {
    EXPECT_EQ(macos::MacDiskImageTool::defaultCommand(), QStringLiteral("/usr/bin/hdiutil"));
    StandInDiskImageTool system;
    macos::MacDiskImageTool tool(system.program());
    system.report("<plist version=\"1.0\"><dict/></plist>");
    const QTemporaryDir folder;
    const QByteArray logged = folder.filePath(QStringLiteral("log")).toUtf8();
    // Whatever the tool writes beside its report must not reach our standard output.
    const int before = dup(STDOUT_FILENO);
    ASSERT_NE(std::freopen(logged.constData(), "w", stdout), nullptr);
    tool.attachedImages();
    tool.detach(QStringLiteral("/Volumes/Zamber 1"));
    macos::MacDiskImageTool chatty(QStringLiteral("/bin/echo"));
    chatty.detach(QStringLiteral("/Volumes/Zamber 1"));
    std::fflush(stdout);
    dup2(before, STDOUT_FILENO);
    close(before);
    EXPECT_EQ(system.calls(),
              (QStringList{QStringLiteral("info -plist"), QStringLiteral("detach /Volumes/Zamber 1 -force")}));
    QFile file(QString::fromUtf8(logged));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray());
}

} // namespace zamber
