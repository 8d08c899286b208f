// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zamber::popover {

/// Things of different heights below each other, with a padding above and below all and a gap between each two.
/// Lengths in points. Indices must lie inside the stack.
class RowStack {
public:
    RowStack(int padding, int gap);

    /// Starts anew with so many things of a height that is a guess until it is set.
    void reset(int count, int guessedHeight);

    int count() const { return static_cast<int>(m_heights.size()); }
    int height(int index) const { return m_heights[static_cast<std::size_t>(index)]; }
    bool isMeasured(int index) const { return m_isMeasured[static_cast<std::size_t>(index)]; }
    void setHeight(int index, int height);

    int top(int index) const;
    int totalHeight() const;

    /// The last thing that begins at or above y; 0 when y lies above all. The stack must not be empty.
    int indexAt(double y) const;

private:
    void updateTops() const;

    int m_padding;
    int m_gap;
    std::vector<int> m_heights;
    std::vector<bool> m_isMeasured;
    mutable std::vector<int> m_tops;
    mutable bool m_topsAreStale = true;
};

} // namespace zamber::popover
