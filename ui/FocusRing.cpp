// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/FocusRing.h"

#include <QPainter>

#include <algorithm>

namespace zamber::ui {

namespace {

constexpr double RING_WIDTH = 2;
constexpr double GAP_WIDTH = 1.5;

constexpr double LEAST_CONTRAST = 3;
constexpr double LEAST_CONTRAST_WITH_QUIET_GROUND = 2.2;
constexpr double QUIET_GROUND_OPACITY = 0.2; // of a switch that is off

/// The accent, but for one that is as bright as the window's ground, or as grey as the controls are.
QColor ringColor(const Palette& palette) {
    const QColor quiet = composed(faded(palette.primary, QUIET_GROUND_OPACITY), palette.ultraThinMaterial);
    const bool isSeen = contrastRatio(palette.accent, palette.ultraThinMaterial) >= LEAST_CONTRAST &&
                        contrastRatio(palette.accent, quiet) >= LEAST_CONTRAST_WITH_QUIET_GROUND;
    return isSeen ? palette.accent : composed(palette.primary, palette.ultraThinMaterial);
}

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
    strokeInside(painter, box, radius, 0, RING_WIDTH, ringColor(palette));
    strokeInside(painter, box, radius, RING_WIDTH, GAP_WIDTH, palette.ultraThinMaterial);
    painter.restore();
}

} // namespace zamber::ui
