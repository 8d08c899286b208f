// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "install/DMGCleanup.h"
#include "platform/freedesktop/CommandDiskImageTool.h"
#include "platform/freedesktop/LocalBundleFiles.h"
#include "platform/freedesktop/QtAlert.h"
#include "tests/contracts/StandInDiskImageTool.h"
#include "tests/fakes/FakeAppBundle.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeWorkspace.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

namespace zamber::install {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace fs = std::filesystem;

namespace {

/// Real dialogs, real copies below a temporary root, and a real program in the place of the disk image tool. The clock
/// is turned by hand.
class DMGCleanupAdapters : public testing::Test {
protected:
    DMGCleanupAdapters() {
        fs::create_directories(root / "Volumes/Zamber 1.2/Zamber.app/Contents/MacOS");
        fs::create_directories(root / "Applications");
        write("Volumes/Zamber 1.2/Zamber.app/Contents/MacOS/Zamber", "new");
        fs::create_symlink("Contents/MacOS/Zamber", root / "Volumes/Zamber 1.2/Zamber.app/start");
        bundle.bundlePath = u"/Volumes/Zamber 1.2/Zamber.app"_s;
        standIn.attach({.imagePath = u"/home/a/Other.dmg"_s, .mountPoints = {u"/Volumes/Other"_s}});
        standIn.attach({.imagePath = u"/home/a/Zamber & more.dmg"_s, .mountPoints = {u"/Volumes/Zamber 1.2"_s}});
        m_user.callOnTimeout([this] { answer(); });
        m_user.start(5);
        testing::internal::CaptureStdout();
    }
    ~DMGCleanupAdapters() override { log(); }

    void write(const fs::path& path, const std::string& text) const { std::ofstream(root / path) << text; }
    std::string read(const fs::path& path) const {
        std::ifstream stream(root / path);
        return {std::istreambuf_iterator(stream), {}};
    }

    /// A launch whose user presses those buttons, one a dialog.
    void launch(const QStringList& buttons) {
        m_buttons = buttons;
        DMGCleanup::checkAndPromptMove({bundle, alert, files, tool, workspace, application, scheduler});
        scheduler.advance(10s);
        EXPECT_TRUE(m_buttons.isEmpty()) << "a dialog that was expected did not come";
    }

    std::string log() {
        if (m_isLogTaken) {
            return {};
        }
        m_isLogTaken = true;
        return testing::internal::GetCapturedStdout();
    }

    QTemporaryDir folder;
    fs::path root = folder.path().toStdString();
    StandInDiskImageTool standIn;
    Journal journal;
    FakeAppBundle bundle;
    freedesktop::QtAlert alert;
    freedesktop::LocalBundleFiles files{root};
    freedesktop::CommandDiskImageTool tool{standIn.program()};
    FakeWorkspace workspace{journal};
    FakeApplication application{journal};
    FakeScheduler scheduler;
    QStringList informativeTexts;

private:
    void answer() {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        informativeTexts.append(box->informativeText());
        const QString wanted = m_buttons.isEmpty() ? QString() : m_buttons.takeFirst();
        for (QAbstractButton* const button : box->buttons()) {
            if (button->text() == wanted) {
                button->click();
                return;
            }
        }
        ADD_FAILURE() << "no button " << wanted.toStdString() << " under " << box->text().toStdString();
        box->close();
    }

