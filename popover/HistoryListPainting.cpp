// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/Scheduler.h"
#include "platform/Symbols.h"
#include "popover/HistoryListWidget.h"
#include "popover/RowMetrics.h"
#include "ui/Typography.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {
constexpr int HEADER_PADDING_HORIZONTAL = 8;
constexpr int HEADER_SPACING = 4;
} // namespace

void HistoryListWidget::paintEvent(QPaintEvent* event) {
    const ListGeometry& geometry = m_layout.geometry();
    if (geometry.isEmpty()) {
        return;
    }
    QPainter painter(this);
    const auto [first, last] = geometry.elementsInView();
    for (int element = first; element <= last; ++element) {
        const auto row = geometry.sections().rowOfElement(element);
        const ListGeometry::Span span = geometry.elementSpan(element);
        const QRect area = row ? rowRectangle(*row) : QRect(0, span.top, width(), span.height);
        if (!area.intersects(event->rect())) {
            continue;
        }
        if (row) {
            paintRow(painter, area, *row);
        } else {
            paintHeader(painter, area, element == 0);
        }
    }
    if (geometry.offset() > 0) {
        painter.fillRect(0, 0, width(), 1, ui::faded(m_palette.separator, 0.6)); // more lies above
    }
}

void HistoryListWidget::paintHeader(QPainter& painter, const QRect& area, bool isPinnedHeader) const {
    const QFont font = ui::textFont(10, QFont::DemiBold);
    const QPixmap icon = m_symbols.pixmap(isPinnedHeader ? u"pin.fill"_s : u"clock"_s,
                                          {9, QFont::DemiBold, m_palette.tertiary, devicePixelRatioF()});
    const QSizeF iconSize = icon.deviceIndependentSize();
    const QRect line = area.adjusted(rowRectangle(0).left() + HEADER_PADDING_HORIZONTAL, rowmetrics::HEADER_PADDING_TOP,
                                     0, -rowmetrics::HEADER_PADDING_BOTTOM);
    painter.drawPixmap(QPointF(line.left(), std::round(line.top() + (line.height() - iconSize.height()) / 2.0)), icon);
    painter.setFont(font);
    painter.setPen(m_palette.tertiary);
    painter.drawText(line.adjusted(static_cast<int>(iconSize.width()) + HEADER_SPACING, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, isPinnedHeader ? u"PINNED"_s : u"RECENT"_s);
}

void HistoryListWidget::paintRow(QPainter& painter, const QRect& area, int row) {
    const ClipboardRowView view = m_layout.rowView(row);
    const QUuid& id = items()[row].id;
    const RowStyle style{
        .palette = m_palette,
        .symbols = m_symbols,
        .devicePixelRatio = devicePixelRatioF(),
        .now = m_clock.now(),
        .highlight = m_layout.highlight(row),
        .hoveredAction = m_pointer.hoveredAction(id),
        .pressed = m_pointer.pressedPart(id),
    };
    view.paint(painter, area, style, view.isExpanded() ? &m_layout.expandedText(row) : nullptr);
}

} // namespace zamber::popover
