// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/popover/WindowSystem.h"
#include "platform/wayland/QtDisplay.h"

#include <QPointer>
#include <QRectF>
#include <QWindow>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::wayland {

class LayerShell;
struct Layer;

/// A compositor that offers programs nothing of its own to place windows by. Where it has layers, the popover is on the
/// uppermost and has the keyboard to itself; else it is an ordinary window, placed by the compositor.
class LayerWindowSystem final : public freedesktop::popover::WindowSystem {
    Q_OBJECT

public:
    /// The part of the whole desktop that panels leave free. The desktop's width and height are 1.
    using FreePart = std::function<QRectF()>;

    /// The shell is null where the compositor has no layers. The function may be empty where nobody tells of panels.
    LayerWindowSystem(std::unique_ptr<LayerShell> shell, FreePart freePart);
    ~LayerWindowSystem() override;

    bool isComposited() const override { return true; }
    QRect workArea(const QRect& monitor) const override { return monitor; }
    void setShadow(WId /*window*/, const QMargins& /*shadow*/) override {}
    void presentPopover(WId /*window*/) override {}
    void bringToFront(WId window) override;
    bool hasKeyboardFocus() const override { return false; } // no hot key takes the focus away here

    std::optional<QRect> freeArea(const QScreen& screen) const override;
    std::optional<QPoint> pointer() const override { return std::nullopt; }
    void place(WId id, const QRect& rectangle) override;
    void useActivationToken(const QString& token) override;
    void settleHidden() override { m_qt.roundTrip(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Catcher;

    void catchPresses();
    void endCatching();

    QtDisplay m_qt;
    std::unique_ptr<LayerShell> m_shell;
    FreePart m_freePart;
    QPointer<QWindow> m_popover;
    std::vector<std::unique_ptr<Catcher>> m_catchers; ///< while the popover is shown, one a screen
};

/// Where on its screen a window lies that is to be at this rectangle, by the corner that it is nearest to: a panel that
/// this program knows nothing of is at an edge, and the window moves with that. All in points on the desktop.
Layer layerAt(const QRect& rectangle, const QRect& freeArea);

} // namespace zamber::wayland
