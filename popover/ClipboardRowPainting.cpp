// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/Symbols.h"
#include "popover/ClipboardRowView.h"
#include "popover/ExpandedText.h"
#include "popover/RowMetrics.h"
#include "popover/TextLines.h"
#include "ui/Typography.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace zamber::popover {

using namespace Qt::StringLiterals;
using namespace rowmetrics;

namespace {

constexpr double GROUND_RADIUS = 10;
constexpr double GROUND_OPACITY = 0.04;
constexpr double BORDER_OPACITY = 0.06;
constexpr double HIGHLIGHT_OPACITY = 0.1;
constexpr double HOVERED_ACTION_OPACITY = 0.16;
constexpr double PRESSED_ACTION_OPACITY = 0.28;
constexpr double HAIRLINE = 0.5;
constexpr double THUMBNAIL_RADIUS = 4;
constexpr double ACTION_RADIUS = 5;
constexpr double SMALLEST_ACTION = 0.9;
constexpr int SCROLL_THUMB_WIDTH = 3;
constexpr int SCROLL_THUMB_MINIMUM = 18;

QColor mixed(const QColor& from, const QColor& to, double part) {
    const auto channel = [part](float start, float end) { return start + (end - start) * static_cast<float>(part); };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()));
}

/// Draws a symbol in the middle of a box, on whole device pixels.
void drawCentred(QPainter& painter, const QRectF& box, const QPixmap& symbol) {
    const QSizeF size = symbol.deviceIndependentSize();
    const double ratio = symbol.devicePixelRatio();
    const auto snapped = [ratio](double value) { return std::round(value * ratio) / ratio; };
    painter.drawPixmap(QPointF(snapped(box.x() + (box.width() - size.width()) / 2),
                               snapped(box.y() + (box.height() - size.height()) / 2)),
                       symbol);
}

void paintHairline(QPainter& painter, const QRectF& box, double radius, const QColor& color) {
    constexpr double half = HAIRLINE / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, HAIRLINE));
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), radius - half, radius - half);
}

void drawLine(QPainter& painter, QPointF topLeft, const PreparedLine& text) {
    text.draw(painter, QPointF(topLeft.x(), std::round(topLeft.y())));
}

} // namespace

void ClipboardRowView::paint(QPainter& painter, const QRect& row, const RowStyle& style,
                             ExpandedText* expandedText) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter, row, style);

    const TypeIcon icon = typeIcon();
    drawCentred(
        painter, QRectF(row.left() + rowmetrics::PADDING_HORIZONTAL, row.top(), rowmetrics::ICON_WIDTH, row.height()),
        style.symbols.pixmap(icon.symbol, {10, QFont::Medium, style.palette.*icon.color, style.devicePixelRatio}));
    paintContent(painter, row, style, expandedText);
    paintTrailing(painter, row, style);
    painter.restore();
}

void ClipboardRowView::paintGround(QPainter& painter, const QRect& row, const RowStyle& style) const {
    const ui::Palette& palette = style.palette;
    painter.setPen(Qt::NoPen);
    // Mixed beforehand instead of drawn translucent: Qt hands large translucent shapes to other threads and waits.
    const QColor quiet = ui::composed(palette.primaryAt(GROUND_OPACITY), palette.ultraThinMaterial);
    const QColor lit = ui::composed(ui::faded(palette.accent, HIGHLIGHT_OPACITY), palette.ultraThinMaterial);
    QColor ground = mixed(quiet, lit, style.highlight);
    if (style.pressed == PressedPart::Row) {
        ground = ui::composed(ui::faded(palette.accent, HIGHLIGHT_OPACITY), ground);
    }
    // The border is what the ground leaves of a larger one in its colour: a line that long takes seven times as long.
    painter.setBrush(ui::composed(palette.primaryAt(BORDER_OPACITY), ground));
    painter.drawRoundedRect(row, GROUND_RADIUS, GROUND_RADIUS);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(row).adjusted(HAIRLINE, HAIRLINE, -HAIRLINE, -HAIRLINE), GROUND_RADIUS - HAIRLINE,
                            GROUND_RADIUS - HAIRLINE);
}

