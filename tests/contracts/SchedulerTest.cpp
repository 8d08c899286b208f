// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtScheduler.h"
#include "tests/contracts/SchedulerContract.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/support/Waiting.h"

#include <QCoreApplication>

#include <array>
#include <memory>

namespace zamber {

namespace {

using namespace std::chrono_literals;

constexpr auto PATIENCE = 10s;

struct FakeSchedulerRig {
    FakeScheduler fake;

    Scheduler& scheduler() { return fake; }
    auto elapsed() { return fake.elapsed(); }
    void letPass(std::chrono::milliseconds time) { fake.advance(time); }
    bool waitUntil(const std::function<bool()>& condition) {
        const auto end = fake.elapsed() + PATIENCE;
        while (!condition() && fake.elapsed() < end) {
            fake.advance(1ms);
        }
        return condition();
    }
    double wallClock() { return FakeScheduler::START_TIME + std::chrono::duration<double>(fake.elapsed()).count(); }
};

struct QtSchedulerRig {
    freedesktop::QtScheduler real;

    Scheduler& scheduler() { return real; }
    auto elapsed() { return std::chrono::steady_clock::now().time_since_epoch(); }
    void letPass(std::chrono::milliseconds time) { zamber::letPass(time); }
    bool waitUntil(const std::function<bool()>& condition) { return zamber::waitUntil(condition); }
    double wallClock() {
        return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    }
};

/// Its destructor stops a timer and starts others, as one of an object may that an action has owned.
struct StopsTimersAtItsEnd {
    freedesktop::QtScheduler& scheduler;
    Scheduler::Token token;

    ~StopsTimersAtItsEnd() {
        scheduler.invalidate(token);
        scheduler.after(0ms, [] { ADD_FAILURE() << "run after the end"; });
        scheduler.soon([] { ADD_FAILURE() << "run after the end"; });
    }
};

} // namespace

TEST(QtScheduler, StoppedItLetsGoOfWhatItsActionsHoldAndRunsNothing) {
    freedesktop::QtScheduler scheduler;
    const auto fail = [] { ADD_FAILURE() << "run after the end"; };
    std::array<std::weak_ptr<StopsTimersAtItsEnd>, 3> held;
    for (auto& weak : held) {
        const auto strong = std::make_shared<StopsTimersAtItsEnd>(scheduler, scheduler.every(1h, fail));
        weak = strong;
        if (&weak == &held[0]) {
            scheduler.after(0ms, [strong, fail] { fail(); });
        } else if (&weak == &held[1]) {
            scheduler.every(0ms, [strong, fail] { fail(); });
        } else {
            scheduler.soon([strong, fail] { fail(); });
        }
    }
    scheduler.stop();
    for (const auto& weak : held) {
        EXPECT_TRUE(weak.expired());
    }
    scheduler.after(0ms, fail);
    scheduler.soon(fail);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SchedulerContract, FakeSchedulerRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, SchedulerContract, QtSchedulerRig);

} // namespace zamber
