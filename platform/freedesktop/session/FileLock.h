// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

namespace zamber::freedesktop::session {

/// One process at a time has the lock of a file, from the making of this object to its end or the process's, however
/// that ends. It is on a file beside the one that it is about, which may be replaced meanwhile; that file stays.
class FileLock {
public:
    /// Takes the lock, waiting for another process to give it up for no longer than that. Nothing when another process
    /// keeps it. Where no lock can be had at all, such as in a folder that cannot be written, there is nobody to be
    /// kept out either, and the lock counts as taken. Makes the folder, for this user alone, when it is missing.
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
