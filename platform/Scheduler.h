// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace zamber {

/// Time and the main loop. Everything runs on the main thread, in the order in which it falls due.
class Scheduler {
public:
    using Action = std::function<void()>;

    /// Names a timer; dropping it does not stop the timer.
    struct Token {
        std::uint64_t id = 0;
    };

    virtual ~Scheduler() = default;

    /// Runs the action once, no earlier than the delay from now.
    virtual Token after(std::chrono::milliseconds delay, Action action) = 0;

    /// Runs the action again and again, first after one interval.
    virtual Token every(std::chrono::milliseconds interval, Action action) = 0;

    /// Stops a timer; one that has run or is unknown is ignored. May be called from inside its own action.
    virtual void invalidate(Token token) = 0;

    /// Runs the action at the next turn of the main loop. The one call that other threads may make.
    virtual void soon(Action action) = 0;

    /// The wall clock: seconds since 1970-01-01 00:00:00 UTC, with fraction.
    virtual double now() const = 0;
};

} // namespace zamber
