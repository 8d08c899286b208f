// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>

namespace zamber::freedesktop::tray {

/// The presses and releases of the pointer's buttons anywhere on the screen, in other programs' windows too. They are
/// seen, not taken away. A wheel's turns are none.
class PointerButtons : public QObject {
    Q_OBJECT

public:
    enum class Listening { Off, On };

    /// Off at first. While it is off, the desktop is asked for nothing.
    virtual void setListening(Listening listening) = 0;

    /// Tells, before it returns, of all that the desktop has seen up to now. News of the same press that comes another
    /// way, such as a panel's message over the session bus, may be quicker.
    virtual void catchUp() = 0;

Q_SIGNALS:
    void pressed(Qt::MouseButton button, QPoint place); ///< points, on the screen
    void released();
};

} // namespace zamber::freedesktop::tray
