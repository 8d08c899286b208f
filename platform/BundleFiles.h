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

    /// Something is there, be it a link to nothing.
    virtual bool exists(const QString& path) const = 0;

    /// Removes it with all it holds. A link is removed, not what it names.
    virtual std::expected<void, QString> remove(const QString& path) = 0;

    /// Copies it whole: links as links, modes, extended attributes where the destination can hold them. Fails where
    /// something is at the destination already, and leaves nothing there that was not there before.
    virtual std::expected<void, QString> copy(const QString& source, const QString& destination) = 0;
};

} // namespace zamber
