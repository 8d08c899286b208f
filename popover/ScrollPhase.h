// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SingleShotTimer.h"

#include <QPoint>

#include <functional>

namespace zamber::popover {

/// Whether the user is scrolling: from a turn of the wheel until no other has followed for a while, or until the
/// pointer is moved. A hand on a wheel trembles, so that moving by a point or two does not count.
class ScrollPhase {
public:
    /// How far a pointer is moved by a hand that means to hold it still.
    static constexpr int TREMOR_POINTS = 3;

    /// `paused` is called when the phase ends for want of turns. The scheduler outlives the phase.
    ScrollPhase(Scheduler& scheduler, std::function<void()> paused);

    /// The wheel was turned with the pointer there (points).
    void wheelTurned(QPoint pointer);
    /// Whether there is no scrolling once the pointer has come to the place.
    bool isEndedBy(QPoint pointer) const;
    bool isActive() const { return m_pause.isActive(); }
    /// Ends the phase without a call of `paused`.
    void end() { m_pause.stop(); }

private:
    SingleShotTimer m_pause;
    QPoint m_pointer;
};

} // namespace zamber::popover
