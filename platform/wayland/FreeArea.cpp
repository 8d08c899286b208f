// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/FreeArea.h"

#include <QPoint>

#include <cmath>

namespace zamber::wayland {

namespace {

/// Less than a point, and more than what is lost by dividing and multiplying again.
constexpr double TOLERANCE = 1e-3;

} // namespace

QRect freeAreaOf(const QRect& screen, const QRect& desktop, const QRectF& freePart) {
    const QPoint start(static_cast<int>(std::ceil(desktop.x() + freePart.left() * desktop.width() - TOLERANCE)),
                       static_cast<int>(std::ceil(desktop.y() + freePart.top() * desktop.height() - TOLERANCE)));
    const QPoint end(static_cast<int>(std::floor(desktop.x() + freePart.right() * desktop.width() + TOLERANCE)),
                     static_cast<int>(std::floor(desktop.y() + freePart.bottom() * desktop.height() + TOLERANCE)));
    return plausibleArea(screen, QRect(start, QSize(end.x() - start.x(), end.y() - start.y())));
}

QRect plausibleArea(const QRect& screen, const QRect& told) {
    const QRect free = told & screen;
    const bool isPlausible = 2 * free.width() >= screen.width() && 2 * free.height() >= screen.height();
    return isPlausible ? free : screen;
}

} // namespace zamber::wayland
