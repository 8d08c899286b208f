// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"
#include "platform/freedesktop/popover/WindowSystem.h"
#include "platform/wayland/QtDisplay.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QWindow>

#include <optional>
#include <vector>

namespace zamber::wayland {

class SwayConnection;

/// sway, as windows of Wayland need it. Wayland lets no program choose the place of its windows; sway moves them by
/// commands over its control socket.
class SwayWindowSystem final : public freedesktop::popover::WindowSystem {
    Q_OBJECT

public:
    /// Both outlive this object.
    SwayWindowSystem(SwayConnection& sway, Scheduler& scheduler);

    bool isComposited() const override { return true; }
    QRect workArea(const QRect& monitor) const override { return monitor; }
    void setShadow(WId /*window*/, const QMargins& /*shadow*/) override {}
    void presentPopover(WId /*window*/) override {} // Qt has asked for the focus, and a new window gets it
    void bringToFront(WId id) override;
    bool hasKeyboardFocus() const override { return false; } // no hot key takes the focus away here

    std::optional<QRect> freeArea(const QScreen& screen) const override;
    std::optional<QPoint> pointer() const override { return std::nullopt; }
    const QScreen& currentScreen() const override;
    void place(WId id, const QRect& rectangle) override;
    void useActivationToken(const QString& token) override;
    void settleHidden() override { m_qt.roundTrip(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Wish {
        QPointer<QWindow> window;
        QRect rectangle;
        bool isFulfilled = false;       ///< since the window was shown
        bool isMappedElsewhere = false; ///< by an older rule of sway's, maybe on a screen without the focus
    };

    Wish* wishOf(const QObject* window);
    void announce(Wish& wish);
    bool fulfil(Wish& wish);
    void handleExposure(QWindow& window);
    void moveOnceMapped(const QWindow* window, int attempts);
    void takeFocusFromFullScreen(const QPointer<QWindow>& window, int attempts);

    QtDisplay m_qt;
    SwayConnection& m_sway;
    Scheduler& m_scheduler;
    std::vector<Wish> m_wishes;
    QSet<QByteArray> m_announced;                  ///< the rules that sway has
    QHash<QByteArray, QByteArray> m_lastAnnounced; ///< of a window's rules; the one that tells where it is mapped
};

} // namespace zamber::wayland
