// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"

#include <QList>

#include <filesystem>
#include <optional>

namespace zamber::clipboard {

/// The file that the history survives in: a JSON array with an object per entry, in their order.
///
/// | key         | type    | text entry | image entry                   |
/// |-------------|---------|------------|-------------------------------|
/// | "type"      | string  | "text"     | "image"                       |
/// | "value"     | string  | the text   | the bytes, in standard Base64 |
/// | "timestamp" | number  | seconds since 1970-01-01 00:00:00 UTC | same |
/// | "isPinned"  | boolean | pin state  | same                          |
class HistoryFile {
public:
    explicit HistoryFile(std::filesystem::path path);

    /// The entries, each with a new id; records that are broken are left out. Nothing when the file cannot be read,
    /// is no regular file, does not fit into memory, is not JSON or not an array of objects.
    std::optional<QList<ClipboardItem>> read() const;

    /// Writes the file in place, readable for its owner alone. Failures are ignored; where there is no space for a
    /// longer history, the file stays as it was. A process that is killed while it writes
    /// leaves a file that `read` refuses.
    void write(const QList<ClipboardItem>& items) const;

private:
    void createFolder() const;

    std::filesystem::path m_path;
};

} // namespace zamber::clipboard
