// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/TextLines.h"

namespace zamber::popover {

/// The whole text of an expanded row, and how far the row has been scrolled down in it (points).
class ExpandedText {
public:
    /// The text is UTF-8, the width in points.
    ExpandedText(QByteArray utf8, int width);

    int width() const { return m_layout.width(); }
    double scrollOffset() const { return m_scrollOffset; }

    /// How much of the text the row shows at once when it has fully expanded, in points.
    double shownHeight();

    /// Scrolls by the distance (down: positive) as far as the text goes. False when it has not moved.
    bool scrollBy(double distance);

    /// The height of the whole text in points; estimated while its end is far below what is shown.
    double wholeHeight() { return m_layout.height(m_scrollOffset + MOST_SHOWN_HEIGHT + 1); }
    void draw(QPainter& painter, QPointF origin, double height) {
        m_layout.draw(painter, origin, m_scrollOffset, height);
    }

    /// The most that a row shows of its text at once, in points.
    static constexpr int MOST_SHOWN_HEIGHT = 120;

private:
    LazyTextLayout m_layout;
    double m_scrollOffset = 0;
};

} // namespace zamber::popover
