// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

namespace zamber::freedesktop::session {

/// The lock of a file, which one process at a time has, from the construction of this object to its destruction or to
/// the end of the process. The lock is on a second file beside the first, which may be replaced; the second stays.
class FileLock {
public:
    /// Takes the lock, waiting no longer than that for another process to give it up. Nothing when another process
    /// keeps it. Where no process can have a lock, such as in a folder that cannot be written, it counts as taken.
    /// Makes the folder, for this user alone, when it is missing.
    static std::unique_ptr<FileLock> take(const std::filesystem::path& file, std::chrono::milliseconds longestWait);

    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    explicit FileLock(int descriptor)
        : m_descriptor(descriptor) {}

    int m_descriptor;
};

} // namespace zamber::freedesktop::session
