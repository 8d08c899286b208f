// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/LocalBundleFiles.h"

#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <fstream>
#include <string>

namespace zamber::freedesktop {

namespace fs = std::filesystem;

namespace {

class LocalBundleFilesTest : public testing::Test {
protected:
    LocalBundleFilesTest() {
        fs::create_directories(source / "Contents/MacOS");
        fs::create_directories(root / "Applications");
        write(source / "Contents/MacOS/run", "code");
    }

    static void write(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }

    static mode_t modeOf(const fs::path& path) {
        struct stat status = {};
        EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
        return status.st_mode;
    }

    static std::string attributeOf(const fs::path& path, const char* name) {
        std::string value(1000, '\0');
        const ssize_t size = lgetxattr(path.c_str(), name, value.data(), value.size());
        return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
    }

    std::expected<void, QString> copy() {
        return files.copy(QStringLiteral("/Volumes/Zamber/Zamber.app"), QStringLiteral("/Applications/Zamber.app"));
    }

    QTemporaryDir folder;
    fs::path root = folder.path().toStdString();
    fs::path source = root / "Volumes/Zamber/Zamber.app";
    fs::path copied = root / "Applications/Zamber.app";
    LocalBundleFiles files{root};
};

} // namespace

TEST_F(LocalBundleFilesTest, LinksAreCopiedAsLinks) {
    fs::create_directory_symlink("Contents/MacOS", source / "Current");
    fs::create_symlink("run", source / "Contents/MacOS/alias");
    fs::create_symlink("/nowhere/at all", source / "broken");
    ASSERT_TRUE(copy());
    EXPECT_EQ(fs::read_symlink(copied / "Current"), "Contents/MacOS");
    EXPECT_EQ(fs::read_symlink(copied / "Contents/MacOS/alias"), "run");
    EXPECT_EQ(fs::read_symlink(copied / "broken"), "/nowhere/at all");
}

TEST_F(LocalBundleFilesTest, ModesAreKeptAlsoOfFoldersThatMayNotBeWrittenTo) {
    const fs::path program = source / "Contents/MacOS/run";
    chmod(program.c_str(), 04751);
    chmod((source / "Contents/MacOS").c_str(), 0555);
    chmod((source / "Contents").c_str(), 02700);
    ASSERT_TRUE(copy());
    EXPECT_EQ(modeOf(copied / "Contents/MacOS/run"), S_IFREG | 04751);
    EXPECT_EQ(modeOf(copied / "Contents/MacOS"), S_IFDIR | 0555);
    EXPECT_EQ(modeOf(copied / "Contents"), S_IFDIR | 02700);
    chmod((source / "Contents/MacOS").c_str(), 0755);
    chmod((copied / "Contents/MacOS").c_str(), 0755);
}

TEST_F(LocalBundleFilesTest, ExtendedAttributesAreKept) {
    const fs::path program = source / "Contents/MacOS/run";
    const std::string value("a\0b", 3);
    ASSERT_EQ(setxattr(program.c_str(), "user.one", value.data(), value.size(), 0), 0) << "the folder cannot hold them";
    ASSERT_EQ(setxattr(program.c_str(), "user.empty", "", 0, 0), 0);
    ASSERT_EQ(setxattr((source / "Contents").c_str(), "user.two", "x", 1, 0), 0);
    ASSERT_TRUE(copy());
    EXPECT_EQ(attributeOf(copied / "Contents/MacOS/run", "user.one"), value);
    EXPECT_EQ(attributeOf(copied / "Contents/MacOS/run", "user.empty"), "");
    EXPECT_EQ(attributeOf(copied / "Contents", "user.two"), "x");
}

TEST_F(LocalBundleFilesTest, TimesAreKept) {
    const auto time = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    fs::last_write_time(source / "Contents/MacOS/run", time);
    fs::last_write_time(source / "Contents", time);
    ASSERT_TRUE(copy());
    EXPECT_EQ(fs::last_write_time(copied / "Contents/MacOS/run"), fs::last_write_time(source / "Contents/MacOS/run"));
    EXPECT_EQ(fs::last_write_time(copied / "Contents"), fs::last_write_time(source / "Contents"));
}

TEST_F(LocalBundleFilesTest, ACopyThatFailsHalfWaySaysWhyAndLeavesNothing) {
    for (int number = 0; number < 20; ++number) {
        write(source / ("file" + std::to_string(number)), "x");
    }
    ASSERT_EQ(mkfifo((source / "Contents/pipe").c_str(), 0600), 0);
    const auto outcome = copy();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error(), QStringLiteral("Couldn't copy “pipe”: Operation not supported"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(copied)));
    EXPECT_TRUE(fs::exists(source / "Contents/MacOS/run"));
}

TEST_F(LocalBundleFilesTest, AFolderThatIsMissingAboveTheDestinationIsAnError) {
    fs::remove(root / "Applications");
    const auto outcome = copy();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error(), QStringLiteral("Couldn't copy “Zamber.app”: No such file or directory"));
}

TEST_F(LocalBundleFilesTest, ALinkIsRemovedAndNotWhatItNames) {
    fs::create_directory_symlink(source, copied);
    EXPECT_TRUE(files.exists(QStringLiteral("/Applications/Zamber.app")));
    ASSERT_TRUE(files.remove(QStringLiteral("/Applications/Zamber.app")));
    EXPECT_FALSE(fs::exists(fs::symlink_status(copied)));
    EXPECT_TRUE(fs::exists(source / "Contents/MacOS/run"));
}

TEST_F(LocalBundleFilesTest, ALinkToNothingIsThere) {
    fs::create_symlink("/nowhere/at all", copied);
    EXPECT_TRUE(files.exists(QStringLiteral("/Applications/Zamber.app")));
    EXPECT_FALSE(copy());
}

TEST_F(LocalBundleFilesTest, WithoutARootPathsAreThoseOfTheSystem) {
    const LocalBundleFiles system;
    EXPECT_TRUE(system.exists(QString::fromStdString(source.string())));
    EXPECT_FALSE(system.exists(QStringLiteral("/Volumes/Zamber/Zamber.app")));
}

} // namespace zamber::freedesktop
