// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QPoint>

#include <chrono>
#include <optional>

namespace zamber::freedesktop::tray {

/// Remembers the press of a mouse button that has closed the popover, to know the click again that it was the first
/// half of: a panel tells of a click on the status item at its release, when the press in the panel's window has
/// already closed the popover.
class ClosingPress final {
public:
    void note(QPoint pointer) {
        m_place = pointer;
        m_age.start();
    }

    void forget() { m_place.reset(); }

    /// Whether a click there began with that press; each press begins one click.
    bool claim(QPoint pointer) {
        const bool isSame = m_place && std::chrono::milliseconds(m_age.elapsed()) < LONGEST_CLICK &&
                            (*m_place - pointer).manhattanLength() <= FARTHEST_POINTS;
        m_place.reset();
        return isSame;
    }

private:
    static constexpr std::chrono::milliseconds LONGEST_CLICK{1500};
    static constexpr int FARTHEST_POINTS = 24; // a panel's icon

    std::optional<QPoint> m_place;
    QElapsedTimer m_age;
};

} // namespace zamber::freedesktop::tray
