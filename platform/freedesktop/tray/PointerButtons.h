// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>

namespace zamber::freedesktop::tray {

/// Reports the presses and releases of the pointer's buttons anywhere on the screen, in other programs' windows too,
/// which get them all the same. The wheel counts as no button.
class PointerButtons : public QObject {
    Q_OBJECT

public:
    enum class Listening { Off, On };

    /// Off at first. While it is off, the desktop is asked for nothing.
    virtual void setListening(Listening listening) = 0;

    /// Emits, before it returns, the signals of all that has happened up to now. A panel's message over the session bus
    /// about the same press may come sooner than the press.
    virtual void catchUp() = 0;

Q_SIGNALS:
    void pressed(Qt::MouseButton button, QPoint place); ///< points, on the screen
    void released();
};

} // namespace zamber::freedesktop::tray
