// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacScheduler.h"

#include "MainLoop.h"

#include "tests/contracts/SchedulerContract.h"

namespace zamber::macos {

namespace {

struct MacSchedulerRig {
    MacScheduler real;

    Scheduler& scheduler() { return real; }
    auto elapsed() { return uptime(); }
    void letPass(std::chrono::milliseconds time) { zamber::macos::letPass(time); }
    bool waitUntil(const std::function<bool()>& condition) { return zamber::macos::waitUntil(condition); }
    double wallClock() {
        return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, SchedulerContract, MacSchedulerRig);

} // namespace zamber::macos
