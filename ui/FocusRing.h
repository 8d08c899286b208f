// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QRectF>

class QPainter;

namespace zamber::ui {

/// Draws the ring that marks the control with the keyboard focus, just inside the rounded box (points). Two lines, one
/// in the accent, or in the text's colour where the accent would not be seen, and one in the window's ground, so that
/// it is seen on every ground, the accent's own included.
void paintFocusRing(QPainter& painter, const QRectF& box, double radius, const Palette& palette);

} // namespace zamber::ui
