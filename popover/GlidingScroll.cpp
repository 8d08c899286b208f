// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/GlidingScroll.h"

#include "popover/FrameInterval.h"

#include <algorithm>
#include <chrono>

namespace zamber::popover {

using namespace std::chrono_literals;

namespace {
constexpr auto DURATION = 100ms;
} // namespace

GlidingScroll::GlidingScroll() {
    m_frames.setInterval(FRAME_INTERVAL);
    m_frames.setTimerType(Qt::PreciseTimer);
    connect(&m_frames, &QTimer::timeout, this, &GlidingScroll::advance);
}

void GlidingScroll::start(double distance) {
    m_distance = distance;
    m_sinceStart.start();
    m_frames.start();
}

double GlidingScroll::remaining() const {
    const double progress =
        std::min(1.0, static_cast<double>(m_sinceStart.elapsed()) / static_cast<double>(DURATION.count()));
    return m_distance * (1 - progress * progress * (3 - 2 * progress));
}

void GlidingScroll::advance() {
    if (m_sinceStart.hasExpired(DURATION.count())) {
        m_frames.stop();
    }
    emit advanced();
}

} // namespace zamber::popover
