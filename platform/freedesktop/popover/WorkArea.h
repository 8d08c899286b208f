// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>

class QScreen;

namespace zamber::freedesktop::popover {

class WindowSystem;

/// The part of a screen that panels leave free, in points on the desktop.
QRect workAreaOf(const QScreen& screen, const WindowSystem& windowSystem);

/// The corner of the work area where a tray is most likely near: trays stand at the end of a panel. The top right
/// corner where there is a panel at the top or none at all.
QPoint cornerNextToPanel(const QRect& screen, const QRect& workArea);

} // namespace zamber::freedesktop::popover
