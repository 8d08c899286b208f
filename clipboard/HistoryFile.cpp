// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/HistoryFile.h"

#include "clipboard/HistoryReader.h"
#include "clipboard/HistoryWriter.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <string_view>
#include <tuple>
#include <utility>

namespace zamber::clipboard {

namespace {

constexpr std::string_view OPENING = "[";
constexpr std::string_view UNFINISHED = " ";
constexpr mode_t FILE_MODE = 0600;
constexpr mode_t FOLDER_MODE = 0700;
constexpr qint64 ZEROS_AT_ONCE_BYTES = qint64{1} << 20;

/// A regular file, open; anything else that has its name (a pipe, a folder, a device) is refused without waiting for
/// it.
class RegularFile {
public:
    RegularFile(const std::filesystem::path& path, int flags)
        : m_descriptor(::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, FILE_MODE)) {
        struct stat status{};
        m_isUsable = m_descriptor >= 0 && ::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
        m_size = m_isUsable ? status.st_size : 0;
    }
    ~RegularFile() {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    bool isUsable() const { return m_isUsable; }

    /// 0 at the end, and where reading fails.
    std::size_t read(char* to, std::size_t size) const {
        ssize_t count = 0;
        do {
            count = ::read(m_descriptor, to, size);
        } while (count < 0 && errno == EINTR);
        return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }

    /// Sees to it that writing as far as `newSize` will not fail for want of space. Changes neither bytes nor size,
    /// unless the file system has no other way than to write.
    bool reserve(qint64 newSize) const {
        struct rlimit limit{};
        if (::getrlimit(RLIMIT_FSIZE, &limit) == 0 && static_cast<rlim_t>(newSize) > limit.rlim_cur) {
            return false;
        }
        if (newSize <= m_size || preallocate(newSize)) {
            return true;
        }
        if (errno != EOPNOTSUPP && errno != ENOSYS && errno != EINVAL) {
            setSize(m_size); // gives back the part that could be reserved
            return false;
        }
        const QByteArray zeros(std::min<qint64>(newSize - m_size, ZEROS_AT_ONCE_BYTES), '\0');
        for (auto end = m_size; end < newSize; end += zeros.size()) {
            const auto length = static_cast<std::size_t>(std::min<qint64>(newSize - end, zeros.size()));
            if (!writeAt(end, {zeros.constData(), length})) {
                setSize(m_size);
                return false;
            }
        }
        return true;
    }

    bool writeAt(qint64 offset, std::string_view bytes) const {
        while (!bytes.empty()) {
            const auto count = ::pwrite(m_descriptor, bytes.data(), bytes.size(), offset);
            if (count < 0 && errno != EINTR) {
                return false;
            }
            const auto written = std::max<ssize_t>(count, 0);
            bytes.remove_prefix(static_cast<std::size_t>(written));
            offset += written;
        }
        return true;
    }

    void setSize(qint64 size) const { std::ignore = ::ftruncate(m_descriptor, size); }
    void setPrivate() const { ::fchmod(m_descriptor, FILE_MODE); }

private:
    bool preallocate(qint64 newSize) const {
#ifdef FALLOC_FL_KEEP_SIZE
        int result = 0;
        do {
            result = ::fallocate(m_descriptor, FALLOC_FL_KEEP_SIZE, 0, newSize);
        } while (result != 0 && errno == EINTR);
        return result == 0;
#else
        errno = newSize > 0 ? ENOSYS : 0;
        return false;
#endif
    }

    int m_descriptor;
    bool m_isUsable = false;
    qint64 m_size = 0;
};

} // namespace

HistoryFile::HistoryFile(std::filesystem::path path)
    : m_path(std::move(path)) {}

void HistoryFile::createFolder() const {
    std::filesystem::path folder;
    for (const auto& part : m_path.parent_path()) {
        folder /= part;
        ::mkdir(folder.c_str(), FOLDER_MODE); // fails where it exists, which is what we want
    }
}

std::optional<QList<ClipboardItem>> HistoryFile::read() const {
    createFolder();
    // Not mapped into memory: when another program shortens a mapped file, reading it kills the process.
    const RegularFile file(m_path, O_RDONLY);
    if (!file.isUsable()) {
        return std::nullopt;
    }
    try {
        return readHistoryJson([&](char* to, std::size_t size) { return file.read(to, size); });
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

void HistoryFile::write(const QList<ClipboardItem>& items) const {
    const auto size = historyJsonSize(items);
    if (!size) {
        return;
    }
    createFolder();
    const RegularFile file(m_path, O_WRONLY | O_CREAT);
    if (!file.isUsable()) {
        return;
    }
    file.setPrivate();
    if (!file.reserve(*size)) {
        return;
    }
    // A history of several blocks gets its opening bracket last. A process that is killed before leaves a file that is
    // refused, instead of a history with one image that begins with new bytes and ends with old ones.
    qint64 offset = 0;
    bool isMarked = false;
    const bool isWhole = writeHistoryJson(items, [&](std::string_view block) {
        if (offset == 0 && static_cast<qint64>(block.size()) < *size) {
            isMarked = true;
            block.remove_prefix(OPENING.size());
            offset = OPENING.size();
            if (!file.writeAt(0, UNFINISHED)) {
                return false;
            }
        }
        const auto start = std::exchange(offset, offset + static_cast<qint64>(block.size()));
        return file.writeAt(start, block);
    });
    if (isWhole) {
        file.setSize(*size);
        std::ignore = isMarked && file.writeAt(0, OPENING);
    }
}

} // namespace zamber::clipboard
