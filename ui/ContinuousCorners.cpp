// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/ContinuousCorners.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zamber::ui {

namespace {
/// How far from the corner the curve begins, in radii.
constexpr double REACH = 1.528;
constexpr int STEPS = 12;
} // namespace

QPainterPath continuousRoundedRect(const QRectF& box, double radius) {
    const double reach = std::min({REACH * radius, box.width() / 2, box.height() / 2});
    if (reach <= 0) {
        QPainterPath square;
        square.addRect(box);
        return square;
    }
    // The exponent with which the curve passes where the arc would: as far from the corner on the diagonal.
    const double share = 1 - std::min(radius / reach, 1.0) * (1 - std::numbers::sqrt2 / 2);
    const double power = -std::numbers::ln2 / std::log(share);

    QPolygonF outline;
    // Around the box from the end of the upper edge on, clockwise; right and down are positive.
    const struct {
        QPointF centre;
        QPointF from;
        QPointF to;
    } corners[] = {
        {QPointF(box.right() - reach, box.top() + reach), QPointF(0, -1), QPointF(1, 0)},
        {QPointF(box.right() - reach, box.bottom() - reach), QPointF(1, 0), QPointF(0, 1)},
        {QPointF(box.left() + reach, box.bottom() - reach), QPointF(0, 1), QPointF(-1, 0)},
        {QPointF(box.left() + reach, box.top() + reach), QPointF(-1, 0), QPointF(0, -1)},
    };
    for (const auto& corner : corners) {
        for (int step = 0; step <= STEPS; ++step) {
            const double angle = std::numbers::pi / 2 * step / STEPS;
            outline.append(corner.centre + corner.from * (reach * std::pow(std::cos(angle), 2 / power)) +
                           corner.to * (reach * std::pow(std::sin(angle), 2 / power)));
        }
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

} // namespace zamber::ui
