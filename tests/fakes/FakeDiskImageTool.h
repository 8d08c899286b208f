// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DiskImageTool.h"
#include "tests/fakes/Journal.h"

#include <optional>

namespace zamber {

/// Images that a test attaches. One that loses its last volume is attached no more.
class FakeDiskImageTool final : public DiskImageTool {
public:
    explicit FakeDiskImageTool(Journal& journal)
        : m_journal(journal) {}

    std::expected<QList<AttachedImage>, QString> attachedImages() override {
        m_journal.note("attached images");
        if (reportError) {
            return std::unexpected(*reportError);
        }
        return images;
    }

    void detach(const QString& volumePath) override {
        m_journal.note("detach " + volumePath.toStdString());
        images.removeIf([&](const AttachedImage& image) { return image.mountPoints.contains(volumePath); });
    }

    QList<AttachedImage> images;
    std::optional<QString> reportError;

private:
    Journal& m_journal;
};

} // namespace zamber
