// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"

#include <QList>

#include <optional>

namespace zamber::popover {

/// An entry that a list had and still has in the same section after its entries were replaced: its row then and now.
struct KeptRow {
    int before;
    int after;

    bool operator==(const KeptRow&) const = default;
};

/// The first such entry at or below the row, else the last one above it. Nothing when no entry has stayed.
std::optional<KeptRow> nearestKeptRow(int row, const QList<clipboard::ClipboardItem>& before,
                                      const QList<clipboard::ClipboardItem>& after);

} // namespace zamber::popover
