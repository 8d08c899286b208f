// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"

#include <memory>

namespace zamber::macos {

/// Actions that run once are put on the main queue; repeated ones are timers of the main run loop. While a menu is
/// open, the repeated ones wait and the others run.
class MacScheduler final : public Scheduler {
public:
    MacScheduler();
    ~MacScheduler() override;
    MacScheduler(const MacScheduler&) = delete;
    MacScheduler& operator=(const MacScheduler&) = delete;

    Token after(std::chrono::milliseconds delay, Action action) override;
    Token every(std::chrono::milliseconds interval, Action action) override;
    void invalidate(Token token) override;
    void soon(Action action) override;
    double now() const override;

private:
    struct Timers;

    std::shared_ptr<Timers> m_timers;
};

} // namespace zamber::macos
