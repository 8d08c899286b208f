// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/HistoryLayout.h"
#include "popover/ScrollPhase.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <optional>

namespace zamber::popover {

/// A row that the pointer is on, and the small button in it if it is on one.
struct RowTarget {
    QUuid row;
    std::optional<RowAction> action;
    bool operator==(const RowTarget&) const = default;
};

/// What the pointer does to the list: which row it highlights, what a click hits, where the wheel goes. Points, in the
/// view; needs no window.
class ListPointer final : public QObject {
public:
    /// `motion` is asked whether things may move at this moment. All arguments outlive this object.
    ListPointer(HistoryLayout& layout, Scheduler& scheduler, std::function<Motion()> motion);

    void moved(QPoint point);
    void left();
    void pressed(QPoint point, bool isMainButton);
    /// What was clicked, if the button was pressed on the same.
    std::optional<RowTarget> released(QPoint point, bool isMainButton);
    /// The wheel was turned by that distance; down is positive.
    void wheelTurned(QPoint point, double distance);

    /// Lists other entries. The pointer highlights and hits the row that has taken the place of the one it was on; if
    /// that lies elsewhere, a click does nothing until the pointer is moved.
    void setItems(const QList<clipboard::ClipboardItem>& items);
    /// The keyboard moves the list from now on.
    void endScrolling();
    void reset();

    /// The small button under the pointer in that row.
    std::optional<RowAction> hoveredAction(const QUuid& row) const;
    /// What of the row is pressed; nothing while the pointer has left what it was pressed on.
    PressedPart pressedPart(const QUuid& row) const;

private:
    std::optional<RowTarget> targetAt(QPoint point) const;
    void hover(std::optional<RowTarget> target, Motion motion);
    void scrollingPaused();
    void hoverWhatIsUnderneath();
    void listGlided();

    HistoryLayout& m_layout;
    std::function<Motion()> m_motion;
    ScrollPhase m_scrolling;
    bool m_isHoverAwaited = false;        ///< until what the wheel has left behind has faded out
    std::optional<QPoint> m_point;        ///< while the pointer is over the list
    std::optional<QPoint> m_ignoredPoint; ///< where rows have moved under the pointer that are not to be hit
    std::optional<RowTarget> m_hovered;
    std::optional<RowTarget> m_pressed;
};

} // namespace zamber::popover
