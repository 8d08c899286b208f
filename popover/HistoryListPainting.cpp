// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "HistoryListExpansion.h"

#include "platform/Scheduler.h"
#include "platform/Symbols.h"
#include "popover/HistoryListWidget.h"
#include "ui/Typography.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {
constexpr int HEADER_PADDING_HORIZONTAL = 8;
constexpr int HEADER_PADDING_TOP = 8;
constexpr int HEADER_SPACING = 4;
} // namespace

void HistoryListWidget::paintEvent(QPaintEvent* event) {
    if (m_stack.count() == 0) {
        return;
    }
    QPainter painter(this);
    const int last = m_stack.indexAt(m_scrollOffset + height());
    for (int element = m_stack.indexAt(m_scrollOffset); element <= last; ++element) {
        const auto row = m_sections.rowOfElement(element);
        const int top = m_stack.top(element) - static_cast<int>(std::lround(m_scrollOffset));
        const QRect header(0, top, width(), m_stack.height(element));
        const QRect area = row ? rowRectangle(*row) : header;
        if (!area.intersects(event->rect())) {
            continue;
        }
        if (row) {
            paintRow(painter, area, *row);
        } else {
            paintHeader(painter, area, element == 0);
        }
    }
    if (m_scrollOffset > 0) {
        painter.fillRect(0, 0, width(), 1, ui::faded(m_palette.separator, 0.6)); // more lies above
    }
}

void HistoryListWidget::paintHeader(QPainter& painter, const QRect& area, bool isPinnedHeader) const {
    const QFont font = ui::textFont(10, QFont::DemiBold);
    const QPixmap icon = m_symbols.pixmap(isPinnedHeader ? u"pin.fill"_s : u"clock"_s,
                                          {9, QFont::DemiBold, m_palette.tertiary, devicePixelRatioF()});
    const QSizeF iconSize = icon.deviceIndependentSize();
    const QRect line = area.adjusted(rowRectangle(0).left() + HEADER_PADDING_HORIZONTAL, HEADER_PADDING_TOP, 0, -2);
    painter.drawPixmap(QPointF(line.left(), std::round(line.top() + (line.height() - iconSize.height()) / 2.0)), icon);
    painter.setFont(font);
    painter.setPen(m_palette.tertiary);
    painter.drawText(line.adjusted(static_cast<int>(iconSize.width()) + HEADER_SPACING, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, isPinnedHeader ? u"PINNED"_s : u"RECENT"_s);
}

void HistoryListWidget::paintRow(QPainter& painter, const QRect& area, int row) {
    const ClipboardRowView view = rowView(row);
    const QUuid& id = item(row).id;
    const RowStyle style{
        .palette = m_palette,
        .symbols = m_symbols,
        .devicePixelRatio = devicePixelRatioF(),
        .now = m_clock.now(),
        .highlight = m_highlights.value(id),
        .pressedOver = m_hovered && m_hovered->row == id ? m_hovered->action : std::nullopt,
    };
    if (view.isExpanded()) {
        Expansion& open = expansion(row);
        const ExpandedText text{open.layout, open.scrollOffset};
        view.paint(painter, area, style, &text);
    } else {
        view.paint(painter, area, style, nullptr);
    }
}

} // namespace zamber::popover
