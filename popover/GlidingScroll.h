// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace zamber::popover {

/// The animation of scrolling to another place: how many points are still to go, eased in and out, over a tenth of a
/// second. The owner scrolls at each `advanced`.
class GlidingScroll final : public QObject {
    Q_OBJECT

public:
    GlidingScroll();

    /// Starts with so many points to go, in either direction.
    void start(double distance);
    void stop() { m_frames.stop(); }

    /// The points that are still to go at this moment.
    double remaining() const;

signals:
    void advanced();

private:
    void advance();

    double m_distance = 0;
    QTimer m_frames;
    QElapsedTimer m_sinceStart;
};

} // namespace zamber::popover
