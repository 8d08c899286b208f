// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace zamber {

/// A disk image that is attached: its file where that is known, and where its partitions are mounted.
struct AttachedImage {
    std::optional<QString> imagePath;
    QStringList mountPoints;

    bool operator==(const AttachedImage&) const = default;
};

/// The system's tool for disk images. Its calls come back when it has ended.
class DiskImageTool {
public:
    virtual ~DiskImageTool() = default;

    /// What the tool reports, in its order. What in the report is missing or of another kind than expected is left
    /// out; the error, in words, is that there is no tool or no report that can be read.
    virtual std::expected<QList<AttachedImage>, QString> attachedImages() = 0;

    /// Ejects the volume that is mounted there, by force. Does not tell whether that worked.
    virtual void detach(const QString& volumePath) = 0;
};

} // namespace zamber
