// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/BorderedButton.h"

#include "ui/FocusRing.h"
#include "ui/Typography.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace zamber::ui {

namespace {

/// In points.
struct Measures {
    int fontSize;
    int height;
    int paddingHorizontal;
    double radius;
};

Measures measures(ControlSize size) {
    switch (size) {
    case ControlSize::Large:
        return {12, 28, 16, 7};
    case ControlSize::Regular:
        return {13, 24, 12, 6};
    case ControlSize::Small:
        return {11, 20, 9, 5};
    case ControlSize::Mini:
        break;
    }
    return {10, 16, 7, 4};
}

QFont fontFor(const ButtonStyle& style) {
    const bool isStrong = style.prominence == ButtonStyle::Prominence::Prominent || style.size == ControlSize::Large;
    return textFont(measures(style.size).fontSize, isStrong ? QFont::DemiBold : QFont::Medium);
}

} // namespace

BorderedButton::BorderedButton(const QString& text, ButtonStyle style, QWidget* parent)
    : QAbstractButton(parent)
    , m_style(style)
    , m_palette(Palette::light(Qt::blue)) {
    setText(text);
    setAccessibleName(text);
    setFont(fontFor(style));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void BorderedButton::setColors(const Palette& palette) {
    m_palette = palette;
    update();
}

QSize BorderedButton::sizeHint() const {
    const Measures measured = measures(m_style.size);
    return {QFontMetrics(font()).horizontalAdvance(text()) + 2 * measured.paddingHorizontal, measured.height};
}

QColor BorderedButton::groundColor() const {
    const double strength = isDown() ? 1.9 : underMouse() ? 1.45 : 1.0;
    switch (m_style.prominence) {
    case ButtonStyle::Prominence::Prominent:
        return isDown() ? composed(faded(Qt::black, 0.18), m_palette.accentFill)
                        : composed(faded(Qt::white, underMouse() ? 0.06 : 0), m_palette.accentFill);
    case ButtonStyle::Prominence::Destructive:
        return faded(m_palette.red, 0.13 * strength);
    case ButtonStyle::Prominence::Bordered:
        break;
    }
    return faded(m_palette.primary, 0.09 * strength);
}

QColor BorderedButton::textColor() const {
    switch (m_style.prominence) {
    case ButtonStyle::Prominence::Prominent:
        return m_palette.onAccent;
    case ButtonStyle::Prominence::Destructive:
        return m_palette.red;
    case ButtonStyle::Prominence::Bordered:
        break;
    }
    return m_palette.primary;
}

void BorderedButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) {
        painter.setOpacity(0.45);
    }
    const double radius = m_style.shape == ButtonStyle::Shape::Capsule
                              ? height() / 2.0
                              : std::min(measures(m_style.size).radius, height() / 2.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(groundColor());
    painter.drawRoundedRect(rect(), radius, radius);
    if (hasFocus()) {
        paintFocusRing(painter, rect(), radius, m_palette);
    }
    painter.setPen(textColor());
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace zamber::ui
