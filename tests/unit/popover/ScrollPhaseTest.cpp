// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ScrollPhase.h"

#include "tests/fakes/FakeScheduler.h"

#include <gtest/gtest.h>

#include <chrono>

namespace zamber::popover {

using namespace std::chrono_literals;

namespace {

class ScrollPhaseTest : public testing::Test {
protected:
    FakeScheduler scheduler;
    int pauses = 0;
    ScrollPhase phase{scheduler, [this] { ++pauses; }};
};

} // namespace

TEST_F(ScrollPhaseTest, ItLastsUntilTheWheelRests) {
    EXPECT_FALSE(phase.isActive());
    for (int notch = 0; notch < 10; ++notch) {
        phase.wheelTurned({10, 10});
        scheduler.advance(200ms);
        EXPECT_TRUE(phase.isActive());
    }
    scheduler.advance(100ms);
    EXPECT_FALSE(phase.isActive());
    EXPECT_EQ(pauses, 1);
}

TEST_F(ScrollPhaseTest, APointerThatMovesEndsItAndATremorDoesNot) {
    phase.wheelTurned({10, 10});
    EXPECT_FALSE(phase.isEndedBy({11, 9}));
    phase.wheelTurned({11, 9});
    EXPECT_FALSE(phase.isEndedBy({12, 10}));
    EXPECT_TRUE(phase.isEndedBy({13, 12})) << "from where it began";
    EXPECT_TRUE(phase.isActive()) << "until it is ended";
}

TEST_F(ScrollPhaseTest, WithoutOneThePointerIsFree) {
    EXPECT_TRUE(phase.isEndedBy({0, 0}));
}

TEST_F(ScrollPhaseTest, OneThatIsEndedDoesNotTell) {
    phase.wheelTurned({10, 10});
    phase.end();
    scheduler.advance(1s);
    EXPECT_EQ(pauses, 0);
    EXPECT_EQ(scheduler.pendingTimers(), 0U);
}

TEST(ScrollPhase, ItLeavesNoTimerBehind) {
    FakeScheduler scheduler;
    {
        ScrollPhase phase(scheduler, [] { FAIL() << "told after its end"; });
        phase.wheelTurned({10, 10});
    }
    scheduler.advance(1s);
    EXPECT_EQ(scheduler.pendingTimers(), 0U);
}

} // namespace zamber::popover