void ClipboardRowView::paintContent(QPainter& painter, const QRect& row, const RowStyle& style,
                                    ExpandedText* text) const {
    const QRect area = contentArea(row);
    if (showsThumbnail()) {
        paintThumbnail(painter, area, style);
    } else if (showsHost()) {
        paintLink(painter, area, style);
    } else {
        painter.save();
        painter.setClipRect(row.adjusted(0, 1, 0, -1), Qt::IntersectClip);
        paintText(painter, area, style, text);
        painter.restore();
    }
}

void ClipboardRowView::paintThumbnail(QPainter& painter, const QRect& area, const RowStyle& style) const {
    const QRectF box(QPointF(area.left(), area.top() + (area.height() - THUMBNAIL_SIZE.height()) / 2.0),
                     THUMBNAIL_SIZE);
    QPainterPath shape;
    shape.addRoundedRect(box, THUMBNAIL_RADIUS, THUMBNAIL_RADIUS);
    if (m_thumbnail.state == ThumbnailState::Ready) {
        QBrush picture(m_thumbnail.image);
        picture.setTransform(
            QTransform::fromTranslate(box.left(), box.top())
                .scale(box.width() / m_thumbnail.image.width(), box.height() / m_thumbnail.image.height()));
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.fillPath(shape, picture);
    } else {
        painter.fillPath(shape, style.palette.tertiaryFill);
    }
    paintHairline(painter, box, THUMBNAIL_RADIUS, style.palette.separator);
}

void ClipboardRowView::paintLink(QPainter& painter, const QRect& area, const RowStyle& style) const {
    const QFont hostFont = ui::textFont(12, QFont::Medium);
    painter.setPen(style.palette.blue);
    drawLine(painter, area.topLeft(), preparedLines(linkTitle(), hostFont, area.width(), 1).value(0));

    if (hasLinkPreview()) {
        const int second = lineHeight(hostFont) + rowmetrics::LINK_SPACING;
        const QFont small = ui::textFont(10);
        painter.setPen(style.palette.secondary);
        drawLine(painter, area.topLeft() + QPoint(0, second),
                 preparedLines(preview(), small, area.width(), 1).value(0));
    }
}

void ClipboardRowView::paintText(QPainter& painter, const QRect& area, const RowStyle& style,
                                 ExpandedText* text) const {
    const QFont font = ui::textFont(12);
    const int height = lineHeight(font);
    const QRectF shown = QRectF(area).adjusted(0, 0, 0, -countsHeight());

    painter.setPen(style.palette.primary);
    if (text != nullptr) {
        painter.save();
        painter.setClipRect(shown, Qt::IntersectClip);
        text->draw(painter, shown.topLeft(), shown.height());
        painter.restore();
        const double whole = text->wholeHeight();
        if (whole > text->shownHeight() + 1) {
            const double thumb = std::max<double>(SCROLL_THUMB_MINIMUM, shown.height() * shown.height() / whole);
            const double way = std::clamp(text->scrollOffset() / (whole - shown.height()), 0.0, 1.0);
            painter.setPen(Qt::NoPen);
            painter.setBrush(ui::faded(style.palette.primary, 0.3));
            painter.drawRoundedRect(
                QRectF(shown.right() + 3, shown.top() + way * (shown.height() - thumb), SCROLL_THUMB_WIDTH, thumb),
                SCROLL_THUMB_WIDTH / 2.0, SCROLL_THUMB_WIDTH / 2.0);
        }
    } else {
        QPointF place = shown.topLeft();
        for (const PreparedLine& line : previewLines(static_cast<int>(shown.width()))) {
            drawLine(painter, place, line);
            place.ry() += height;
        }
    }

    paintCounts(painter, shown.bottomLeft() + QPointF(0, rowmetrics::COUNTS_SPACING), style);
}

