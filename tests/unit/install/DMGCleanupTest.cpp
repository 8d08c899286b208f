// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "install/DMGCleanup.h"

#include "tests/fakes/FakeAlert.h"
#include "tests/fakes/FakeAppBundle.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeBundleFiles.h"
#include "tests/fakes/FakeDiskImageTool.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zamber::install {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int MOVE = 0;
constexpr int NOT_NOW = 1;
constexpr int EJECT_AND_TRASH = 0;
constexpr int JUST_EJECT = 1;
constexpr int LEAVE_IT = 2;

constexpr auto MOVE_ALERT = "alert Move Zamber to Applications?";
constexpr auto COPY = "copy /Volumes/Zamber/Zamber.app to /Applications/Zamber.app";
constexpr auto RELAUNCH = "new instance of /Applications/Zamber.app";
constexpr auto EJECT_ALERT = "alert Eject installer disk?";

/// The program on a disk image that is attached.
class DMGCleanupTest : public testing::Test {
protected:
    DMGCleanupTest() {
        placeAt(u"/Volumes/Zamber/Zamber.app"_s);
        tool.images = {{.imagePath = u"/home/a/Other.dmg"_s, .mountPoints = {u"/Volumes/Other"_s}},
                       {.imagePath = u"/home/a/Zamber.dmg"_s, .mountPoints = {u"/Volumes/Zamber"_s}}};
    }

    void placeAt(const QString& path) {
        bundle.bundlePath = path;
        files.contents = {{path + u"/Contents/MacOS/Zamber"_s, "new"}};
    }

    DMGCleanup::Ports ports() { return {bundle, alert, files, tool, workspace, application, scheduler}; }

    /// A whole launch, with these answers to its questions.
    void launch(const QList<int>& answers) {
        alert.answers = answers;
        DMGCleanup::checkAndPromptMove(ports());
        scheduler.advance(10s);
    }

    LogCapture log;
    Journal journal;
    FakeAppBundle bundle;
    FakeAlert alert{journal};
    FakeBundleFiles files{journal};
    FakeDiskImageTool tool{journal};
    FakeWorkspace workspace{journal};
    FakeApplication application{journal};
    FakeScheduler scheduler;
};

} // namespace

TEST_F(DMGCleanupTest, ItRunsFromTheImageWhenItsPathBeginsWithVolumes) {
    for (const QString& path : {u"/Volumes/Zamber/Zamber.app"_s, u"/Volumes/x"_s}) {
        bundle.bundlePath = path;
        EXPECT_TRUE(DMGCleanup::isRunningFromDMG(bundle)) << path.toStdString();
    }
    for (const QString& path :
         {u"/Applications/Zamber.app"_s, u"/volumes/Zamber/Zamber.app"_s, u"/Volumes"_s, u"/VolumesX/Zamber.app"_s,
          u"/home/Volumes/Zamber.app"_s, u"/usr/bin/zamber"_s, u""_s}) {
        bundle.bundlePath = path;
        EXPECT_FALSE(DMGCleanup::isRunningFromDMG(bundle)) << path.toStdString();
    }
}

TEST_F(DMGCleanupTest, AnApplicationsFolderOfAUserCountsToo) {
    for (const QString& path : {u"/Applications/Zamber.app"_s, u"/Users/someone/Applications/Zamber.app"_s}) {
        bundle.bundlePath = path;
        EXPECT_TRUE(DMGCleanup::isInstalledInApplications(bundle)) << path.toStdString();
    }
    for (const QString& path : {u"/Volumes/Zamber/Zamber.app"_s, u"/applications/Zamber.app"_s, u"/Applications"_s}) {
        bundle.bundlePath = path;
        EXPECT_FALSE(DMGCleanup::isInstalledInApplications(bundle)) << path.toStdString();
    }
}

