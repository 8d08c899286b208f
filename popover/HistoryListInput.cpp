// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "HistoryListExpansion.h"

#include "platform/Scheduler.h"
#include "popover/HistoryListWidget.h"

#include <QContextMenuEvent>
#include <QCursor>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {
/// How far one notch of a wheel goes, in points.
constexpr double POINTS_PER_NOTCH = 56;
constexpr double ANGLE_PER_NOTCH = 120;
} // namespace

std::optional<int> HistoryListWidget::rowAt(QPoint point) const {
    if (m_stack.count() == 0 || !rect().contains(point)) {
        return std::nullopt;
    }
    const auto row = m_sections.rowOfElement(m_stack.indexAt(point.y() + m_scrollOffset));
    return row && rowRectangle(*row).contains(point) ? row : std::nullopt;
}

std::optional<HistoryListWidget::Target> HistoryListWidget::targetAt(QPoint point) {
    const auto row = rowAt(point);
    if (!row) {
        return std::nullopt;
    }
    return Target{item(*row).id, rowView(*row).actionAt(rowRectangle(*row), point)};
}

void HistoryListWidget::setPointer(std::optional<QPoint> point) {
    m_pointer = point;
    const auto target = point ? targetAt(*point) : std::nullopt;
    if (target == m_hovered) {
        return;
    }
    const bool isSameRow = target && m_hovered && target->row == m_hovered->row;
    m_hovered = target;
    if (!isSameRow) {
        updateHighlights(motion());
    }
    update();
}

void HistoryListWidget::forgetHoverThatMovedAway() {
    if (!m_hovered) {
        return;
    }
    const auto underneath = rowAt(mapFromGlobal(QCursor::pos()));
    if (!underneath || item(*underneath).id != m_hovered->row) {
        m_hovered.reset();
        updateHighlights(motion());
    }
}

QRect HistoryListWidget::actionRectangle(int index, RowAction action) {
    return rowView(index).actionArea(rowRectangle(index), action);
}

QRect HistoryListWidget::expandedTextRectangle(int index) {
    return rowView(index).textArea(rowRectangle(index));
}

bool HistoryListWidget::isExpanded(int index) {
    return rowView(index).isExpanded();
}

QStringList HistoryListWidget::describe(int index) {
    const ClipboardRowView view = rowView(index);
    QStringList facts{view.typeIcon().meaning};
    facts.append(view.counts());
    facts.append(view.age(m_clock.now()));
    facts.removeAll(QString());
    facts.removeAll(u"·"_s);
    return facts;
}

void HistoryListWidget::choose(int index) {
    const clipboard::ClipboardItem copy = item(index); // the list may change while it is told
    emit chosen(copy);
}

void HistoryListWidget::perform(int index, RowAction action) {
    const clipboard::ClipboardItem copy = item(index);
    switch (action) {
    case RowAction::OpenLink:
        if (const auto address = link(index)) {
            emit openLinkRequested(*address);
        }
        break;
    case RowAction::Pin:
        emit pinRequested(copy);
        break;
    case RowAction::Delete:
        emit deleteRequested(copy);
        break;
    }
}

void HistoryListWidget::mouseMoveEvent(QMouseEvent* event) {
    setPointer(event->position().toPoint());
}

void HistoryListWidget::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    setPointer(std::nullopt);
}

void HistoryListWidget::mousePressEvent(QMouseEvent* event) {
    setPointer(event->position().toPoint());
    m_pressed = event->button() == Qt::LeftButton ? m_hovered : std::nullopt;
}

void HistoryListWidget::mouseReleaseEvent(QMouseEvent* event) {
    const auto released = targetAt(event->position().toPoint());
    const auto pressed = std::exchange(m_pressed, std::nullopt);
    if (event->button() != Qt::LeftButton || !pressed || pressed != released) {
        return;
    }
    const int row = rowOf(pressed->row).value_or(0);
    if (pressed->action) {
        perform(row, *pressed->action);
    } else {
        choose(row);
    }
}

void HistoryListWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (const auto row = rowAt(event->pos())) {
        emit menuRequested(*row, event->globalPos());
    }
}

void HistoryListWidget::wheelEvent(QWheelEvent* event) {
    const double distance = event->pixelDelta().isNull() ? event->angleDelta().y() / ANGLE_PER_NOTCH * POINTS_PER_NOTCH
                                                         : event->pixelDelta().y();
    const QPoint point = event->position().toPoint();
    const auto row = rowAt(point);
    if (row && isExpanded(*row) && expandedTextRectangle(*row).contains(point)) {
        Expansion& open = expansion(*row);
        const double shown = expandedTextRectangle(*row).height();
        const double whole = open.layout.height(open.scrollOffset + 2 * shown + std::abs(distance));
        const double wanted = std::clamp(open.scrollOffset - distance, 0.0, std::max(0.0, whole - shown));
        if (wanted != open.scrollOffset) {
            open.scrollOffset = wanted;
            update();
            event->accept();
            return;
        }
    }
    m_glide.stop();
    scrollTo(m_scrollOffset - distance);
    measureVisible();
    setPointer(point);
    update();
    event->accept();
}

void HistoryListWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_expansions.clear();
    invalidateHeights();
}

void HistoryListWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    measureVisible();
}

void HistoryListWidget::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_glide.stop();
    m_hovered.reset();
    m_pressed.reset();
    updateHighlights(Motion::Immediate);
}

} // namespace zamber::popover
