// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRectF>

namespace zamber::wayland {

/// The part of a screen that is free, in points, given the free part of the desktop with its width and height as 1.
/// All of the screen where that is not plausible.
QRect freeAreaOf(const QRect& screen, const QRect& desktop, const QRectF& freePart);

/// What was told of a screen, without what lies outside it. All of the screen where less than half of its width or
/// height would be left: then what was told is about another screen, or about this one as it was before.
QRect plausibleArea(const QRect& screen, const QRect& told);

} // namespace zamber::wayland