TEST_F(DMGCleanupTest, ALaunchFromAnywhereElseDoesNothing) {
    bundle.bundlePath = u"/Applications/Zamber.app"_s;
    launch({MOVE});
    EXPECT_THAT(journal.entries(), IsEmpty());
    EXPECT_EQ(log.take(), "");
}

TEST_F(DMGCleanupTest, TheMoveIsAskedForASecondAfterTheLaunch) {
    DMGCleanup::checkAndPromptMove(ports());
    scheduler.advance(999ms);
    EXPECT_THAT(alert.shown, IsEmpty());
    scheduler.advance(1ms);
    ASSERT_EQ(alert.shown.size(), 1);
    EXPECT_EQ(alert.shown[0].style, AlertStyle::Informational);
    EXPECT_EQ(alert.shown[0].message, u"Move Zamber to Applications?");
    EXPECT_EQ(alert.shown[0].informativeText,
              u"Zamber is running from a disk image. Move it to your Applications folder for the best experience.");
    EXPECT_EQ(alert.shown[0].buttons, (QStringList{u"Move to Applications"_s, u"Not Now"_s}));
}

TEST_F(DMGCleanupTest, NotNowDoesNothingAndTheQuestionComesAgain) {
    launch({NOT_NOW});
    EXPECT_THAT(journal.entries(), ElementsAre(MOVE_ALERT));
    launch({NOT_NOW});
    EXPECT_EQ(alert.shown.size(), 2);
}

TEST_F(DMGCleanupTest, MovingCopiesRelaunchesAndEnds) {
    launch({MOVE, LEAVE_IT});
    EXPECT_EQ(journal.entries()[1], COPY);
    EXPECT_EQ(journal.entries()[2], RELAUNCH);
    EXPECT_EQ(journal.entries()[3], "terminate");
    EXPECT_EQ(files.contents[u"/Applications/Zamber.app/Contents/MacOS/Zamber"_s], "new");
    EXPECT_TRUE(files.exists(u"/Volumes/Zamber/Zamber.app"_s)) << "the one on the image stays";
}

TEST_F(DMGCleanupTest, WhatIsInApplicationsIsRemovedBeforeTheCopyWhateverItsVersion) {
    files.contents[u"/Applications/Zamber.app/Contents/MacOS/Zamber"_s] = "newer";
    files.contents[u"/Applications/Zamber.app/Contents/extra"_s] = "extra";
    launch({MOVE, LEAVE_IT});
    EXPECT_EQ(journal.entries()[1], "remove /Applications/Zamber.app");
    EXPECT_EQ(journal.entries()[2], COPY);
    EXPECT_EQ(files.contents[u"/Applications/Zamber.app/Contents/MacOS/Zamber"_s], "new");
    EXPECT_FALSE(files.contents.contains(u"/Applications/Zamber.app/Contents/extra"_s));
}

TEST_F(DMGCleanupTest, TheFolderKeepsItsName) {
    placeAt(u"/Volumes/Zamber/Sub Folder/Zamber 2.app"_s);
    launch({MOVE, LEAVE_IT});
    EXPECT_TRUE(files.exists(u"/Applications/Zamber 2.app"_s));
}

TEST_F(DMGCleanupTest, AFailedRemovalIsTold) {
    files.contents[u"/Applications/Zamber.app/x"_s] = "x";
    files.removeError = u"It is <in> use."_s;
    launch({MOVE});
    EXPECT_THAT(journal.entries(),
                ElementsAre(MOVE_ALERT, "remove /Applications/Zamber.app", "alert Couldn't move Zamber"));
    ASSERT_EQ(alert.shown.size(), 2);
    EXPECT_EQ(alert.shown[1].style, AlertStyle::Warning);
    EXPECT_EQ(alert.shown[1].message, u"Couldn't move Zamber");
    EXPECT_EQ(alert.shown[1].informativeText,
              u"Try dragging Zamber to Applications manually.\n\nError: It is <in> use.");
    EXPECT_TRUE(alert.shown[1].buttons.isEmpty()) << "one default button";
    EXPECT_FALSE(application.isTerminated);
    EXPECT_EQ(log.take(), "");
}

