// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>
#include <QtGui/qwindowdefs.h>

class QWindow;

/// What is the same for windows of this program on every Wayland compositor.
namespace zamber::wayland::ownwindows {

/// The window with this id, or null.
QWindow* find(WId id);

/// Moves a hidden window to the screen that it will be shown on. Qt 6.4 keeps the scale that a window was made with,
/// so that one for another scale is made anew; else it would be blurred.
void moveToScreen(QWindow& window, QPoint place);

/// The next window that asks for the focus asks with this token.
void useActivationToken(const QString& token);

/// Brings a window to the front, with the keyboard, on the workspace that the user is on. One that is open is hidden
/// and shown, since a compositor raises no window at its program's wish.
void bringToFront(WId id);

} // namespace zamber::wayland::ownwindows
