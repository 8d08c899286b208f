// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/DesktopEntry.h"
#include "platform/freedesktop/session/XdgLoginItem.h"
#include "tests/contracts/LoginItemContract.h"
#include "tests/contracts/LoginItemRecordContract.h"
#include "tests/fakes/FakeLoginItem.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zamber {

namespace {

struct FakeLoginItemRig {
    FakeLoginItem fake;

    LoginItem& item() { return fake; }
    void switchOff() { fake.current = LoginItemStatus::RequiresApproval; }
    void breakRecord() { fake.failure = QStringLiteral("Permission denied"); }
};

void writeFile(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// An autostart folder of its own, and an executable that is there.
struct XdgRig {
    QTemporaryDir root;
    QString userFolder = root.filePath(QStringLiteral("config/autostart"));
    QString systemFolder = root.filePath(QStringLiteral("etc/autostart"));
    QString executable = QStringLiteral("/bin/sh");
    freedesktop::session::XdgLoginItem adapter{
        {userFolder, {systemFolder}, {QStringLiteral("GNOME")}}, QStringLiteral("app.zamber.Zamber"), executable};

    LoginItem& item() { return adapter; }

    void switchOff() {
        QByteArray text = readFile(adapter.userFile());
        ASSERT_TRUE(text.contains("X-GNOME-Autostart-enabled=true"));
        writeFile(adapter.userFile(),
                  text.replace("X-GNOME-Autostart-enabled=true", "X-GNOME-Autostart-enabled=false"));
    }

    void breakRecord() {
        // A file where the folder should be: not even the superuser can write into it.
        QDir(root.path()).mkpath(QStringLiteral("config"));
        writeFile(userFolder, "in the way");
    }
};

class XdgLoginItemTest : public testing::Test, protected XdgRig {
protected:
    XdgLoginItemTest() {
        QDir().mkpath(userFolder);
        QDir().mkpath(systemFolder);
    }

    void writeUserEntry(const QByteArray& keys) {
        writeFile(adapter.userFile(), "# a comment\n[Desktop Entry]\nType=Application\nName=Zamber\n" + keys);
    }

    void writeSystemEntry(const QByteArray& keys) {
        writeFile(systemFolder + QStringLiteral("/app.zamber.Zamber.desktop"),
                  "[Desktop Entry]\nType=Application\nName=Zamber\n" + keys);
    }
};

TEST_F(XdgLoginItemTest, TheEntryIsInTheUsersFolderUnderTheApplicationId) {
    ASSERT_TRUE(adapter.registerItem());
    EXPECT_EQ(adapter.userFile(), userFolder + QStringLiteral("/app.zamber.Zamber.desktop"));
    const QByteArray text = readFile(adapter.userFile());
    EXPECT_TRUE(text.startsWith("[Desktop Entry]\n"));
    EXPECT_TRUE(text.contains("\nExec=/bin/sh\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("\nType=Application\n"));
    EXPECT_TRUE(adapter.unregisterItem());
    EXPECT_FALSE(QFile::exists(adapter.userFile()));
}

TEST_F(XdgLoginItemTest, EachWayOfSwitchingAnEntryOffReadsAsOff) {
    const QByteArray exec = "Exec=/bin/sh\n";
    writeUserEntry(exec);
    EXPECT_EQ(adapter.status(), LoginItemStatus::Enabled);
    for (const char* const key : {"Hidden=true", "Hidden=1", "Hidden = true", "X-GNOME-Autostart-enabled=false",
                                  "X-MATE-Autostart-enabled=false", "OnlyShowIn=KDE;", "NotShowIn=KDE;GNOME;",
                                  "TryExec=/nowhere/zamber", "TryExec=/bin"}) {
        writeUserEntry(exec + key + "\n");
        EXPECT_NE(adapter.status(), LoginItemStatus::Enabled) << key;
    }
    for (const char* const key : {"Hidden=false", "X-GNOME-Autostart-enabled=true", "OnlyShowIn=GNOME;KDE;",
                                  "NotShowIn=KDE;", "TryExec=sh", "[Desktop Action x]\nHidden=true"}) {
        writeUserEntry(exec + key + "\n");
        EXPECT_EQ(adapter.status(), LoginItemStatus::Enabled) << key;
    }
}

TEST_F(XdgLoginItemTest, WhatTheEntryWouldStartIsLookedForToo) {
    for (const char* const exec : {"/nowhere/zamber", "\"/no where/zamber\" --option", "no-such-program %U", "/bin",
                                   "env /nowhere/zamber", ""}) {
        for (const char* const condition : {"", "TryExec=/bin/sh\n"}) {
            writeUserEntry(QByteArray("Exec=") + exec + "\n" + condition);
            EXPECT_EQ(adapter.status(), LoginItemStatus::NotFound) << exec << " " << condition;
        }
    }
    for (const char* const exec : {"sh -c true", "\"/bin/sh\"", "env A=1 /bin/sh", "/usr/bin/env sh"}) {
        writeUserEntry(QByteArray("Exec=") + exec + "\n");
        EXPECT_EQ(adapter.status(), LoginItemStatus::Enabled) << exec;
    }
}

TEST_F(XdgLoginItemTest, WhatIsNoEntryIsNotRegistered) {
    for (const char* const text : {"", "Exec=/bin/sh\n", "[Desktop Action x]\nExec=/bin/sh\n", "\xff\xfe\0"}) {
        writeFile(adapter.userFile(), text);
        EXPECT_EQ(adapter.status(), LoginItemStatus::NotRegistered);
    }
    writeUserEntry("");
    EXPECT_EQ(adapter.status(), LoginItemStatus::NotFound) << "nothing to start";
}

TEST_F(XdgLoginItemTest, TheSystemsEntryCountsWhereTheUserHasNone) {
    writeSystemEntry("Exec=/bin/sh\n");
    EXPECT_EQ(adapter.status(), LoginItemStatus::Enabled);
    ASSERT_TRUE(adapter.unregisterItem());
    EXPECT_EQ(adapter.status(), LoginItemStatus::NotRegistered);
    ASSERT_TRUE(adapter.registerItem());
    EXPECT_EQ(adapter.status(), LoginItemStatus::Enabled);
}

TEST_F(XdgLoginItemTest, RegisteringPutsAnEntryOfADifferentPlaceRight) {
    writeUserEntry("Exec=/opt/old/zamber\nTryExec=/opt/old/zamber\n");
    EXPECT_EQ(adapter.status(), LoginItemStatus::NotFound);
    ASSERT_TRUE(adapter.registerItem());
    EXPECT_EQ(adapter.status(), LoginItemStatus::Enabled);
}

TEST_F(XdgLoginItemTest, AFolderUnderTheEntrysNameIsAnErrorAndNoEntry) {
    QDir().mkpath(adapter.userFile() + QStringLiteral("/occupied"));
    EXPECT_EQ(adapter.status(), LoginItemStatus::NotRegistered);
    EXPECT_FALSE(adapter.registerItem());
    EXPECT_FALSE(adapter.unregisterItem());
}

struct PathCase {
    const char* path;
    const char* exec;
};

void PrintTo(const PathCase& row, std::ostream* out) {
    *out << row.path;
}

class ExecValueTest : public testing::TestWithParam<PathCase> {};

TEST_P(ExecValueTest, IsQuotedAndEscaped) {
    EXPECT_EQ(freedesktop::session::execValue(QString::fromUtf8(GetParam().path)).toStdString(), GetParam().exec);
}

INSTANTIATE_TEST_SUITE_P(Paths, ExecValueTest,
                         testing::Values(PathCase{"/usr/bin/zamber", "/usr/bin/zamber"},
                                         PathCase{"/opt/my programs/zamber", R"("/opt/my programs/zamber")"},
                                         PathCase{R"(/opt/a"b/zamber)", R"("/opt/a\\"b/zamber")"},
                                         PathCase{"/opt/it's/zamber", R"("/opt/it's/zamber")"},
                                         PathCase{R"(/opt/a\b)", R"("/opt/a\\\\b")"},
                                         PathCase{"/opt/$HOME/`x`", R"("/opt/\\$HOME/\\`x\\`")"},
                                         PathCase{"/opt/100%/zamber", "/opt/100%%/zamber"},
                                         PathCase{"/opt/größe", "/opt/größe"},
                                         PathCase{"/opt/a&b;(c)", R"x("/opt/a&b;(c)")x"}));

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, LoginItemContract, FakeLoginItemRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, LoginItemRecordContract, FakeLoginItemRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Xdg, LoginItemContract, XdgRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Xdg, LoginItemRecordContract, XdgRig);

} // namespace zamber