TEST_F(DMGCleanupTest, AFailedCopyIsToldAndNothingElseHappens) {
    files.copyError = u"The disk is full."_s;
    launch({MOVE});
    EXPECT_THAT(journal.entries(), ElementsAre(MOVE_ALERT, COPY, "alert Couldn't move Zamber"));
    EXPECT_EQ(alert.shown[1].informativeText,
              u"Try dragging Zamber to Applications manually.\n\nError: The disk is full.");
    EXPECT_FALSE(application.isTerminated);
}

TEST_F(DMGCleanupTest, AFailedRelaunchIsLoggedAndThisInstanceGoesOn) {
    workspace.openingError = u"No."_s;
    launch({MOVE, LEAVE_IT});
    EXPECT_FALSE(application.isTerminated);
    EXPECT_TRUE(files.exists(u"/Applications/Zamber.app"_s)) << "the copy stays";
    EXPECT_EQ(log.take(), "❌ Relaunch error: No.\n");
    EXPECT_EQ(alert.shown.size(), 2) << "the prompt comes all the same";
}

TEST_F(DMGCleanupTest, TheEndIsPostedAndNotMadeInTheCompletion) {
    alert.answers = {MOVE};
    workspace.isOpeningHeld = true;
    DMGCleanup::checkAndPromptMove(ports());
    scheduler.advance(1s);
    workspace.finishOpening();
    EXPECT_FALSE(application.isTerminated);
    scheduler.advance(0ms);
    EXPECT_TRUE(application.isTerminated);
}

TEST_F(DMGCleanupTest, ARelaunchFasterThanHalfASecondEndsUsBeforeThePrompt) {
    alert.answers = {MOVE};
    workspace.isOpeningHeld = true;
    DMGCleanup::checkAndPromptMove(ports());
    scheduler.advance(1499ms);
    workspace.finishOpening();
    scheduler.advance(0ms);
    EXPECT_TRUE(application.isTerminated);
    EXPECT_EQ(alert.shown.size(), 1);
}

TEST_F(DMGCleanupTest, ARelaunchSlowerThanHalfASecondLetsThePromptAppear) {
    alert.answers = {MOVE, LEAVE_IT};
    workspace.isOpeningHeld = true;
    DMGCleanup::checkAndPromptMove(ports());
    scheduler.advance(1500ms);
    EXPECT_EQ(alert.shown.size(), 2);
    EXPECT_FALSE(application.isTerminated);
    workspace.finishOpening();
    scheduler.advance(0ms);
    EXPECT_TRUE(application.isTerminated);
}

TEST_F(DMGCleanupTest, TheRelaunchIsRequestedWithoutWaitingForThePrompt) {
    alert.answers = {MOVE};
    workspace.isOpeningHeld = true;
    DMGCleanup::checkAndPromptMove(ports());
    scheduler.advance(1s);
    EXPECT_THAT(journal.entries(), ElementsAre(MOVE_ALERT, COPY, RELAUNCH));
}

TEST_F(DMGCleanupTest, ThePromptAsksWhatToDoWithTheImage) {
    launch({MOVE, LEAVE_IT});
    ASSERT_EQ(alert.shown.size(), 2);
    EXPECT_EQ(alert.shown[1].style, AlertStyle::Informational);
    EXPECT_EQ(alert.shown[1].message, u"Eject installer disk?");
    EXPECT_EQ(alert.shown[1].informativeText,
              u"Zamber has been installed. Would you like to eject the installer disk image and move it to Trash?");
    EXPECT_EQ(alert.shown[1].buttons, (QStringList{u"Eject & Trash"_s, u"Just Eject"_s, u"Leave It"_s}));
}

TEST_F(DMGCleanupTest, LeaveItLeavesIt) {
    launch({MOVE, LEAVE_IT});
    EXPECT_EQ(journal.entries().back(), EJECT_ALERT);
    EXPECT_EQ(log.take(), "");
}

