// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"

#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace zamber {

/// A clock that stands still until a test turns it. Nothing runs but inside `advance`.
class FakeScheduler final : public Scheduler {
public:
    /// 2026-01-02 03:04:05.5 UTC
    static constexpr double START_TIME = 1767323045.5;

    Token after(std::chrono::milliseconds delay, Action action) override {
        return add(delay, std::nullopt, std::move(action));
    }

    Token every(std::chrono::milliseconds interval, Action action) override {
        return add(interval, interval, std::move(action));
    }

    void invalidate(Token token) override {
        std::erase_if(m_timers, [token](const auto& timer) { return timer.second.id == token.id; });
    }

    void soon(Action action) override {
        const std::scoped_lock lock(m_soonMutex);
        m_soon.push_back(std::move(action));
        m_soonCaller = std::this_thread::get_id();
    }

    double now() const override { return START_TIME + std::chrono::duration<double>(m_elapsed).count(); }

    /// Turns the clock, and runs what falls due on the way, in order and each at its time.
    void advance(std::chrono::milliseconds time) {
        const auto end = m_elapsed + time;
        runSoon();
        while (!m_timers.empty() && m_timers.begin()->first <= end) {
            auto timer = m_timers.extract(m_timers.begin());
            m_elapsed = timer.key();
            const auto action = timer.mapped().action;
            if (timer.mapped().interval) {
                timer.key() += *timer.mapped().interval;
                m_timers.insert(std::move(timer));
            }
            (*action)();
            runSoon();
        }
        m_elapsed = end;
    }

    std::chrono::milliseconds elapsed() const { return m_elapsed; }
    std::size_t pendingTimers() const { return m_timers.size(); }

    /// The thread that called `soon` last.
    std::thread::id soonCaller() const {
        const std::scoped_lock lock(m_soonMutex);
        return m_soonCaller;
    }

private:
    struct Timer {
        std::uint64_t id;
        std::optional<std::chrono::milliseconds> interval;
        std::shared_ptr<Action> action;
    };

    Token add(std::chrono::milliseconds delay, std::optional<std::chrono::milliseconds> interval, Action action) {
        const Token token{++m_lastId};
        m_timers.emplace(m_elapsed + std::max(delay, std::chrono::milliseconds::zero()),
                         Timer{token.id, interval, std::make_shared<Action>(std::move(action))});
        return token;
    }

    void runSoon() {
        while (true) {
            std::list<Action> actions;
            {
                const std::scoped_lock lock(m_soonMutex);
                actions.swap(m_soon);
            }
            if (actions.empty()) {
                return;
            }
            for (const auto& action : actions) {
                action();
            }
        }
    }

    /// By due time; equal ones in the order in which they were set.
    std::multimap<std::chrono::milliseconds, Timer> m_timers;
    mutable std::mutex m_soonMutex;
    std::list<Action> m_soon;
    std::thread::id m_soonCaller;
    std::chrono::milliseconds m_elapsed{0};
    std::uint64_t m_lastId = 0;
};

} // namespace zamber
