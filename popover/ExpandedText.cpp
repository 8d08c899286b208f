// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ExpandedText.h"

#include "ui/Typography.h"

#include <algorithm>
#include <cmath>

namespace zamber::popover {

ExpandedText::ExpandedText(QByteArray utf8, int width)
    : m_layout(std::move(utf8), ui::textFont(12), width) {}

double ExpandedText::shownHeight() {
    return std::min<double>(m_layout.height(MOST_SHOWN_HEIGHT), MOST_SHOWN_HEIGHT);
}

bool ExpandedText::scrollBy(double distance) {
    // By the height that the row will have, not by its present one: the row may still be growing.
    const double shown = shownHeight();
    const double whole = m_layout.height(m_scrollOffset + 2 * shown + std::abs(distance));
    const double wanted = std::clamp(m_scrollOffset + distance, 0.0, std::max(0.0, whole - shown));
    return std::exchange(m_scrollOffset, wanted) != wanted;
}

} // namespace zamber::popover