TEST_F(DMGCleanupTest, JustEjectEjectsAlone) {
    launch({MOVE, JUST_EJECT});
    EXPECT_EQ(journal.entries().back(), "detach /Volumes/Zamber");
    EXPECT_EQ(log.take(), "⏏️ Ejected: /Volumes/Zamber\n");
}

TEST_F(DMGCleanupTest, OfTwoImagesTheSecondOneWithTheMountPointIsTrashed) {
    launch({MOVE, EJECT_AND_TRASH});
    const auto entries = journal.entries();
    ASSERT_GE(entries.size(), 3U);
    EXPECT_THAT(std::vector(entries.end() - 3, entries.end()),
                ElementsAre("attached images", "detach /Volumes/Zamber", "trash /home/a/Zamber.dmg"));
    EXPECT_EQ(log.take(), "⏏️ Ejected: /Volumes/Zamber\n🗑️ DMG moved to trash: /home/a/Zamber.dmg\n");
}

TEST_F(DMGCleanupTest, TheImageGoesToTheTrashASecondAfterTheEjection) {
    alert.answers = {MOVE, EJECT_AND_TRASH};
    DMGCleanup::checkAndPromptMove(ports());
    scheduler.advance(2499ms);
    EXPECT_EQ(journal.entries().back(), "detach /Volumes/Zamber");
    scheduler.advance(1ms);
    EXPECT_EQ(journal.entries().back(), "trash /home/a/Zamber.dmg");
}

TEST_F(DMGCleanupTest, AVolumeWithASpaceKeepsItAndHasNoSlashAtItsEnd) {
    placeAt(u"/Volumes/Zamber 1.2/Zamber.app"_s);
    launch({MOVE, JUST_EJECT});
    EXPECT_EQ(journal.entries().back(), "detach /Volumes/Zamber 1.2");
}

TEST_F(DMGCleanupTest, NoMatchingMountPointLeadsToAPlainEjection) {
    tool.images = {{.imagePath = u"/home/a/One.dmg"_s, .mountPoints = {u"/Volumes/Zamber 1"_s, u"/Volumes/zamber"_s}},
                   {.imagePath = u"/home/a/Two.dmg"_s, .mountPoints = {}},
                   {.imagePath = u"/home/a/Three.dmg"_s, .mountPoints = {u"/Volumes/Zamber/"_s}}};
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(journal.entries().back(), "detach /Volumes/Zamber");
    EXPECT_EQ(log.take(), "⏏️ Ejected: /Volumes/Zamber\n");
}

TEST_F(DMGCleanupTest, AMatchWithoutAFileIsSkipped) {
    tool.images = {{.imagePath = std::nullopt, .mountPoints = {u"/Volumes/Zamber"_s}},
                   {.imagePath = u"/home/a/Two.dmg"_s, .mountPoints = {u"/Volumes/X"_s, u"/Volumes/Zamber"_s}},
                   {.imagePath = u"/home/a/Three.dmg"_s, .mountPoints = {u"/Volumes/Zamber"_s}}};
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(journal.entries().back(), "trash /home/a/Two.dmg");
}

TEST_F(DMGCleanupTest, WithoutAReportTheVolumeIsEjectedAllTheSame) {
    tool.reportError = u"No tool."_s;
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(journal.entries().back(), "detach /Volumes/Zamber");
    EXPECT_EQ(log.take(), "⚠️ hdiutil info failed: No tool.\n⏏️ Ejected: /Volumes/Zamber\n");
}

TEST_F(DMGCleanupTest, AnImageThatCannotBeTrashedIsLogged) {
    workspace.trashError = u"It is locked."_s;
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(log.take(), "⏏️ Ejected: /Volumes/Zamber\n⚠️ Couldn't trash DMG: It is locked.\n");
}

} // namespace zamber::install
