// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace zamber::macos {

/// Converts a rectangle from the system's coordinates, which begin at the lower left corner of the first screen and
/// grow upwards, to Qt's, which begin at its upper left corner and grow downwards.
inline QRect fromSystemCoordinates(const QRectF& rectangle, double firstScreenHeight) {
    // A QRectF's top is its smaller coordinate, here the lower edge.
    return QRectF(rectangle.x(), firstScreenHeight - rectangle.y() - rectangle.height(), rectangle.width(),
                  rectangle.height())
        .toRect();
}

/// Converts a point from Qt's coordinates to the system's.
inline QPointF toSystemCoordinates(QPointF point, double firstScreenHeight) {
    return {point.x(), firstScreenHeight - point.y()};
}

} // namespace zamber::macos
