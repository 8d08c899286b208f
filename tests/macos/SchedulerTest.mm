// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: timers and the main queue.

#include "platform/macos/MacScheduler.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;
using namespace std::chrono_literals;

} // namespace

TEST(Recorded, ARepeatingTimerIsOfTheRunLoopAndWaitsWhileAMenuIsOpen) {
    macos::MacScheduler scheduler;
    std::string log;
    EXPECT_THAT(callsDuring([&] { scheduler.every(500ms, [] {}); }),
                ElementsAre("NSTimer scheduledTimerWithTimeInterval: 0.5 repeats: 1"));
    scheduler.every(1ms, [&log] { log += 'e'; });
    scheduler.after(1ms, [&log] { log += 'a'; });
    system::skip(5ms);
    system::turn(QStringLiteral("tracking"));
    EXPECT_EQ(log, "a");
    system::turn();
    EXPECT_EQ(log, "ae");
}

TEST(Recorded, WhatASchedulerHasStillToDoGoesWithIt) {
    std::string log;
    {
        macos::MacScheduler scheduler;
        scheduler.every(1ms, [&log] { log += 'e'; });
        scheduler.after(1ms, [&log] { log += 'a'; });
    }
    macos::letPass(20ms);
    EXPECT_EQ(log, "");
}

TEST(Recorded, WhileABlockOfTheMainQueueRunsNoOtherOneDoes) {
    macos::MacScheduler scheduler;
    std::string log;
    scheduler.soon([&] {
        log += '(';
        macos::letPass(20ms); // as an alert would
        log += ')';
    });
    scheduler.soon([&] { log += 's'; });
    macos::letPass(60ms);
    EXPECT_EQ(log, "()s");
}

} // namespace zamber
