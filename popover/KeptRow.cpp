// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/KeptRow.h"

#include <QHash>
#include <QUuid>

namespace zamber::popover {

std::optional<KeptRow> nearestKeptRow(int row, const QList<clipboard::ClipboardItem>& before,
                                      const QList<clipboard::ClipboardItem>& after) {
    QHash<QUuid, int> rowsAfter;
    rowsAfter.reserve(after.size());
    for (int candidate = 0; candidate < after.size(); ++candidate) {
        rowsAfter.insert(after[candidate].id, candidate);
    }
    // An entry that was pinned or unpinned leaves its place for another section.
    const auto kept = [&](int candidate) -> std::optional<KeptRow> {
        const auto found = rowsAfter.constFind(before[candidate].id);
        const bool stays = found != rowsAfter.constEnd() && after[*found].isPinned == before[candidate].isPinned;
        return stays ? std::optional(KeptRow{.before = candidate, .after = *found}) : std::nullopt;
    };
    for (int candidate = row; candidate < before.size(); ++candidate) {
        if (const auto found = kept(candidate)) {
            return found;
        }
    }
    for (int candidate = row - 1; candidate >= 0; --candidate) {
        if (const auto found = kept(candidate)) {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace zamber::popover
