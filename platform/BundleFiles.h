// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <expected>

namespace zamber {

/// Installed programs as files: a bundle is a folder or a single file. Paths are absolute; errors are sentences for
/// people in the user's language where the system has them.
class BundleFiles {
public:
    virtual ~BundleFiles() = default;

    /// Whether there is anything at the path, be it a link to nothing.
    virtual bool exists(const QString& path) const = 0;

    /// Removes the bundle with all that it holds. Of a link only the link is removed.
    virtual std::expected<void, QString> remove(const QString& path) = 0;

    /// Copies the bundle whole: links as links, modes, extended attributes where the destination can hold them. Fails
    /// where something is at the destination already, and a copy that fails leaves nothing behind.
    virtual std::expected<void, QString> copy(const QString& source, const QString& destination) = 0;
};

} // namespace zamber
