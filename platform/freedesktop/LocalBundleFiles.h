// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleFiles.h"

#include <filesystem>

namespace zamber::freedesktop {

/// The files of this system, or of a tree of it that a test takes for the whole.
class LocalBundleFiles final : public BundleFiles {
public:
    /// Every path is looked for below the root.
    explicit LocalBundleFiles(std::filesystem::path root = {})
        : m_root(std::move(root)) {}

    bool exists(const QString& path) const override;
    std::expected<void, QString> remove(const QString& path) override;
    std::expected<void, QString> copy(const QString& source, const QString& destination) override;

private:
    std::filesystem::path located(const QString& path) const;

    const std::filesystem::path m_root;
};

} // namespace zamber::freedesktop
