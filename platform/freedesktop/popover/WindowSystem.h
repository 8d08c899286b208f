// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QtGui/qwindowdefs.h>

#include <optional>

class QScreen;

namespace zamber::freedesktop::popover {

/// The questions about the desktop, and the wishes for a window of ours, that Qt has no call for. In pixels where
/// nothing else is said.
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

    /// Brings a window, which is shown, to the front with the keyboard focus, to the desktop that the user is on.
    virtual void bringToFront(WId window) = 0;

    /// Whether a window of this program has the keyboard focus, even while a grab takes the keys elsewhere, such as
    /// that of a hot key that is held. Qt reports a focus that is lost for the time of the grab.
    virtual bool hasKeyboardFocus() const = 0;

    /// The part of a screen that panels leave free, in points on the desktop; nothing where `workArea` is to be asked.
    virtual std::optional<QRect> freeArea(const QScreen& /*screen*/) const { return std::nullopt; }

    /// Where the pointer is, in points on the desktop; nothing where programs are not told.
    virtual std::optional<QPoint> pointer() const;

    /// The screen that the user is working on: the one with the pointer, as far as it is known.
    virtual const QScreen& currentScreen() const;

    /// Asks for a window of ours to be at this rectangle (points on the desktop), where Qt's own wish is not heeded. It
    /// may be called before the window is shown, and again while it is.
    virtual void place(WId /*window*/, const QRect& /*rectangle*/) {}

    /// The desktop has given this token for the window that is shown next to come to the front.
    virtual void useActivationToken(const QString& /*token*/) {}

    /// Returns when the desktop knows that the popover is hidden, so that no key that is typed after this reaches it.
    virtual void settleHidden() {}

Q_SIGNALS:
    void compositedChanged();

    /// A window of this program had the focus, is still open, and has it no longer. Qt reports neither where the focus
    /// came and went before Qt looked.
    void focusLost();

    /// The popover is to close: a button was pressed outside of it, or something that it would cover wants the
    /// keyboard.
    void closeRequested();
};

} // namespace zamber::freedesktop::popover
