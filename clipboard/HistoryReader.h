// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"

#include <QList>

#include <cstddef>
#include <functional>
#include <optional>

namespace zamber::clipboard {

/// Fills up to `size` bytes and tells how many; 0 at the end.
using ReadBytes = std::function<std::size_t(char* to, std::size_t size)>;

/// The entries of a history file's text (see HistoryFile.h), each with a new id; records that are broken are left
/// out. Nothing when the text is not JSON (RFC 8259 in UTF-8, a byte order mark tolerated, nested no deeper than 512
/// below a record) or not an array of objects. Reads in steps and holds one record at a time besides the entries.
std::optional<QList<ClipboardItem>> readHistoryJson(const ReadBytes& read);

} // namespace zamber::clipboard
