// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <memory>

namespace zamber::macos {

/// The shared workspace.
class MacWorkspace final : public Workspace {
public:
    MacWorkspace();
    ~MacWorkspace() override;

    void openNewInstance(const QString& path, Started done) override;
    std::expected<void, QString> moveToTrash(const QString& path) override;
    std::optional<RunningApplication> frontmostApplication() override;
    void activate(const RunningApplication& application) override;
    void open(const QUrl& address) override;

private:
    struct Seen;

    std::unique_ptr<Seen> m_seen;
};

} // namespace zamber::macos