void ClipboardRowView::paintCounts(QPainter& painter, QPointF topLeft, const RowStyle& style) const {
    const QFont font = ui::textFont(9, QFont::Medium);
    painter.setPen(style.palette.tertiary);
    for (const QString& part : counts()) {
        const PreparedLine text = preparedLine(part, font);
        drawLine(painter, topLeft, text);
        topLeft.rx() += text.width() + rowmetrics::COUNT_SPACING;
    }
}

void ClipboardRowView::paintTrailing(QPainter& painter, const QRect& row, const RowStyle& style) const {
    const QRect ageBox(row.right() + 1 - rowmetrics::PADDING_HORIZONTAL - rowmetrics::AGE_WIDTH, row.top(),
                       rowmetrics::AGE_WIDTH, row.height());
    const QFont ageFont = ui::textFont(10, QFont::Medium);
    const PreparedLine ageText = preparedLine(age(style.now), ageFont);
    painter.setPen(style.palette.quaternary);
    drawLine(painter,
             QPointF(ageBox.right() + 1 - ageText.width(), ageBox.center().y() + 1 - lineHeight(ageFont) / 2.0),
             ageText);

    if (style.highlight > 0) {
        for (const RowAction action : actions()) {
            paintAction(painter, row, action, style);
        }
    }
    if (m_item.isPinned && style.highlight < 1) {
        painter.setOpacity(1 - style.highlight);
        drawCentred(
            painter,
            QRectF(ageBox.left() - rowmetrics::SPACING - rowmetrics::PIN_WIDTH, row.top(), rowmetrics::PIN_WIDTH,
                   row.height()),
            style.symbols.pixmap(u"pin.fill"_s, {9, QFont::Normal, style.palette.orange, style.devicePixelRatio}));
        painter.setOpacity(1);
    }
}

ClipboardRowView::ActionSymbol ClipboardRowView::symbolOf(RowAction action, const ui::Palette& palette,
                                                          bool isUnderPointer) const {
    switch (action) {
    case RowAction::OpenLink:
        return {u"safari"_s, palette.blue};
    case RowAction::Pin:
        return m_item.isPinned ? ActionSymbol{u"pin.slash.fill"_s, palette.orange}
                               : ActionSymbol{u"pin"_s, palette.secondary};
    case RowAction::Delete:
        break;
    }
    return {u"trash"_s, ui::faded(palette.red, isUnderPointer ? 1.0 : 0.7)};
}

void ClipboardRowView::paintAction(QPainter& painter, const QRect& row, RowAction action, const RowStyle& style) const {
    const ui::Palette& palette = style.palette;
    const bool isUnderPointer = style.hoveredAction == action;
    const ActionSymbol drawn = symbolOf(action, palette, isUnderPointer);

    const QRectF box = actionArea(row, action);
    painter.save();
    painter.setOpacity(style.highlight);
    const double scale = SMALLEST_ACTION + (1 - SMALLEST_ACTION) * style.highlight;
    painter.translate(box.center());
    painter.scale(scale, scale);
    painter.translate(-box.center());
    painter.setPen(Qt::NoPen);
    const bool isPressed = isUnderPointer && style.pressed == PressedPart::Action;
    painter.setBrush(isUnderPointer
                         ? ui::faded(palette.primary, isPressed ? PRESSED_ACTION_OPACITY : HOVERED_ACTION_OPACITY)
                         : palette.tertiaryFill);
    painter.drawRoundedRect(box, ACTION_RADIUS, ACTION_RADIUS);
    drawCentred(painter, box,
                style.symbols.pixmap(drawn.name, {10, QFont::Medium, drawn.color, style.devicePixelRatio}));
    painter.restore();
}

} // namespace zamber::popover
