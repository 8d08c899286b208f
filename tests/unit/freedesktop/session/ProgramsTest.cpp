// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/Programs.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QUrl>

#include <gtest/gtest.h>

#include <chrono>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A folder with programs that write down how they were started.
class ProgramsTest : public testing::Test {
protected:
    ProgramsTest() {
        environment.insert(u"PATH"_s, folder.path() + u":/usr/bin:/bin"_s);
        environment.insert(u"USERS_OWN"_s, u"kept"_s);
    }

    QString makeProgram(const QString& name) const {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\ncd '" + QFile::encodeName(folder.path()) +
                   "' || exit 1\n"
                   "streams=$(for stream in 0 1 2; do echo \"stream $(readlink /proc/$$/fd/$stream)\"; done)\n"
                   "{ for argument in \"$0\" \"$@\"; do echo \"argument $argument\"; done; env\n"
                   "echo \"$streams\"; } >report.new\n"
                   "mv report.new report\n");
        file.close();
        EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        return path;
    }

    /// The lines that the program has written down.
    QStringList report() const {
        QFile file(folder.filePath(u"report"_s));
        QElapsedTimer time;
        time.start();
        while (!file.exists() && time.elapsed() < 10'000) {
            QThread::msleep(5); // another process has its own time
        }
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(u'\n') : QStringList();
    }

    QTemporaryDir folder;
    QProcessEnvironment environment;
};

} // namespace

TEST_F(ProgramsTest, AnAddressGoesToTheDesktopsOpenerWithTheUsersEnvironmentAndNoStreams) {
    makeProgram(u"xdg-open"_s);
    environment.insert(u"DESKTOP_STARTUP_ID"_s, u"of this program"_s);
    environment.insert(u"XDG_ACTIVATION_TOKEN"_s, u"of this program"_s);
    ASSERT_TRUE(Programs(environment).open(QUrl(u"https://example.org/a?b=c&d=ü"_s)));
    const QStringList lines = report();
    EXPECT_TRUE(lines.contains(u"argument https://example.org/a?b=c&d=%C3%BC"_s)) << lines.join(u'\n').toStdString();
    EXPECT_TRUE(lines.contains(u"USERS_OWN=kept"_s));
    EXPECT_EQ(lines.count(u"stream /dev/null"_s), 3);
    EXPECT_TRUE(lines.filter(u"of this program"_s).isEmpty());
}

TEST_F(ProgramsTest, NothingOfOurOwnEnvironmentIsHandedOn) {
    makeProgram(u"xdg-open"_s);
    qputenv("ZAMBER_TEST_OF_ENVIRONMENT", "ours");
    ASSERT_TRUE(Programs(environment).open(QUrl(u"https://example.org"_s)));
    qunsetenv("ZAMBER_TEST_OF_ENVIRONMENT");
    EXPECT_TRUE(report().filter(u"ZAMBER_TEST_OF_ENVIRONMENT"_s).isEmpty());
}

TEST_F(ProgramsTest, AnAddressThatLooksLikeAnOptionIsNone) {
    makeProgram(u"xdg-open"_s);
    ASSERT_TRUE(Programs(environment).open(QUrl(u"https://example.org/ --help"_s)));
    EXPECT_TRUE(report().contains(u"argument https://example.org/%20--help"_s));
}

TEST_F(ProgramsTest, WhereThereIsNoOpenerTheErrorSaysSo) {
    environment.insert(u"PATH"_s, folder.path());
    const auto opened = Programs(environment).open(QUrl(u"https://example.org"_s));
    ASSERT_FALSE(opened);
    EXPECT_FALSE(opened.error().isEmpty());
}

TEST_F(ProgramsTest, AFolderIsStartedByItsAppRun) {
    const Programs programs(environment);
    EXPECT_FALSE(programs.startNewInstance(folder.path()));
    const QString program = makeProgram(u"AppRun"_s);
    ASSERT_TRUE(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner));
    const auto plain = programs.startNewInstance(folder.path());
    ASSERT_FALSE(plain) << "it is no program yet";
    EXPECT_FALSE(plain.error().isEmpty());
    ASSERT_TRUE(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_TRUE(programs.startNewInstance(folder.path()));
    EXPECT_TRUE(report().contains(u"argument "_s + program));
}

TEST(StartEnvironment, WhatIsSetLaterIsNotInIt) {
    EXPECT_FALSE(startEnvironment().contains(u"ZAMBER_TEST_OF_ENVIRONMENT"_s));
    qputenv("ZAMBER_TEST_OF_ENVIRONMENT", "later");
    EXPECT_FALSE(startEnvironment().contains(u"ZAMBER_TEST_OF_ENVIRONMENT"_s));
    qunsetenv("ZAMBER_TEST_OF_ENVIRONMENT");
}

TEST_F(ProgramsTest, TheAnswerOfAToolIsWhatItPrints) {
    EXPECT_EQ(Programs(environment).answer(u"echo"_s, {u"ü"_s, u"two words"_s}), u"ü two words\n"_s);
}

TEST_F(ProgramsTest, AToolThatFailsAnswersWithItsOwnText) {
    const auto answer = Programs(environment).answer(u"sh"_s, {u"-c"_s, u"echo out; echo 'no such key' >&2; exit 3"_s});
    ASSERT_FALSE(answer);
    EXPECT_EQ(answer.error(), u"no such key"_s);
    EXPECT_FALSE(Programs(environment).answer(u"no-such-tool"_s, {}).error().isEmpty());
}

TEST_F(ProgramsTest, AToolThatHangsIsWaitedForNoLongerThanItsBound) {
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(Programs(environment, 100ms).answer(u"sleep"_s, {u"60"_s}));
    EXPECT_LT(time.elapsed(), 10'000);
}

} // namespace zamber::freedesktop::session
