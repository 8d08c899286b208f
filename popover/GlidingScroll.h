// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace zamber::popover {

/// A way that grows shorter, eased in and out, until there is none left after a tenth of a second.
class GlidingScroll final : public QObject {
    Q_OBJECT

public:
    GlidingScroll();

    /// Starts with a way of so many points ahead, in either direction.
    void start(double way);
    void stop() { m_frames.stop(); }

    /// What is left of the way now.
    double remaining() const;

signals:
    void advanced();

private:
    void advance();

    double m_way = 0;
    QTimer m_frames;
    QElapsedTimer m_sinceStart;
};

} // namespace zamber::popover
