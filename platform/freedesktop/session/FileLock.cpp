// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <thread>

namespace zamber::freedesktop::session {

namespace {

using namespace std::chrono_literals;

constexpr auto PAUSE_BETWEEN_ATTEMPTS = 10ms;

/// Makes the missing folders above the file; the one that it lies in is this user's alone.
void makeFolderOf(const std::filesystem::path& file) {
    std::error_code error;
    const std::filesystem::path folder = file.parent_path();
    std::filesystem::create_directories(folder.parent_path(), error);
    mkdir(folder.c_str(), S_IRWXU);
}

} // namespace

std::unique_ptr<FileLock> FileLock::take(const std::filesystem::path& file, std::chrono::milliseconds longestWait) {
    makeFolderOf(file);
    const std::string path = file.string() + ".lock";
    // Links are not followed, so that no other file is opened for writing here.
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    std::unique_ptr<FileLock> lock(new FileLock(descriptor));
    if (descriptor < 0) {
        return lock;
    }
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR) {
            continue;
        }
        if (errno != EWOULDBLOCK) {
            return lock; // a file system without locks
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            return nullptr;
        }
        std::this_thread::sleep_for(PAUSE_BETWEEN_ATTEMPTS);
    }
    return lock;
}

FileLock::~FileLock() {
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

} // namespace zamber::freedesktop::session
