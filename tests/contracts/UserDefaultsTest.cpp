// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SettingsUserDefaults.h"
#include "tests/contracts/UserDefaultsContract.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/support/Waiting.h"

#include <QDir>
#include <QSaveFile>
#include <QTemporaryDir>

#include <chrono>

namespace zamber {

namespace {

using namespace std::chrono_literals;

struct FakeUserDefaultsRig {
    FakeUserDefaults fake;

    UserDefaults& defaults() { return fake; }
    void writeFromOutside(const QString& key, const QString& value) { fake.writeFromOutside(key, value); }
    bool waitUntil(const std::function<bool()>& condition) { return condition(); }
    void settle() {}
};

/// Changes the file by hand, for Qt would take a second QSettings of this process for the first one.
enum class Editing { InPlace, ByReplacement };

QByteArray contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

template <Editing editing>
struct SettingsRig {
    QTemporaryDir home;
    QString path = home.filePath(QStringLiteral("config/Zamber/Zamber.conf"));
    freedesktop::SettingsUserDefaults real{path};

    UserDefaults& defaults() { return real; }

    void writeFromOutside(const QString& key, const QString& value) {
        auto lines = contentsOf(path).split('\n');
        lines.removeIf([&](const QByteArray& line) {
            return line.isEmpty() || line == "[General]" || line.startsWith(key.toUtf8() + '=');
        });
        const auto text = "[General]\n" + lines.join('\n') + '\n' + key.toUtf8() + '=' + value.toUtf8() + '\n';
        if constexpr (editing == Editing::InPlace) {
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        } else {
            QSaveFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit());
        }
    }

    bool waitUntil(const std::function<bool()>& condition) { return zamber::waitUntil(condition); }
    void settle() { letPass(50ms); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, UserDefaultsContract, FakeUserDefaultsRig);
INSTANTIATE_TYPED_TEST_SUITE_P(SettingsEditedInPlace, UserDefaultsContract, SettingsRig<Editing::InPlace>);
INSTANTIATE_TYPED_TEST_SUITE_P(SettingsReplaced, UserDefaultsContract, SettingsRig<Editing::ByReplacement>);

namespace {

using Rig = SettingsRig<Editing::InPlace>;

TEST(SettingsUserDefaults, KeysStandInTheGeneralSectionAndInTheFileAtOnce) {
    Rig rig;
    EXPECT_FALSE(QFile::exists(rig.path));
    rig.real.setBoolean(QStringLiteral("hideSensitive"), true);
    rig.real.setInteger(QStringLiteral("maxItems"), 50);
    rig.real.setString(QStringLiteral("appTheme"), QStringLiteral("dark"));
    EXPECT_EQ(contentsOf(rig.path), "[General]\nappTheme=dark\nhideSensitive=true\nmaxItems=50\n");
}

TEST(SettingsUserDefaults, ReadingWritesNothing) {
    Rig rig;
    rig.real.string(QStringLiteral("appTheme"));
    rig.real.boolean(QStringLiteral("hideSensitive"));
    rig.real.addObserver(QStringLiteral("appTheme"), [] {});
    rig.settle();
    EXPECT_FALSE(QFile::exists(rig.path));
}

TEST(SettingsUserDefaults, ValuesSurviveTheProgram) {
    QTemporaryDir home;
    const auto path = home.filePath(QStringLiteral("Zamber.conf"));
    const auto key = [](int i) { return QStringLiteral("key%1").arg(i); };
    {
        freedesktop::SettingsUserDefaults defaults(path);
        defaults.setString(key(1), QStringLiteral("true"));
        defaults.setBoolean(key(2), true);
        defaults.setInteger(key(3), -7);
        defaults.setString(key(4), QStringLiteral("a, b \"c\" é"));
    }
    // Qt keeps what it has read of a path: under another name it reads again.
    const auto copy = home.filePath(QStringLiteral("Copy.conf"));
    ASSERT_TRUE(QFile::copy(path, copy));
    const freedesktop::SettingsUserDefaults defaults(copy);
    EXPECT_EQ(defaults.string(key(1)), QStringLiteral("true"));
    EXPECT_EQ(defaults.string(key(2)), QStringLiteral("1"));
    EXPECT_EQ(defaults.boolean(key(2)), true);
    EXPECT_EQ(defaults.integer(key(3)), -7);
    EXPECT_EQ(defaults.string(key(4)), QStringLiteral("a, b \"c\" é"));
}

TEST(SettingsUserDefaults, AListWrittenByHandCountsAsAbsent) {
    Rig rig;
    rig.writeFromOutside(QStringLiteral("popoverSize"), QStringLiteral("large, compact"));
    ASSERT_TRUE(rig.waitUntil([&] { return QFile::exists(rig.path); }));
    rig.settle();
    EXPECT_EQ(rig.real.string(QStringLiteral("popoverSize")), std::nullopt);
    EXPECT_EQ(rig.real.integer(QStringLiteral("popoverSize")), std::nullopt);
    EXPECT_EQ(rig.real.boolean(QStringLiteral("popoverSize")), std::nullopt);
}

TEST(SettingsUserDefaults, TheFileIsInTheUsersConfigurationFolder) {
    const auto before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", "/somewhere/config");
    EXPECT_EQ(freedesktop::SettingsUserDefaults::defaultPath(), QStringLiteral("/somewhere/config/Zamber/Zamber.conf"));
    qputenv("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(freedesktop::SettingsUserDefaults::defaultPath(),
              QDir::homePath() + QStringLiteral("/.config/Zamber/Zamber.conf"));
    qputenv("XDG_CONFIG_HOME", before);
    if (before.isNull()) {
        qunsetenv("XDG_CONFIG_HOME");
    }
}

} // namespace

} // namespace zamber
