// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ListPointer.h"

#include <utility>

namespace zamber::popover {

using RoomBelow = ListGeometry::RoomBelow;

ListPointer::ListPointer(HistoryLayout& layout, Scheduler& scheduler, std::function<Motion()> motion)
    : m_layout(layout)
    , m_motion(std::move(motion))
    , m_scrolling(scheduler, [this] { scrollingPaused(); }) {
    connect(&layout, &HistoryLayout::settled, this, [this] {
        if (std::exchange(m_isHoverAwaited, false)) {
            hoverWhatIsUnderneath();
        }
    });
    connect(&layout, &HistoryLayout::glided, this, &ListPointer::listGlided);
}

std::optional<RowTarget> ListPointer::targetAt(QPoint point) const {
    const auto row = m_layout.rowAt(point);
    if (!row) {
        return std::nullopt;
    }
    return RowTarget{m_layout.items()[*row].id, m_layout.rowView(*row).actionAt(m_layout.rowRectangle(*row), point)};
}

void ListPointer::hover(std::optional<RowTarget> target, Motion motion) {
    m_hovered = target;
    m_layout.setHovered(target ? std::optional(target->row) : std::nullopt, motion);
}

void ListPointer::moved(QPoint point) {
    if (m_ignoredPoint && (point - *m_ignoredPoint).manhattanLength() <= ScrollPhase::TREMOR_POINTS) {
        return;
    }
    m_point = point;
    m_layout.setRoomBelow(RoomBelow::Leave);
    if (!m_scrolling.isEndedBy(point)) {
        return;
    }
    m_ignoredPoint.reset();
    m_isHoverAwaited = false;
    m_scrolling.end();
    hover(targetAt(point), m_motion());
}

void ListPointer::left() {
    m_scrolling.end();
    m_isHoverAwaited = false;
    m_point.reset();
    m_ignoredPoint.reset();
    hover(std::nullopt, m_motion());
    m_layout.setRoomBelow(RoomBelow::Close);
}

void ListPointer::pressed(QPoint point, bool isMainButton) {
    m_scrolling.end();
    moved(point);
    m_pressed = isMainButton && !m_ignoredPoint ? m_hovered : std::nullopt;
}

std::optional<RowTarget> ListPointer::released(QPoint point, bool isMainButton) {
    const auto pressed = std::exchange(m_pressed, std::nullopt);
    return isMainButton && pressed == targetAt(point) ? pressed : std::nullopt;
}

void ListPointer::wheelTurned(QPoint point, double distance) {
    const auto row = m_scrolling.isActive() ? std::nullopt : m_layout.rowAt(point);
    if (row) {
        const ClipboardRowView view = m_layout.rowView(*row);
        if (view.isExpanded() && view.textArea(m_layout.rowRectangle(*row)).contains(point) &&
            m_layout.expandedText(*row).scrollBy(distance)) {
            emit m_layout.changed();
            return;
        }
    }
    const double before = m_layout.geometry().offset();
    m_layout.scrollBy(distance);
    if (m_scrolling.isActive() || m_layout.geometry().offset() != before) {
        m_point = point;
        m_ignoredPoint.reset();
        m_isHoverAwaited = false;
        m_scrolling.wheelTurned(point);
        m_layout.setRoomBelow(RoomBelow::Leave);
    }
}

void ListPointer::scrollingPaused() {
    const auto underneath = m_point ? targetAt(*m_point) : std::nullopt;
    if (underneath && m_hovered && underneath->row == m_hovered->row) {
        hover(underneath, m_motion());
        return;
    }
    // First the row that was scrolled away shrinks, then the row that is under the pointer by then grows: both at once
    // would move the latter away from the pointer.
    hover(std::nullopt, m_motion());
    m_isHoverAwaited = m_layout.isFading();
    if (!m_isHoverAwaited) {
        hoverWhatIsUnderneath();
    }
}

void ListPointer::hoverWhatIsUnderneath() {
    if (m_point) {
        hover(targetAt(*m_point), m_motion());
    }
}

void ListPointer::endScrolling() {
    if (m_scrolling.isActive() || m_isHoverAwaited) {
        m_scrolling.end();
        m_isHoverAwaited = false;
        hover(std::nullopt, m_motion());
    }
}

void ListPointer::listGlided() {
    const auto underneath = m_point ? m_layout.rowAt(*m_point) : std::nullopt;
    if (m_hovered && (!underneath || m_layout.items()[*underneath].id != m_hovered->row)) {
        hover(std::nullopt, m_motion());
    }
}

void ListPointer::reset() {
    m_scrolling.end();
    m_isHoverAwaited = false;
    m_point.reset();
    m_ignoredPoint.reset();
    m_pressed.reset();
    hover(std::nullopt, Motion::Immediate);
    m_layout.setRoomBelow(RoomBelow::Close);
}

std::optional<RowAction> ListPointer::hoveredAction(const QUuid& row) const {
    return m_hovered && m_hovered->row == row ? m_hovered->action : std::nullopt;
}

PressedPart ListPointer::pressedPart(const QUuid& row) const {
    if (!m_pressed || m_pressed != m_hovered || m_pressed->row != row) {
        return PressedPart::None;
    }
    return m_pressed->action ? PressedPart::Action : PressedPart::Row;
}

void ListPointer::setItems(const QList<clipboard::ClipboardItem>& items) {
    const auto before = m_hovered;
    m_layout.setItems(items);
    if (!before || !m_point) {
        return;
    }
    const auto successor = m_layout.hovered();
    if (m_scrolling.isActive()) {
        hover(successor ? std::optional(RowTarget{*successor, {}}) : std::nullopt, Motion::Immediate);
        return;
    }
    const auto target = targetAt(*m_point);
    const bool isOnSuccessor = target && successor == target->row;
    hover(isOnSuccessor ? target : std::nullopt, Motion::Immediate);
    if (!isOnSuccessor || target->action != before->action) {
        m_ignoredPoint = m_point;
    }
}

} // namespace zamber::popover
