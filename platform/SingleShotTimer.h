// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"

#include <chrono>
#include <optional>
#include <utility>

namespace zamber {

/// An action that runs some time after the last start, on the scheduler's clock. The scheduler outlives the timer.
class SingleShotTimer {
public:
    SingleShotTimer(Scheduler& scheduler, std::chrono::milliseconds delay, Scheduler::Action action)
        : m_scheduler(scheduler)
        , m_delay(delay)
        , m_action(std::move(action)) {}
    ~SingleShotTimer() { stop(); }
    SingleShotTimer(const SingleShotTimer&) = delete;
    SingleShotTimer& operator=(const SingleShotTimer&) = delete;

    /// From now on, also where the timer runs already.
    void start() {
        stop();
        m_token = m_scheduler.after(m_delay, [this] {
            m_token.reset();
            m_action();
        });
    }

    void stop() {
        if (m_token) {
            m_scheduler.invalidate(*std::exchange(m_token, std::nullopt));
        }
    }

    /// Not any more while the action runs.
    bool isActive() const { return m_token.has_value(); }

private:
    Scheduler& m_scheduler;
    std::chrono::milliseconds m_delay;
    Scheduler::Action m_action;
    std::optional<Scheduler::Token> m_token;
};

} // namespace zamber
