// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/HistoryFile.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace zamber {

namespace {

constexpr auto FILE_NAME = "clipboard_history.json";
constexpr auto FOLDER_NAME = "Zamber";
constexpr mode_t FILE_MODE = 0600;
constexpr mode_t FOLDER_MODE = 0700;
constexpr std::size_t READ_STEP_BYTES = std::size_t{1} << 20;

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
    qsizetype size() const { return m_size; }

    std::optional<QByteArray> readAll() const {
        QByteArray bytes;
        bytes.reserve(m_size + 1);
        while (true) {
            const auto length = bytes.size();
            bytes.resize(std::max<qsizetype>(bytes.capacity(), length + READ_STEP_BYTES));
            const auto count = ::read(m_descriptor, bytes.data() + length, bytes.size() - length);
            bytes.resize(length + std::max<ssize_t>(count, 0));
            if (count == 0) {
                return bytes;
            }
            if (count < 0 && errno != EINTR) {
                return std::nullopt;
            }
        }
    }

    bool writeAt(qsizetype offset, const char* bytes, qsizetype length) const {
        while (length > 0) {
            const auto count = ::pwrite(m_descriptor, bytes, static_cast<std::size_t>(length), offset);
            if (count < 0 && errno != EINTR) {
                return false;
            }
            const auto written = std::max<ssize_t>(count, 0);
            bytes += written;
            offset += written;
            length -= written;
        }
        return true;
    }

    void setSize(qsizetype size) const { std::ignore = ::ftruncate(m_descriptor, size); }
    void setPrivate() const { ::fchmod(m_descriptor, FILE_MODE); }

private:
    int m_descriptor;
    bool m_isUsable = false;
    qsizetype m_size = 0;
};

} // namespace

HistoryFile::HistoryFile(std::filesystem::path path)
    : m_path(std::move(path)) {}

std::filesystem::path HistoryFile::defaultPath() {
    auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (QDir::isRelativePath(folder)) { // from a variable that is to be ignored then
        folder = QDir::homePath() + QStringLiteral("/.local/share");
    }
    return std::filesystem::path(QFile::encodeName(folder).toStdString()) / FOLDER_NAME / FILE_NAME;
}

void HistoryFile::createFolder() const {
    std::filesystem::path folder;
    for (const auto& part : m_path.parent_path()) {
        folder /= part;
        ::mkdir(folder.c_str(), FOLDER_MODE); // fails where it exists, which is what we want
    }
}

std::optional<QList<ClipboardItem>> HistoryFile::read() const {
    createFolder();
    const RegularFile file(m_path, O_RDONLY);
    const auto bytes = file.isUsable() ? file.readAll() : std::nullopt;
    return bytes ? historyFromJson({bytes->constData(), static_cast<std::size_t>(bytes->size())}) : std::nullopt;
}

void HistoryFile::write(const QList<ClipboardItem>& items) const {
    const auto json = historyToJson(items);
    if (!json) {
        return;
    }
    createFolder();
    const RegularFile file(m_path, O_WRONLY | O_CREAT);
    if (!file.isUsable()) {
        return;
    }
    file.setPrivate();
    // What reaches beyond the old end comes first: on a full disk that fails, and the old history is still whole.
    const auto oldSize = std::min(file.size(), json->size());
    if (!file.writeAt(oldSize, json->constData() + oldSize, json->size() - oldSize)) {
        file.setSize(file.size());
        return;
    }
    if (file.writeAt(0, json->constData(), oldSize)) {
        file.setSize(json->size());
    }
}

} // namespace zamber
