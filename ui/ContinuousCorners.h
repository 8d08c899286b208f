// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRectF>

namespace zamber::ui {

/// A box whose corners curve ever more from the straight edge on, as parts of superellipses, instead of passing into
/// an arc all at once. In the middle of each corner it is as round as an arc of the radius (points).
QPainterPath continuousRoundedRect(const QRectF& box, double radius);

} // namespace zamber::ui
