// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/FileLock.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace zamber::freedesktop::session {

namespace {

using namespace std::chrono_literals;

class FileLockTest : public testing::Test {
protected:
    QTemporaryDir folder;
    std::filesystem::path file = folder.filePath(QStringLiteral("data/Zamber/history.json")).toStdString();
};

} // namespace

TEST_F(FileLockTest, OneHasItUntilItsEnd) {
    {
        const auto first = FileLock::take(file, 0ms);
        ASSERT_TRUE(first);
        EXPECT_FALSE(FileLock::take(file, 0ms));
        EXPECT_FALSE(FileLock::take(file, 30ms));
    }
    EXPECT_TRUE(FileLock::take(file, 0ms));
}

TEST_F(FileLockTest, TheFolderIsMadeForTheUserAlone) {
    const auto lock = FileLock::take(file, 0ms);
    struct stat status{};
    ASSERT_EQ(stat(file.parent_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    EXPECT_FALSE(std::filesystem::exists(file));
    ASSERT_EQ(stat((file.string() + ".lock").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(FileLockTest, AProcessThatIsKilledGivesItUp) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const auto lock = FileLock::take(file, 0ms);
        const char state = lock ? 'y' : 'n';
        [[maybe_unused]] const ssize_t written = write(ready[1], &state, 1);
        pause();
        _exit(0);
    }
    char state = 0;
    ASSERT_EQ(read(ready[0], &state, 1), 1);
    EXPECT_EQ(state, 'y');
    EXPECT_FALSE(FileLock::take(file, 0ms));
    kill(other, SIGKILL);
    EXPECT_TRUE(FileLock::take(file, 5s)) << "waits for it";
    waitpid(other, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
}

TEST_F(FileLockTest, WhereNoLockCanBeHadNobodyIsKeptOut) {
    // A file where the folder should be: not even the superuser can write into it.
    std::filesystem::create_directories(file.parent_path().parent_path());
    const int inTheWay = creat(file.parent_path().c_str(), S_IRUSR | S_IWUSR);
    close(inTheWay);
    EXPECT_TRUE(FileLock::take(file, 0ms));
    EXPECT_TRUE(FileLock::take(file, 0ms));
}

} // namespace zamber::freedesktop::session
