// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace zamber::popover {

/// The elements of the list from top to bottom: all rows, the pinned ones first, and, when there are pinned ones, a
/// header above each of the two groups that has rows.
class RowSections {
public:
    RowSections() = default;
    RowSections(int rowCount, int pinnedCount)
        : m_rowCount(rowCount)
        , m_pinnedCount(pinnedCount) {}

    int elementCount() const { return m_rowCount + (hasPinned() ? 1 : 0) + (hasRecentHeader() ? 1 : 0); }

    int elementOfRow(int row) const {
        if (!hasPinned()) {
            return row;
        }
        return row < m_pinnedCount ? row + 1 : row + 2;
    }

    /// Nothing for a header.
    std::optional<int> rowOfElement(int element) const {
        if (!hasPinned()) {
            return element;
        }
        if (element == 0 || element == m_pinnedCount + 1) {
            return std::nullopt;
        }
        return element <= m_pinnedCount ? element - 1 : element - 2;
    }

private:
    bool hasPinned() const { return m_pinnedCount > 0; }
    bool hasRecentHeader() const { return hasPinned() && m_pinnedCount < m_rowCount; }

    int m_rowCount = 0;
    int m_pinnedCount = 0;
};

} // namespace zamber::popover
