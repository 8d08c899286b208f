// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/popover/WindowSystem.h"
#include "platform/wayland/QtDisplay.h"

#include <QRectF>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>

class QWindow;

namespace zamber::wayland {

class PlasmaShell;

/// KWin, as windows of Wayland need it. It places a window where the window's program asks by a protocol of Plasma's.
class PlasmaWindowSystem final : public freedesktop::popover::WindowSystem {
    Q_OBJECT

public:
    /// What protocols that windows have nothing to do with tell of the desktop.
    struct Desktop {
        /// The part of the screen of this name that panels leave free, in points on the desktop; nothing where the
        /// compositor has told nothing. The function may be empty.
        std::function<std::optional<QRect>(const QString& screen)> freeArea;

        /// The part of the whole desktop that panels leave free, where nothing is told of a single screen. The
        /// desktop's width and height are 1. The function may be empty where nobody tells of panels. Then they are
        /// taken to leave all of it free.
        std::function<QRectF()> freePart;

        /// Where the active window of all programs is, in points on the desktop; nothing where none is active or the
        /// compositor does not tell. The function may be empty.
        std::function<std::optional<QRect>()> activeWindow;

        /// Whether the active window is one of this program's.
        std::function<bool()> isOursActive;
    };

    explicit PlasmaWindowSystem(Desktop desktop);
    ~PlasmaWindowSystem() override;

    bool isComposited() const override { return true; }
    QRect workArea(const QRect& monitor) const override { return monitor; }
    void setShadow(WId /*window*/, const QMargins& /*shadow*/) override {}
    void presentPopover(WId /*window*/) override {} // Qt has asked for the focus, and a new window gets it

    /// When a menu of the popover's closes, KWin 5 gives the keyboard to no window until the next key is pressed.
    void bringToFront(WId window) override;
    bool hasKeyboardFocus() const override { return m_desktop.isOursActive(); }

    std::optional<QRect> freeArea(const QScreen& screen) const override;
    std::optional<QPoint> pointer() const override { return std::nullopt; }
    const QScreen& currentScreen() const override;
    void place(WId id, const QRect& rectangle) override;
    void useActivationToken(const QString& token) override;
    void settleHidden() override { m_qt.roundTrip(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Desktop m_desktop;
    QtDisplay m_qt;
    std::unique_ptr<PlasmaShell> m_shell; ///< null where the compositor does not offer it
    std::map<const QObject*, QPoint> m_places;
};

} // namespace zamber::wayland
