// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ScrollPhase.h"

#include <chrono>
#include <utility>

namespace zamber::popover {

using namespace std::chrono_literals;

namespace {
constexpr auto PAUSE = 250ms;
} // namespace

ScrollPhase::ScrollPhase(Scheduler& scheduler, std::function<void()> paused)
    : m_scheduler(scheduler)
    , m_paused(std::move(paused)) {}

void ScrollPhase::wheelTurned(QPoint pointer) {
    if (!isActive()) {
        m_pointer = pointer;
    }
    end();
    m_pause = m_scheduler.after(PAUSE, [this] {
        m_pause.reset();
        m_paused();
    });
}

bool ScrollPhase::isEndedBy(QPoint pointer) const {
    return !isActive() || (pointer - m_pointer).manhattanLength() > TREMOR_POINTS;
}

void ScrollPhase::end() {
    if (const auto pause = std::exchange(m_pause, std::nullopt)) {
        m_scheduler.invalidate(*pause);
    }
}

} // namespace zamber::popover
