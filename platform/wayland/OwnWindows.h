// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>
#include <QtGui/qwindowdefs.h>

class QWindow;

/// What is the same for windows of this program on every Wayland compositor.
namespace zamber::wayland::ownwindows {

/// The window with this id, or null.
QWindow* find(WId id);

/// Moves a hidden window to the screen that it will be shown on, at this rectangle (points, on the desktop). For
/// another screen or scale the window is made anew: Qt 6.4 keeps the scale that a window was made with, which would be
/// blurred, and Qt 6.8 the size.
void moveToScreen(QWindow& window, const QRect& rectangle);

/// The next window that asks for the focus asks with this token.
void useActivationToken(const QString& token);

/// Brings a window to the front, with the keyboard, on the workspace that the user is on. One that is open is hidden
/// and shown, since a compositor raises no window at its program's wish.
void bringToFront(WId id);

} // namespace zamber::wayland::ownwindows
