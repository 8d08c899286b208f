// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/WorkArea.h"

#include "platform/freedesktop/popover/WindowSystem.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace zamber::freedesktop::popover {

QRect workAreaOf(const QScreen& screen, const WindowSystem& windowSystem) {
    const QRect available = screen.availableGeometry();
    if (const std::optional<QRect> free = windowSystem.freeArea(screen)) {
        return *free & available;
    }
    if (QGuiApplication::screens().size() < 2) {
        return available;
    }
    // A screen begins at the same place in points and in pixels; only what lies inside it is scaled.
    const QPoint origin = screen.geometry().topLeft();
    const double ratio = screen.devicePixelRatio();
    const QRect free = windowSystem.workArea(QRect(origin, (QSizeF(screen.geometry().size()) * ratio).toSize()));
    const QPointF topLeft = QPointF(free.topLeft() - origin) / ratio;
    const QPointF bottomRight = QPointF(free.topLeft() - origin + QPoint(free.width(), free.height())) / ratio;
    const QPoint start(static_cast<int>(std::ceil(topLeft.x())), static_cast<int>(std::ceil(topLeft.y())));
    const QPoint end(static_cast<int>(bottomRight.x()), static_cast<int>(bottomRight.y()));
    return QRect(start + origin, QSize(end.x() - start.x(), end.y() - start.y())) & available;
}

QPoint cornerNextToPanel(const QRect& screen, const QRect& workArea) {
    const bool hasTopPanel = workArea.top() > screen.top();
    const bool hasBottomPanel = workArea.bottom() < screen.bottom();
    const bool hasLeftPanel = workArea.left() > screen.left();
    const bool hasRightPanel = workArea.right() < screen.right();
    if (hasTopPanel || (!hasBottomPanel && !hasLeftPanel && !hasRightPanel)) {
        return workArea.topRight();
    }
    return hasLeftPanel && !hasBottomPanel && !hasRightPanel ? workArea.bottomLeft() : workArea.bottomRight();
}

} // namespace zamber::freedesktop::popover
