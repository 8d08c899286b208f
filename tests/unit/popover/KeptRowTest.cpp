// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/KeptRow.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace zamber::popover {

namespace {

/// Lists of the entries that a test names by letters, pinned ones by capitals.
class Entries {
public:
    Entries() {
        for (char letter = 'a'; letter <= 'e'; ++letter) {
            m_entries.emplace_back(clipboard::ClipboardContent::text(QByteArray(1, letter)), 0);
        }
    }

    QList<clipboard::ClipboardItem> list(std::string_view letters) const {
        QList<clipboard::ClipboardItem> items;
        for (const char letter : letters) {
            const bool isPinned = letter < 'a';
            items.append(m_entries.at(static_cast<std::size_t>(letter - (isPinned ? 'A' : 'a'))));
            items.last().isPinned = isPinned;
        }
        return items;
    }

private:
    std::vector<clipboard::ClipboardItem> m_entries;
};

struct Change {
    const char* name;
    std::string_view before;
    std::string_view after;
    int row;
    std::optional<KeptRow> kept;
};

constexpr KeptRow rows(int before, int after) {
    return {.before = before, .after = after};
}

} // namespace

TEST(KeptRow, IsTheRowItselfElseTheNextOneElseTheOneBefore) {
    const Entries entries;
    for (const Change& change : {
             Change{"nothing changes", "abc", "abc", 1, rows(1, 1)},
             Change{"a new entry above", "abc", "dabc", 1, rows(1, 2)},
             Change{"the row has gone", "abc", "ac", 1, rows(2, 1)},
             Change{"the row and the next one have gone", "abcd", "ad", 1, rows(3, 1)},
             Change{"the last row has gone", "abc", "ab", 2, rows(1, 1)},
             Change{"several rows at the end have gone", "abcd", "a", 3, rows(0, 0)},
             Change{"the row has moved", "abc", "bac", 1, rows(1, 0)},
             Change{"the row was pinned", "abc", "Bac", 1, rows(2, 2)},
             Change{"the row was unpinned", "Abc", "abc", 0, rows(1, 1)},
             Change{"the last row was pinned", "abc", "Cab", 2, rows(1, 2)},
             Change{"every row was pinned", "ab", "AB", 0, std::nullopt},
             Change{"other entries", "abc", "de", 1, std::nullopt},
             Change{"no entries", "abc", "", 1, std::nullopt},
         }) {
        EXPECT_EQ(nearestKeptRow(change.row, entries.list(change.before), entries.list(change.after)), change.kept)
            << change.name;
    }
}

} // namespace zamber::popover
