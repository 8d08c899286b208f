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
    : m_pause(scheduler, PAUSE, std::move(paused)) {}

void ScrollPhase::wheelTurned(QPoint pointer) {
    if (!isActive()) {
        m_pointer = pointer;
    }
    m_pause.start();
}

bool ScrollPhase::isEndedBy(QPoint pointer) const {
    return !isActive() || (pointer - m_pointer).manhattanLength() > TREMOR_POINTS;
}

} // namespace zamber::popover
