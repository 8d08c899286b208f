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

/// The pointer over the list: the row that it highlights, the target of a click, the turns of the wheel. Points, in the
/// view; needs no window.
class ListPointer final : public QObject {
public:
    /// `motion` is asked whether things may move at this moment. All arguments outlive this object.
    ListPointer(HistoryLayout& layout, Scheduler& scheduler, std::function<Motion()> motion);

    void moved(QPoint point);
    void left();
    void pressed(QPoint point, bool isMainButton);
    /// The target of the click, if the button was pressed on the same one.
    std::optional<RowTarget> released(QPoint point, bool isMainButton);
    /// The wheel was turned by that distance; down is positive.
    void wheelTurned(QPoint point, double distance);

    /// Lists other entries. The pointer highlights and hits the row that has taken the place of the one it was on; if
    /// that lies elsewhere, a click does nothing until the pointer is moved.
    void setItems(const QList<clipboard::ClipboardItem>& items);
    /// To be called when the keyboard moves the list.
    void endScrolling();
    void reset();

    /// The small button under the pointer in that row.
    std::optional<RowAction> hoveredAction(const QUuid& row) const;
    /// The part of the row that is pressed; none while the pointer has left it.
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
    bool m_isHoverAwaited = false;        ///< until the row that was scrolled away has faded out
    std::optional<QPoint> m_point;        ///< while the pointer is over the list
    std::optional<QPoint> m_ignoredPoint; ///< where another row has moved under the pointer; no click hits it
    std::optional<RowTarget> m_hovered;
    std::optional<RowTarget> m_pressed;
};

} // namespace zamber::popover