    QTimer m_user;
    QStringList m_buttons;
    bool m_isLogTaken = false;
};

const QString MOVE = u"Move to Applications"_s;
const QString EJECT_AND_TRASH = u"Eject && Trash"_s;

} // namespace

TEST_F(DMGCleanupAdapters, TheWholeWayFromTheImageToTheTrash) {
    fs::create_directories(root / "Applications/Zamber.app");
    write("Applications/Zamber.app/old", "old");
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(read("Applications/Zamber.app/Contents/MacOS/Zamber"), "new");
    EXPECT_EQ(fs::read_symlink(root / "Applications/Zamber.app/start"), "Contents/MacOS/Zamber");
    EXPECT_FALSE(fs::exists(root / "Applications/Zamber.app/old"));
    EXPECT_EQ(read("Volumes/Zamber 1.2/Zamber.app/Contents/MacOS/Zamber"), "new");
    EXPECT_THAT(journal.entries(), testing::ElementsAre("new instance of /Applications/Zamber.app", "terminate",
                                                        "trash /home/a/Zamber & more.dmg"));
    EXPECT_EQ(standIn.calls(), (QStringList{u"info -plist"_s, u"detach /Volumes/Zamber 1.2 -force"_s}));
    EXPECT_EQ(log(), "⏏️ Ejected: /Volumes/Zamber 1.2\n🗑️ DMG moved to trash: /home/a/Zamber & more.dmg\n");
}

TEST_F(DMGCleanupAdapters, NotNowLeavesEverythingAsItIs) {
    launch({u"Not Now"_s});
    EXPECT_TRUE(fs::is_empty(root / "Applications"));
    EXPECT_TRUE(journal.entries().empty());
    EXPECT_TRUE(standIn.calls().isEmpty());
}

TEST_F(DMGCleanupAdapters, JustEjectAsksForNoReport) {
    launch({MOVE, u"Just Eject"_s});
    EXPECT_EQ(standIn.calls(), (QStringList{u"detach /Volumes/Zamber 1.2 -force"_s}));
    EXPECT_EQ(log(), "⏏️ Ejected: /Volumes/Zamber 1.2\n");
}

TEST_F(DMGCleanupAdapters, LeaveItRunsNothing) {
    launch({MOVE, u"Leave It"_s});
    EXPECT_TRUE(standIn.calls().isEmpty());
    EXPECT_EQ(log(), "");
}

TEST_F(DMGCleanupAdapters, ACopyThatFailsHalfWayEndsInTheWarningWithTheErrorsText) {
    ASSERT_EQ(mkfifo((root / "Volumes/Zamber 1.2/Zamber.app/Contents/pipe").c_str(), 0600), 0);
    launch({MOVE, u"OK"_s});
    ASSERT_EQ(informativeTexts.size(), 2);
    EXPECT_EQ(informativeTexts[1], u"Try dragging Zamber to Applications manually.\n\n"
                                   u"Error: Couldn't copy “pipe”: Operation not supported"_s);
    EXPECT_TRUE(journal.entries().empty());
    EXPECT_TRUE(fs::is_empty(root / "Applications"));
    EXPECT_EQ(log(), "");
}

TEST_F(DMGCleanupAdapters, AReportThatIsNoneLeadsToAWarningAndAPlainEjection) {
    standIn.report("garbage");
    launch({MOVE, EJECT_AND_TRASH});
    const std::string text = log();
    EXPECT_THAT(text, testing::StartsWith("⚠️ hdiutil info failed: "));
    EXPECT_THAT(text, testing::EndsWith("\n⏏️ Ejected: /Volumes/Zamber 1.2\n"));
}

TEST_F(DMGCleanupAdapters, AReportOfAnotherShapeLeadsToAPlainEjection) {
    standIn.report("<plist version=\"1.0\"><array/></plist>");
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(log(), "⏏️ Ejected: /Volumes/Zamber 1.2\n");
}

TEST_F(DMGCleanupAdapters, ALongReportDoesNotHoldTheWayUp) {
    for (int number = 0; number < 1000; ++number) {
        standIn.attach({.imagePath = u"/home/a/%1.dmg"_s.arg(number), .mountPoints = {u"/Volumes/%1"_s.arg(number)}});
    }
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(journal.entries().back(), "trash /home/a/Zamber & more.dmg");
}

TEST_F(DMGCleanupAdapters, AToolThatFailsAtTheEndIsBelieved) {
    standIn.endWith(1);
    launch({MOVE, EJECT_AND_TRASH});
    EXPECT_EQ(log(), "⏏️ Ejected: /Volumes/Zamber 1.2\n🗑️ DMG moved to trash: /home/a/Zamber & more.dmg\n");
}

TEST_F(DMGCleanupAdapters, WithoutAToolTheEjectionIsLoggedAllTheSame) {
    standIn.takeAway();
    launch({MOVE, EJECT_AND_TRASH});
    const std::string text = log();
    EXPECT_THAT(text, testing::StartsWith("⚠️ hdiutil info failed: "));
    EXPECT_THAT(text, testing::EndsWith("\n⏏️ Ejected: /Volumes/Zamber 1.2\n"));
}

} // namespace zamber::install
