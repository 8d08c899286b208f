// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"

#include <gtest/gtest.h>

#include <concepts>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace zamber {

/// What the suite needs around a scheduler:
/// - `elapsed`: the time that has passed by the scheduler's clock;
/// - `letPass`: lets the main loop run for that time;
/// - `waitUntil`: lets it run until the condition holds; false when it gives up;
/// - `wallClock`: what `now` should answer, within a second.
template <class Rig>
concept SchedulerRig = std::default_initializable<Rig> &&
                       requires(Rig rig, std::chrono::milliseconds time, std::function<bool()> condition) {
                           { rig.scheduler() } -> std::same_as<Scheduler&>;
                           { rig.elapsed() } -> std::convertible_to<std::chrono::duration<double>>;
                           rig.letPass(time);
                           { rig.waitUntil(condition) } -> std::same_as<bool>;
                           { rig.wallClock() } -> std::same_as<double>;
                       };

template <SchedulerRig Rig>
class SchedulerContract : public testing::Test {
protected:
    static constexpr std::chrono::milliseconds SHORT{20};

    Rig rig;
    Scheduler& scheduler = rig.scheduler();
    std::string log;

    Scheduler::Action note(char what) {
        return [this, what] { log += what; };
    }
};

TYPED_TEST_SUITE_P(SchedulerContract);

TYPED_TEST_P(SchedulerContract, AfterRunsOnceAndNotTooEarly) {
    const std::chrono::duration<double> start = this->rig.elapsed();
    std::chrono::duration<double> ran{0};
    this->scheduler.after(this->SHORT, [&] {
        this->log += 'a';
        ran = this->rig.elapsed();
    });
    EXPECT_EQ(this->log, "");
    ASSERT_TRUE(this->rig.waitUntil([&] { return !this->log.empty(); }));
    EXPECT_GE(ran - start, this->SHORT);
    this->rig.letPass(3 * this->SHORT);
    EXPECT_EQ(this->log, "a");
}

TYPED_TEST_P(SchedulerContract, EveryRunsAgainAndAgainFirstAfterOneInterval) {
    const std::chrono::duration<double> start = this->rig.elapsed();
    std::chrono::duration<double> firstRun{0};
    this->scheduler.every(this->SHORT, [&] {
        firstRun = this->log.empty() ? std::chrono::duration<double>(this->rig.elapsed()) : firstRun;
        this->log += 'e';
    });
    ASSERT_TRUE(this->rig.waitUntil([&] { return this->log.size() >= 4; }));
    EXPECT_GE(firstRun - start, this->SHORT);
}

TYPED_TEST_P(SchedulerContract, WhatFallsDueEarlierRunsEarlier) {
    this->scheduler.after(3 * this->SHORT, this->note('3'));
    this->scheduler.after(this->SHORT, this->note('1'));
    this->scheduler.after(2 * this->SHORT, this->note('2'));
    this->scheduler.soon(this->note('0'));
    ASSERT_TRUE(this->rig.waitUntil([&] { return this->log.size() == 4; }));
    EXPECT_EQ(this->log, "0123");
}

TYPED_TEST_P(SchedulerContract, AnInvalidatedTimerDoesNotRun) {
    const auto once = this->scheduler.after(this->SHORT, this->note('o'));
    const auto again = this->scheduler.every(this->SHORT, this->note('e'));
    this->scheduler.invalidate(once);
    this->scheduler.invalidate(again);
    this->rig.letPass(3 * this->SHORT);
    EXPECT_EQ(this->log, "");
}

TYPED_TEST_P(SchedulerContract, ARepeatingTimerMayEndItself) {
    Scheduler::Token token;
    const std::string captured = "long enough to live on the heap, so that its end would be noticed";
    token = this->scheduler.every(this->SHORT, [this, &token, captured] {
        this->scheduler.invalidate(token);
        this->log += captured;
    });
    ASSERT_TRUE(this->rig.waitUntil([&] { return !this->log.empty(); }));
    this->rig.letPass(3 * this->SHORT);
    EXPECT_EQ(this->log, captured);
}

TYPED_TEST_P(SchedulerContract, InvalidatingWhatHasRunOrNeverWasIsIgnored) {
    const auto token = this->scheduler.after(this->SHORT, this->note('a'));
    this->scheduler.after(2 * this->SHORT, this->note('b'));
    ASSERT_TRUE(this->rig.waitUntil([&] { return !this->log.empty(); }));
    this->scheduler.invalidate(token);
    this->scheduler.invalidate(Scheduler::Token{123456789});
    this->scheduler.invalidate(Scheduler::Token{});
    ASSERT_TRUE(this->rig.waitUntil([&] { return this->log.size() == 2; }));
    EXPECT_EQ(this->log, "ab");
}

TYPED_TEST_P(SchedulerContract, AnActionThatHasRunIsLetGo) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    this->scheduler.after(this->SHORT, [held] {});
    held.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_TRUE(this->rig.waitUntil([&] { return watched.expired(); }));
}

TYPED_TEST_P(SchedulerContract, AnActionMaySetFurtherTimers) {
    this->scheduler.after(this->SHORT, [this] {
        this->log += '1';
        this->scheduler.after(this->SHORT, this->note('2'));
        this->scheduler.soon(this->note('s'));
    });
    ASSERT_TRUE(this->rig.waitUntil([&] { return this->log.size() == 3; }));
    EXPECT_EQ(this->log, "1s2");
}

TYPED_TEST_P(SchedulerContract, SoonRunsInOrderAndNotInsideTheCall) {
    this->scheduler.soon(this->note('a'));
    this->scheduler.soon(this->note('b'));
    EXPECT_EQ(this->log, "");
    ASSERT_TRUE(this->rig.waitUntil([&] { return this->log.size() == 2; }));
    EXPECT_EQ(this->log, "ab");
}

TYPED_TEST_P(SchedulerContract, SoonMayBeCalledFromAnyThreadAndRunsOnTheMainOne) {
    std::thread::id ranOn;
    std::thread([&] { this->scheduler.soon([&] { ranOn = std::this_thread::get_id(); }); }).join();
    EXPECT_EQ(ranOn, std::thread::id());
    ASSERT_TRUE(this->rig.waitUntil([&] { return ranOn != std::thread::id(); }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TYPED_TEST_P(SchedulerContract, NowIsTheWallClockAndGoesOn) {
    const double before = this->scheduler.now();
    EXPECT_NEAR(before, this->rig.wallClock(), 1.0);
    this->rig.letPass(this->SHORT);
    EXPECT_GT(this->scheduler.now(), before);
}

REGISTER_TYPED_TEST_SUITE_P(SchedulerContract, AfterRunsOnceAndNotTooEarly, EveryRunsAgainAndAgainFirstAfterOneInterval,
                            WhatFallsDueEarlierRunsEarlier, AnInvalidatedTimerDoesNotRun, ARepeatingTimerMayEndItself,
                            InvalidatingWhatHasRunOrNeverWasIsIgnored, AnActionThatHasRunIsLetGo,
                            AnActionMaySetFurtherTimers, SoonRunsInOrderAndNotInsideTheCall,
                            SoonMayBeCalledFromAnyThreadAndRunsOnTheMainOne, NowIsTheWallClockAndGoesOn);

} // namespace zamber
