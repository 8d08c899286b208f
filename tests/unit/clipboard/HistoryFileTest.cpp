// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/HistoryFile.h"

#include "HistoryText.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

/// How many more times a signal comes while the kernel sets space aside.
int interruptions = 0;

} // namespace

/// Stands in for the C library's function.
extern "C" int fallocate(int descriptor, int mode, off_t offset, off_t length) {
    if (interruptions > 0) {
        --interruptions;
        errno = EINTR;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fallocate, descriptor, mode, offset, length));
}

namespace zamber::clipboard {

namespace {

class HistoryFileTest : public testing::Test {
protected:
    QTemporaryDir home;
    std::filesystem::path path = home.filePath(QStringLiteral("data/Zamber/clipboard_history.json")).toStdString();
    HistoryFile file{path};

    void put(const QByteArray& bytes) const {
        std::filesystem::create_directories(path.parent_path());
        QFile raw(path);
        ASSERT_TRUE(raw.open(QIODevice::WriteOnly) && raw.write(bytes) == bytes.size());
    }

    QByteArray bytes() const {
        QFile raw(path);
        return raw.open(QIODevice::ReadOnly) ? raw.readAll() : QByteArray("(none)");
    }

    static mode_t modeOf(const std::filesystem::path& entry) {
        struct stat status{};
        EXPECT_EQ(::stat(entry.c_str(), &status), 0);
        return status.st_mode & 07777;
    }
};

QList<ClipboardItem> texts(const QList<QByteArray>& values) {
    QList<ClipboardItem> items;
    for (const auto& value : values) {
        items.append({ClipboardContent::text(value), 1});
    }
    return items;
}

/// Keeps the files of this process from growing beyond a size, as if the disk were full.
class OnlySoLongFiles {
public:
    explicit OnlySoLongFiles(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        auto limit = m_before;
        limit.rlim_cur = bytes;
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~OnlySoLongFiles() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    OnlySoLongFiles(const OnlySoLongFiles&) = delete;
    OnlySoLongFiles& operator=(const OnlySoLongFiles&) = delete;

private:
    struct rlimit m_before{};
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST_F(HistoryFileTest, SavingThenLoadingKeepsEverythingButTheIds) {
    QByteArray image;
    for (int i = 0; i < 1000; ++i) {
        image += static_cast<char>(i);
    }
    const QList<ClipboardItem> items = {
        {ClipboardContent::text("  two\nlines \"é\" 🙂\\ "), 1767323045.123456},
        {ClipboardContent::image(image), 1767323044.1, true},
        {ClipboardContent::text("e\u0301 é"), 12.5},
        {ClipboardContent::image({}), 0},
    };
    file.write(items);
    const auto loaded = file.read();
    ASSERT_TRUE(loaded && loaded->size() == items.size());
    for (qsizetype i = 0; i < items.size(); ++i) {
        EXPECT_EQ(loaded->at(i).content.isImage(), items[i].content.isImage());
        EXPECT_EQ(loaded->at(i).content.bytes(), items[i].content.bytes());
        EXPECT_EQ(loaded->at(i).timestamp, items[i].timestamp);
        EXPECT_EQ(loaded->at(i).isPinned, items[i].isPinned);
        EXPECT_NE(loaded->at(i).id, items[i].id);
    }
}

TEST_F(HistoryFileTest, ALongerAndAShorterHistoryReplaceTheOldOneWhole) {
    file.write(texts({"middling", "history"}));
    const auto longer = texts({QByteArray(100'000, 'x'), "middling", "history"});
    file.write(longer);
    EXPECT_EQ(bytes(), historyToJson(longer));
    file.write(texts({"s"}));
    EXPECT_EQ(bytes(), historyToJson(texts({"s"})));
    file.write({});
    EXPECT_EQ(bytes(), "[]");
}

TEST_F(HistoryFileTest, TheFileAndItsFoldersAreForTheirOwnerAlone) {
    const auto before = ::umask(0);
    file.write({});
    ::umask(before);
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(modeOf(path.parent_path()), 0700U);
    EXPECT_EQ(modeOf(path.parent_path().parent_path()), 0700U);
}

TEST_F(HistoryFileTest, AFileThatOthersCouldReadIsClosedToThem) {
    put("[]");
    std::filesystem::permissions(path, std::filesystem::perms{0644});
    file.write({});
    EXPECT_EQ(modeOf(path), 0600U);
}

TEST_F(HistoryFileTest, TheFileIsWrittenInPlace) {
    put("[]");
    std::filesystem::create_hard_link(path, path.string() + ".link");
    file.write(texts({"seen through the link"}));
    QFile link(QString::fromStdString(path.string() + ".link"));
    ASSERT_TRUE(link.open(QIODevice::ReadOnly));
    EXPECT_EQ(link.readAll(), bytes());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path.parent_path()), {}), 2);
}

TEST_F(HistoryFileTest, AMissingFileIsNoHistoryAndItsFolderIsMade) {
    EXPECT_EQ(file.read(), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_directory(path.parent_path()));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(HistoryFileTest, APipeInItsPlaceNeitherHangsNorCrashes) {
    std::filesystem::create_directories(path.parent_path());
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(file.read(), std::nullopt);
    file.write(texts({"a"}));

    const int writer = ::open(path.c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(writer, 0);
    EXPECT_EQ(file.read(), std::nullopt);
    file.write(texts({"a"}));
    char byte = 0;
    EXPECT_EQ(::read(writer, &byte, 1), -1);

    // One that has been filled and left: it would read to its end.
    const int source = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_EQ(::write(writer, "[]", 2), 2);
    ::close(writer);
    EXPECT_EQ(file.read(), std::nullopt);
    EXPECT_EQ(::read(source, &byte, 1), 1);
    ::close(source);
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST_F(HistoryFileTest, AFolderInItsPlaceNeitherHangsNorCrashes) {
    std::filesystem::create_directories(path);
    EXPECT_EQ(file.read(), std::nullopt);
    file.write(texts({"a"}));
    EXPECT_TRUE(std::filesystem::is_empty(path));
}

TEST_F(HistoryFileTest, AFileInPlaceOfTheFolderIsIgnored) {
    put("[]");
    const HistoryFile below(path / "Zamber" / "clipboard_history.json");
    EXPECT_EQ(below.read(), std::nullopt);
    below.write(texts({"a"}));
    EXPECT_EQ(bytes(), "[]");
}

TEST_F(HistoryFileTest, WhatIsNotJsonIsNoHistory) {
    put("{\"type\":\"text\"}");
    EXPECT_EQ(file.read(), std::nullopt);
    put("");
    EXPECT_EQ(file.read(), std::nullopt);
}

TEST_F(HistoryFileTest, AHistoryThatCannotBeWrittenLeavesTheFileAlone) {
    file.write(texts({"old"}));
    const auto old = bytes();
    file.write({{ClipboardContent::text("x"), HUGE_VAL}});
    EXPECT_EQ(bytes(), old);
}

TEST_F(HistoryFileTest, WhereThereIsNoSpaceTheOldHistoryStays) {
    file.write(texts({"old", "history"}));
    const auto old = bytes();

    const OnlySoLongFiles limit(4096);
    file.write(texts({QByteArray(10'000, 'n'), "old", "history"}));
    EXPECT_EQ(bytes(), old);
}

TEST_F(HistoryFileTest, WhereThereIsNoSpaceThereIsNoFileOrAnEmptyOne) {
    const OnlySoLongFiles limit(4096);
    file.write(texts({QByteArray(10'000, 'n')}));
    EXPECT_EQ(bytes(), "");
    EXPECT_EQ(file.read(), std::nullopt);
    file.write(texts({"short"}));
    EXPECT_EQ(bytes(), historyToJson(texts({"short"})));
}

TEST_F(HistoryFileTest, ASignalWhileSpaceIsSetAsideCostsNoSave) {
    file.write(texts({"old"}));
    interruptions = 3;
    file.write(texts({QByteArray(100'000, 'n'), "old"}));
    EXPECT_EQ(interruptions, 0);
    EXPECT_EQ(bytes(), historyToJson(texts({QByteArray(100'000, 'n'), "old"})));
}

TEST_F(HistoryFileTest, SpaceIsSetAsideWithoutATraceInTheFile) {
    // As long as the file says: nothing is left behind its end.
    file.write(texts({QByteArray(3'000'000, 'x')}));
    file.write(texts({"short"}));
    struct stat status{};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_LE(status.st_blocks * 512, 64 * 1024);
}

TEST_F(HistoryFileTest, GigabytesThatAreNoHistoryAreRefusedAtTheirFirstWrongByte) {
    put(R"([{"type":"text","value":"a","timestamp":1}])");
    std::filesystem::resize_file(path, std::uintmax_t{3} << 30); // a hole, read as zeros
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(file.read(), std::nullopt);
    put("");
    std::filesystem::resize_file(path, std::uintmax_t{3} << 30);
    EXPECT_EQ(file.read(), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

#ifndef __SANITIZE_ADDRESS__ // which takes terabytes of addresses for itself
TEST_F(HistoryFileTest, AHistoryThatMemoryDoesNotHoldIsNoHistory) {
    put(R"([{"type":"text","timestamp":1,"value":")" + QByteArray(200'000'000, 'x') + R"("}])");
    const auto readWithLittleMemory = [this] {
        const rlimit little{100'000'000, 100'000'000};
        std::exit(::setrlimit(RLIMIT_DATA, &little) == 0 && file.read() == std::nullopt ? 0 : 1);
    };
    EXPECT_EXIT(readWithLittleMemory(), testing::ExitedWithCode(0), "");
}
#endif

TEST_F(HistoryFileTest, AFileThatGrowsOrShrinksWhileItIsReadDoesNoHarm) {
    file.write(texts({QByteArray(20'000'000, 'x'), QByteArray(20'000'000, 'y')}));
    const auto size = std::filesystem::file_size(path);
    std::atomic<bool> isDone = false;
    std::thread other([&] {
        while (!isDone) {
            std::filesystem::resize_file(path, 1000);
            std::filesystem::resize_file(path, size);
        }
    });
    for (int i = 0; i < 50; ++i) {
        const auto items = file.read();
        EXPECT_TRUE(!items || items->size() == 2);
    }
    isDone = true;
    other.join();
}

TEST_F(HistoryFileTest, ALargeHistoryIsSavedAndLoadedWhole) {
    QList<ClipboardItem> items;
    for (int i = 0; i < 12; ++i) {
        QByteArray image(1'999'998 + i, static_cast<char>(i));
        image[i] = '\xFF';
        items.append({ClipboardContent::image(image), 100.5 - i, i % 3 == 0});
        items.append(
            {ClipboardContent::text(QByteArray(300'000 + i, static_cast<char>('a' + i)) + "\n\"é"), 50.25 - i});
    }
    file.write(items);
    const auto loaded = file.read();
    ASSERT_TRUE(loaded && loaded->size() == items.size());
    for (qsizetype i = 0; i < items.size(); ++i) {
        EXPECT_TRUE(loaded->at(i).content.bytes() == items[i].content.bytes()) << i;
        EXPECT_EQ(loaded->at(i).timestamp, items[i].timestamp);
        EXPECT_EQ(loaded->at(i).isPinned, items[i].isPinned);
    }
}

} // namespace

} // namespace zamber::clipboard
