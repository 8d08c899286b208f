// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "platform/freedesktop/SettingsUserDefaults.h"
#include "tests/support/Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileSystemWatcher>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <optional>

namespace zamber::preferences {

namespace {

using namespace std::chrono_literals;

/// Preferences over a file that the test writes as a person or another program would.
class PreferenceFileTest : public testing::Test {
protected:
    QTemporaryDir home;
    QString path = home.filePath(QStringLiteral("Zamber/Zamber.conf"));
    std::optional<freedesktop::SettingsUserDefaults> defaults;
    int told = 0;

    void put(const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    void start() { defaults.emplace(path); }
    void startWith(const QByteArray& bytes) {
        put(bytes);
        start();
    }

    /// A file that is being rewritten is given all the time of the test, however slow the machine is.
    void startPatientlyWith(const QByteArray& bytes) {
        put(bytes);
        defaults.emplace(path, 1h);
        watcher.addPath(path);
        watcher.addPath(QFileInfo(path).absolutePath());
        const auto noticed = [this] { isNoticed = true; };
        QObject::connect(&watcher, &QFileSystemWatcher::fileChanged, &watcher, noticed);
        QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &watcher, noticed);
    }
    /// Watches as the preferences do: they learn of a change in the same turn of the loop or the next.
    QFileSystemWatcher watcher;
    bool isNoticed = false;

    void waitUntilNoticed() {
        ASSERT_TRUE(waitUntil([this] { return isNoticed; }));
        QCoreApplication::processEvents();
    }

    void countChangesOf(const PreferenceKey<QStringView>& key) {
        defaults->addObserver(key.name, [this] { ++told; });
    }

