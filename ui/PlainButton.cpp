// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/PlainButton.h"

#include "platform/Symbols.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zamber::ui {

namespace {
constexpr int LABEL_SPACING = 3;
constexpr double GROUND_RADIUS = 6;
} // namespace

PlainButton::PlainButton(const Symbols& symbols, PlainButtonLabel label, QWidget* parent)
    : QAbstractButton(parent)
    , m_symbols(symbols)
    , m_label(std::move(label)) {
    setText(m_label.text);
    setFocusPolicy(Qt::NoFocus);
    setCursor(m_label.pointer == HoverPointer::PointingHand ? Qt::PointingHandCursor : Qt::ArrowCursor);
    setAttribute(Qt::WA_Hover);
}

void PlainButton::setColors(const QColor& label, const Palette& palette) {
    m_color = label;
    m_palette = palette;
    update();
}

QSize PlainButton::sizeHint() const {
    const QPixmap icon =
        m_symbols.pixmap(m_label.symbol, {m_label.symbolPoints, m_label.symbolWeight, Qt::black, devicePixelRatioF()});
    QSize size = icon.deviceIndependentSize().toSize();
    if (!m_label.text.isEmpty()) {
        const QFontMetrics metrics(m_label.font);
        size.rwidth() += LABEL_SPACING + metrics.horizontalAdvance(m_label.text);
        size.setHeight(std::max(size.height(), metrics.height()));
    }
    return size + QSize(2 * GROUND_PADDING, 2 * GROUND_PADDING);
}

void PlainButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? faded(m_palette.primary, 0.14) : m_palette.tertiaryFill);
        painter.drawRoundedRect(rect(), GROUND_RADIUS, GROUND_RADIUS);
    }

    const QColor color = underMouse() ? m_palette.primary : m_color;
    const QPixmap icon =
        m_symbols.pixmap(m_label.symbol, {m_label.symbolPoints, m_label.symbolWeight, color, devicePixelRatioF()});
    const QSizeF iconSize = icon.deviceIndependentSize();
    const double iconLeft = m_label.text.isEmpty() ? (width() - iconSize.width()) / 2.0 : GROUND_PADDING;
    // Beside a text, the middle is that of its capitals.
    const QFontMetricsF metrics(m_label.font);
    const double textTop = std::floor((height() - metrics.height()) / 2);
    const double middle =
        m_label.text.isEmpty() ? height() / 2.0 : textTop + metrics.ascent() - metrics.capHeight() / 2;
    painter.drawPixmap(QPointF(std::round(iconLeft), std::round(middle - iconSize.height() / 2)), icon);

    if (!m_label.text.isEmpty()) {
        painter.setFont(m_label.font);
        painter.setPen(color);
        const int textLeft = GROUND_PADDING + static_cast<int>(iconSize.width()) + LABEL_SPACING;
        painter.drawText(rect().adjusted(textLeft, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, m_label.text);
    }
}

void PlainButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void PlainButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace zamber::ui
