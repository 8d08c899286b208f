// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/LocalBundleFiles.h"

#include <QFile>

#include <fcntl.h>
#include <linux/limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace zamber::freedesktop {

namespace fs = std::filesystem;

namespace {

QString sentence(const char* what, const fs::path& path, const std::error_code& error) {
    return QString::fromUtf8(what) + QStringLiteral(" “") + QFile::decodeName(path.filename().c_str()) +
           QStringLiteral("”: ") + QString::fromLocal8Bit(error.message().c_str());
}

std::error_code lastError() {
    return {errno, std::generic_category()};
}

/// What the destination cannot hold, or only an administrator may set, is left behind.
bool mayBeLeftBehind(int error) {
    return error == ENOTSUP || error == EPERM || error == EACCES || error == ENODATA;
}

std::error_code copyExtendedAttributes(const fs::path& from, const fs::path& to) {
    const ssize_t size = llistxattr(from.c_str(), nullptr, 0);
    if (size <= 0) {
        return size == 0 || mayBeLeftBehind(errno) ? std::error_code() : lastError();
    }
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t listed = llistxattr(from.c_str(), names.data(), names.size());
    if (listed < 0) {
        return lastError();
    }
    std::string_view rest(names.data(), static_cast<std::size_t>(listed));
    while (!rest.empty()) {
        const std::string name(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        std::vector<char> value(XATTR_SIZE_MAX);
        const ssize_t length = lgetxattr(from.c_str(), name.c_str(), value.data(), value.size());
        const bool isSet =
            length >= 0 && lsetxattr(to.c_str(), name.c_str(), value.data(), static_cast<std::size_t>(length), 0) == 0;
        if (!isSet && !mayBeLeftBehind(errno)) {
            return lastError();
        }
    }
    return {};
}

/// Modes last, since a folder that may not be written to has to be filled first, and times after everything.
std::error_code copyProperties(const fs::path& from, const fs::path& to, bool isLink) {
    if (const std::error_code error = copyExtendedAttributes(from, to)) {
        return error;
    }
    struct stat status = {};
    if (lstat(from.c_str(), &status) != 0 || (!isLink && chmod(to.c_str(), status.st_mode & 07777) != 0)) {
        return lastError();
    }
    const std::array times = {status.st_atim, status.st_mtim};
    return utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW) == 0 ? std::error_code() : lastError();
}

std::expected<void, QString> copyItem(const fs::path& from, const fs::path& to);

std::error_code makeFolder(const fs::path& path) {
    return mkdir(path.c_str(), S_IRWXU) == 0 ? std::error_code() : lastError();
}

std::expected<void, QString> copyChildren(const fs::path& from, const fs::path& to) {
    std::error_code error;
    for (fs::directory_iterator at(from, error), end; !error && at != end; at.increment(error)) {
        if (auto copied = copyItem(at->path(), to / at->path().filename()); !copied) {
            return copied;
        }
    }
    if (error) {
        return std::unexpected(sentence("Couldn't read", from, error));
    }
    return {};
}

std::expected<void, QString> copyItem(const fs::path& from, const fs::path& to) {
    std::error_code error;
    const fs::file_type type = fs::symlink_status(from, error).type();
    if (!error) {
        switch (type) {
        case fs::file_type::symlink:
            fs::copy_symlink(from, to, error);
            break;
        case fs::file_type::directory:
            error = makeFolder(to);
            if (!error) {
                if (auto copied = copyChildren(from, to); !copied) {
                    return copied;
                }
            }
            break;
        case fs::file_type::regular:
            fs::copy_file(from, to, error);
            break;
        default: // a pipe or a device is not part of a program, and reading one may never end
            error = std::make_error_code(std::errc::operation_not_supported);
        }
    }
    if (!error) {
        error = copyProperties(from, to, type == fs::file_type::symlink);
    }
    if (error) {
        return std::unexpected(sentence("Couldn't copy", from, error));
    }
    return {};
}

} // namespace

fs::path LocalBundleFiles::located(const QString& path) const {
    const fs::path place = QFile::encodeName(path).toStdString();
    return m_root.empty() ? place : m_root / place.relative_path();
}

bool LocalBundleFiles::exists(const QString& path) const {
    std::error_code error;
    return fs::exists(fs::symlink_status(located(path), error));
}

std::expected<void, QString> LocalBundleFiles::remove(const QString& path) {
    const fs::path place = located(path);
    std::error_code error;
    if (fs::remove_all(place, error) == 0 && !error) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    if (error) {
        return std::unexpected(sentence("Couldn't remove", place, error));
    }
    return {};
}

std::expected<void, QString> LocalBundleFiles::copy(const QString& source, const QString& destination) {
    const fs::path from = located(source);
    const fs::path to = located(destination);
    if (exists(destination)) {
        return std::unexpected(sentence("Couldn't copy to", to, std::make_error_code(std::errc::file_exists)));
    }
    auto copied = copyItem(from, to);
    if (!copied) {
        std::error_code ignored; // the first error is the one to tell
        fs::remove_all(to, ignored);
    }
    return copied;
}

} // namespace zamber::freedesktop
