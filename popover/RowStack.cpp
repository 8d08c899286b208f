// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RowStack.h"

#include <algorithm>

namespace zamber::popover {

RowStack::RowStack(int padding, int gap)
    : m_padding(padding)
    , m_gap(gap) {}

void RowStack::reset(int count, int guessedHeight) {
    m_heights.assign(static_cast<std::size_t>(count), guessedHeight);
    m_isMeasured.assign(static_cast<std::size_t>(count), false);
    m_topsAreStale = true;
}

void RowStack::setHeight(int index, int height) {
    const auto position = static_cast<std::size_t>(index);
    m_isMeasured[position] = true;
    if (m_heights[position] != height) {
        m_heights[position] = height;
        m_topsAreStale = true;
    }
}

int RowStack::top(int index) const {
    updateTops();
    return m_tops[static_cast<std::size_t>(index)];
}

int RowStack::totalHeight() const {
    return count() == 0 ? 2 * m_padding : top(count() - 1) + m_heights.back() + m_padding;
}

int RowStack::indexAt(double y) const {
    updateTops();
    const auto after = std::ranges::upper_bound(m_tops, y);
    return std::max(0, static_cast<int>(after - m_tops.begin()) - 1);
}

void RowStack::updateTops() const {
    if (!m_topsAreStale) {
        return;
    }
    m_tops.resize(m_heights.size());
    int top = m_padding;
    for (std::size_t position = 0; position < m_heights.size(); ++position) {
        m_tops[position] = top;
        top += m_heights[position] + m_gap;
    }
    m_topsAreStale = false;
}

} // namespace zamber::popover
