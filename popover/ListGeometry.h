// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/RowSections.h"
#include "popover/RowStack.h"

#include <functional>
#include <optional>
#include <utility>

namespace zamber::popover {

/// Where the rows and headers of a list lie and how far the list is scrolled. Heights are guesses until a row comes
/// into view; it is measured then, and what was in view before does not move. Lengths and places in points; a place is
/// counted from the upper edge of the view. Knows neither widgets nor entries.
class ListGeometry {
public:
    using MeasureRow = std::function<int(int row)>;
    using KnownHeight = std::function<std::optional<int>(int row)>;

    struct Span {
        int top;
        int height;
    };

    /// A row's place in the view, to be kept while heights or rows change. Of a row that the view cuts off at the top,
    /// the lower edge is kept until the upper one comes into view.
    struct Hold {
        int row;
        double top;
        double bottom;
        bool isCutOff = false;
    };

    /// Whether the list may end above the lower edge of the view: it does after rows have gone from its end, until
    /// the user scrolls or the room is closed.
    enum class RoomBelow { Close, Leave };

    ListGeometry(MeasureRow measureRow, int headerHeight);

    /// Other rows, some of which may have been measured before. The scroll offset stays; to be followed by `keep` or by
    /// `scrollTo`.
    void setRows(const RowSections& sections, const KnownHeight& knownHeight);
    void setViewHeight(int height) { m_viewHeight = height; }

    const RowSections& sections() const { return m_sections; }
    bool isEmpty() const { return m_stack.count() == 0; }
    double offset() const { return m_offset; }
    Span elementSpan(int element) const;
    Span rowSpan(int row) const { return elementSpan(m_sections.elementOfRow(row)); }
    bool isInView(int row) const;
    /// The row or header at the place, or the last one above it. The list must not be empty.
    int elementAt(double place) const { return m_stack.indexAt(place + m_offset); }
    /// The first and the last row or header in view. The list must not be empty.
    std::pair<int, int> elementsInView() const { return {elementAt(0), elementAt(m_viewHeight)}; }

    /// Measures the row anew, wherever it is; to be followed by `keep`.
    void measureAgain(int row);
    /// Measures about a view's height of rows above and below, so that they need not move the row once they are seen.
    void measureAround(int row);

    Hold hold(int row) const;
    /// The first row in view. Nothing in an empty list.
    std::optional<Hold> holdView() const;
    void keep(const Hold& hold, RoomBelow room);

    /// Scrolls by the distance (down: positive) or as far as the list goes, and never the other way.
    void scrollBy(double distance);
    void scrollTo(double offset);
    /// The offset that puts the row in the middle of the view, or as near to it as the list goes.
    double centredOffset(int row) const;

private:
    double endOffset() const;
    void measure(int element);
    bool measureView();
    /// Scrolls to where `offset` says, again and again until no measuring in the new view changes its answer.
    template <class Offset>
    void settle(Offset offset);

    MeasureRow m_measureRow;
    int m_headerHeight;
    RowSections m_sections;
    RowStack m_stack;
    int m_viewHeight = 0;
    double m_offset = 0;
};

} // namespace zamber::popover
