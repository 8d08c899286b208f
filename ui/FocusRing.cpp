// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/FocusRing.h"

#include <QPainter>

#include <algorithm>

namespace zamber::ui {

namespace {

constexpr double RING_WIDTH = 2;
constexpr double GAP_WIDTH = 1.5;

/// With less of it against the window's ground an accent, such as a bright yellow on white, marks nothing.
constexpr double LEAST_CONTRAST = 2.5;

void strokeInside(QPainter& painter, const QRectF& box, double radius, double inset, double width,
                  const QColor& color) {
    const double middle = inset + width / 2;
    painter.setPen(QPen(color, width));
    const double corner = std::max(0.0, radius - middle);
    painter.drawRoundedRect(box.adjusted(middle, middle, -middle, -middle), corner, corner);
}

} // namespace

void paintFocusRing(QPainter& painter, const QRectF& box, double radius, const Palette& palette) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const bool isAccentSeen = contrastRatio(palette.accent, palette.ultraThinMaterial) >= LEAST_CONTRAST;
    strokeInside(painter, box, radius, 0, RING_WIDTH, isAccentSeen ? palette.accent : palette.primary);
    strokeInside(painter, box, radius, RING_WIDTH, GAP_WIDTH, palette.ultraThinMaterial);
    painter.restore();
}

} // namespace zamber::ui
