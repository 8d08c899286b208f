// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleFiles.h"

namespace zamber::macos {

/// The system's file manager, under a root that tests may move.
class MacBundleFiles final : public BundleFiles {
public:
    explicit MacBundleFiles(const QString& root = {});

    bool exists(const QString& path) const override;
    std::expected<void, QString> remove(const QString& path) override;
    std::expected<void, QString> copy(const QString& source, const QString& destination) override;

private:
    QString m_root;
};

} // namespace zamber::macos
