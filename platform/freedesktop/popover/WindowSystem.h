// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QObject>
#include <QRect>
#include <QtGui/qwindowdefs.h>

namespace zamber::freedesktop::popover {

/// The questions about the desktop, and the wishes for a window of ours, that Qt has no call for. Pixels throughout.
class WindowSystem : public QObject {
    Q_OBJECT

public:
    /// Whether translucent windows are blended with what lies behind them.
    virtual bool isComposited() const = 0;

    /// The part of a monitor that panels leave free. Qt knows it only where there is one monitor.
    virtual QRect workArea(const QRect& monitor) const = 0;

    /// Tells the window manager how much of the window on each side is shadow, which may lie over panels and beyond the
    /// screen. To be called before the window is shown.
    virtual void setShadow(WId window, const QMargins& shadow) = 0;

    /// Keeps a window, which is shown, out of the task bar, and asks for the keyboard focus for it, beyond what Qt
    /// does.
    virtual void presentPopover(WId window) = 0;

    /// Whether a window of this program has the keyboard focus, even while a grab takes the keys elsewhere, such as
    /// that of a hot key that is held. Qt reports a focus that is lost for the time of the grab.
    virtual bool hasKeyboardFocus() const = 0;

Q_SIGNALS:
    void compositedChanged();
};

} // namespace zamber::freedesktop::popover
