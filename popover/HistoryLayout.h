// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/ClipboardRowView.h"
#include "popover/GlidingScroll.h"
#include "popover/HistoryRows.h"
#include "popover/ListGeometry.h"
#include "popover/RowHighlights.h"

#include <functional>

namespace zamber::popover {

/// The rows of the history in their places: their heights, which change with the highlight, and how far the list is
/// scrolled. Rows in view stay where they are, whatever changes above or below them. Points; needs no window.
class HistoryLayout final : public QObject {
    Q_OBJECT

public:
    /// Without a link detector no text is a link. `motion` is asked whether things may move at this moment.
    HistoryLayout(LinkDetector* linkDetector, std::function<Motion()> motion);

    /// All pinned entries before the others. The row after one that has gone takes its place, and its highlight too
    /// when the pointer was on it.
    void setItems(const QList<clipboard::ClipboardItem>& items);
    const QList<clipboard::ClipboardItem>& items() const { return m_items; }
    /// Forgets the measures and pictures of all other entries.
    void keepOnly(const QList<clipboard::ClipboardItem>& items) { m_rows.keepOnly(items); }
    void setPreferences(const RowPreferences& preferences);
    void setView(QSize size, double devicePixelRatio);

    /// The row that the keyboard has selected; an index beyond the list is none.
    void setSelectedIndex(int index, Motion motion);
    int selectedIndex() const { return m_selectedIndex; }
    /// The row that the pointer has highlighted.
    void setHovered(std::optional<QUuid> row, Motion motion);
    const std::optional<QUuid>& hovered() const { return m_hovered; }
    bool isHighlighted(int row) const;
    /// Do highlights fade in or out at this moment? `settled` follows.
    bool isFading() const { return m_highlights.isMoving(); }

    std::optional<int> rowOf(const QUuid& id) const;
    std::optional<int> rowAt(QPoint point) const;
    /// Where the row lies in the view; outside of it when it is scrolled away.
    QRect rowRectangle(int row) const;
    const ListGeometry& geometry() const { return m_geometry; }
    ClipboardRowView rowView(int row);
    double highlight(int row) { return m_rows.of(m_items[row].id).highlight(); }
    ExpandedText& expandedText(int row);
    std::optional<QUrl> link(int row) { return m_rows.link(m_items[row]); }

    void scrollBy(double distance);
    /// Scrolls so that the row is in the middle: in a tenth of a second, if things may move.
    void centreOn(int row);
    /// Scrolls to the selected row, or to the top without one.
    void showSelection();
    void stopGliding() { m_glide.stop(); }
    /// Whether the list may end above the lower edge of the view, after rows have gone from its end.
    void setRoomBelow(ListGeometry::RoomBelow room);

signals:
    void changed();
    /// The list has moved in the course of an animation.
    void glided();
    void settled();

private:
    int rowWidth() const;
    int measuredHeight(int row);
    std::optional<ListGeometry::Hold> hold() const;
    void keep(const std::optional<ListGeometry::Hold>& hold);
    void measureAgain(const QList<QUuid>& rows);
    void measureAllAgain(const std::function<void()>& change);
    void updateHighlights(Motion motion);
    void glide();

    std::function<Motion()> m_motion;
    QList<clipboard::ClipboardItem> m_items;
    RowPreferences m_preferences;
    QSize m_size;
    double m_devicePixelRatio = 1;
    HistoryRows m_rows;
    ListGeometry m_geometry;
    ListGeometry::RoomBelow m_roomBelow = ListGeometry::RoomBelow::Close;
    RowHighlights m_highlights;
    GlidingScroll m_glide;
    QUuid m_glideTarget;
    int m_selectedIndex = 0;
    std::optional<QUuid> m_hovered;
};

} // namespace zamber::popover