    /// Another process, as another start of ours would.
    void writeElsewhere(const PreferenceKey<QStringView>& key, const QString& value) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--write"), path, key.name, value});
        ASSERT_TRUE(process.waitForFinished(10'000)) << process.errorString().toStdString();
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        ASSERT_EQ(process.exitCode(), 0);
    }

    static void settle() { letPass(300ms); }

    QString theme() const { return read(*defaults, appTheme); }
};

struct Row {
    const char* written;
    int maxItems;
    bool hideSensitive;
    const char* popoverSize;
};

TEST_F(PreferenceFileTest, ValuesWrittenByHandAreReadAsEachTypeWhateverTheyAre) {
    // The same text under a key of each type.
    const Row rows[] = {
        {"7", 7, true, "7"},
        {"0", 0, false, "0"},
        {"-5", -5, true, "-5"},
        {"+12", 12, true, "+12"},
        {"20 entries", 20, true, "20 entries"},
        {"many", 0, false, "many"},
        {"7.9", 7, true, "7.9"},
        {"0x10", 0, false, "0x10"},
        {"", 0, false, ""},
        {"true", 1, true, "1"},
        {"false", 0, false, "0"},
        {"True", 0, true, "True"},
        {"YES", 0, true, "YES"},
        {"no", 0, false, "no"},
        {"\"50\"", 50, true, "50"},
        {"\"  50 \"", 50, true, "  50 "},
        {"99999999999999999999", 2147483647, true, "99999999999999999999"},
        {"-99999999999999999999", -2147483647 - 1, true, "-99999999999999999999"},
        {"2147483648", 2147483647, true, "2147483648"},
        {"\xC2\xB3", 0, false, "\xC2\xB3"},
        {"\xD9\xA3", 0, false, "\xD9\xA3"}, // a digit, but not a decimal one of ours
        {"large ; a comment", 0, false, "large"},
    };
    for (const auto& row : rows) {
        const QTemporaryDir ownHome; // Qt remembers what it has read under a path
        path = ownHome.filePath(QStringLiteral("Zamber.conf"));
        const QByteArray value = row.written;
        startWith("[General]\nmaxItems=" + value + "\nhideSensitive=" + value + "\npopoverSize=" + value + "\n");
        EXPECT_EQ(read(*defaults, maxItems), row.maxItems) << row.written;
        EXPECT_EQ(read(*defaults, hideSensitive), row.hideSensitive) << row.written;
        EXPECT_EQ(read(*defaults, popoverSize), QString::fromUtf8(row.popoverSize)) << row.written;
        defaults.reset();
    }
}

TEST_F(PreferenceFileTest, WhatIsNoSingleValueCountsAsAbsent) {
    for (const auto* value : {"20, 30", "@Invalid()", "@Variant(\\0\\0\\0\\x1a)", "@Point(1 2)", "@Size(1 2)"}) {
        const QTemporaryDir ownHome;
        path = ownHome.filePath(QStringLiteral("Zamber.conf"));
        startWith(QByteArray("[General]\nmaxItems=") + value + "\nshowLineCount=" + value + "\nappTheme=" + value +
                  "\n");
        EXPECT_EQ(read(*defaults, maxItems), 20) << value;
        EXPECT_EQ(read(*defaults, showLineCount), true) << value;
        EXPECT_EQ(theme(), QStringLiteral("auto")) << value;
        defaults.reset();
    }
}

TEST_F(PreferenceFileTest, AFileThatIsNoneReadsAsEmptyAndIsWrittenAnew) {
    QByteArray noise;
    for (int i = 0; i < 100'000; ++i) {
        noise += static_cast<char>(i * i * 31);
    }
    for (const auto& bytes : {noise, QByteArray(100'000, '\0'), QByteArray("[General"), QByteArray("maxItems"),
                              QByteArray("[General]\nmaxItems\n=5\n==\n[]\n"), QByteArray("\xFF\xFE[\0", 4),
                              QByteArray("[Other]\nmaxItems=7\n")}) {
        const QTemporaryDir ownHome;
        path = ownHome.filePath(QStringLiteral("Zamber.conf"));
        startWith(bytes);
        EXPECT_EQ(theme(), QStringLiteral("auto"));
        EXPECT_EQ(read(*defaults, hideSensitive), false);
        write(*defaults, maxItems, 50);
        EXPECT_EQ(read(*defaults, maxItems), 50);
        defaults.reset();
    }
}

TEST_F(PreferenceFileTest, AFolderInItsPlaceDoesNoHarm) {
    QDir().mkpath(path);
    start();
    EXPECT_EQ(theme(), QStringLiteral("auto"));
    countChangesOf(appTheme);
    write(*defaults, appTheme, QStringLiteral("dark"));
    EXPECT_EQ(theme(), QStringLiteral("dark")); // as long as the program runs
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(QFileInfo(path).isDir());
}

TEST_F(PreferenceFileTest, AnEditInPlaceIsToldOnceAlsoWhenTheFileStaysEmptyForAMoment) {
    startPatientlyWith("[General]\nappTheme=light\n");
    countChangesOf(appTheme);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)); // empties it
    waitUntilNoticed();
    EXPECT_EQ(theme(), QStringLiteral("light"));
    file.write("[General]\nappTheme=dark\n");
    file.close();
    EXPECT_TRUE(waitUntil([&] { return told > 0; }));
    settle();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(theme(), QStringLiteral("dark"));
}

TEST_F(PreferenceFileTest, AnEditThatTakesTheFileAwayFirstIsToldOnce) {
    startPatientlyWith("[General]\nappTheme=light\n");
    countChangesOf(appTheme);
    ASSERT_TRUE(QFile::rename(path, path + u'~'));
    waitUntilNoticed();
    EXPECT_EQ(theme(), QStringLiteral("light"));
    put("[General]\nappTheme=dark\n");
    EXPECT_TRUE(waitUntil([&] { return told > 0; }));
    settle();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(theme(), QStringLiteral("dark"));
}

TEST_F(PreferenceFileTest, AFileThatStaysEmptyHasNoKeysAndThatIsToldOnce) {
    startWith("[General]\nappTheme=light\n");
    countChangesOf(appTheme);
    put("");
    EXPECT_TRUE(waitUntil([&] { return told > 0; }));
    settle();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(theme(), QStringLiteral("auto"));
}

TEST_F(PreferenceFileTest, AnEditThatChangesNoValueIsNotTold) {
    startWith("[General]\nappTheme=light\n");
    countChangesOf(appTheme);
    put("[General]\nappTheme=\"light\"\nmaxItems=7\n");
    EXPECT_TRUE(waitUntil([&] { return read(*defaults, maxItems) == 7; }));
    settle();
    EXPECT_EQ(told, 0);
}

TEST_F(PreferenceFileTest, AnotherProcessIsHeardOfOnceAlsoWhenItWritesTheVeryFirstKey) {
    start();
    countChangesOf(appTheme);
    for (const auto* theme : {"dark", "light", "auto"}) {
        const int before = told;
        writeElsewhere(appTheme, QString::fromUtf8(theme));
        EXPECT_TRUE(waitUntil([&] { return told > before; }));
        settle();
        EXPECT_EQ(told, before + 1);
        EXPECT_EQ(this->theme(), QString::fromUtf8(theme));
    }
    writeElsewhere(appTheme, QStringLiteral("auto")); // what it was
    settle();
    EXPECT_EQ(told, 3);
}

TEST_F(PreferenceFileTest, TwoProcessesKeepEachOthersKeys) {
    start();
    countChangesOf(appTheme);
    write(*defaults, appTheme, QStringLiteral("dark"));
    writeElsewhere(popoverSize, QStringLiteral("large")); // of which we have not heard yet when we write next
    write(*defaults, maxItems, 50);
    writeElsewhere(skippedVersion, QStringLiteral("2.0"));
    EXPECT_TRUE(waitUntil([&] { return read(*defaults, skippedVersion) == u"2.0"; }));
    EXPECT_EQ(read(*defaults, popoverSize), QStringLiteral("large"));
    EXPECT_EQ(read(*defaults, maxItems), 50);
    EXPECT_EQ(theme(), QStringLiteral("dark"));
    EXPECT_EQ(told, 1);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "[General]\nappTheme=dark\nmaxItems=50\npopoverSize=large\nskippedVersion=2.0\n");
}

TEST_F(PreferenceFileTest, AKeyIsAbsentUntilWrittenAndReadingLeavesTheFileAsItIs) {
    const QByteArray before = "; by hand\n[General]\nappTheme=dark\n";
    startWith(before);
    EXPECT_EQ(defaults->string(popoverSize.name), std::nullopt);
    EXPECT_EQ(defaults->integer(maxItems.name), std::nullopt);
    EXPECT_EQ(defaults->boolean(hideSensitive.name), std::nullopt);
    read(*defaults, maxItems);
    settle();
    defaults.reset();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), before);
}

} // namespace

} // namespace zamber::preferences
