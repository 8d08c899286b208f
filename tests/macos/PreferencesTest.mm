// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: preferences.

#include "platform/macos/MacUserDefaults.h"
#include "tests/contracts/macos/MainLoop.h"
#include "tests/macos/System.h"

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

#include <memory>
#include <thread>
#include <vector>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

} // namespace

TEST(Recorded, AnObserverOfADefaultAsksForNewValuesWithoutAContext) {
    macos::MacUserDefaults defaults;
    EXPECT_THAT(callsDuring([&] { defaults.addObserver(QStringLiteral("popoverSize"), [] {}); }),
                ElementsAre("NSUserDefaults standard addObserver forKeyPath: popoverSize options: 1 context: (nil)"));
}

TEST(Recorded, ObserversGoWithTheirDefaults) {
    int told = 0;
    {
        macos::MacUserDefaults defaults;
        defaults.addObserver(QStringLiteral("appTheme"), [&told] { ++told; });
    }
    [NSUserDefaults.standardUserDefaults setObject:@"dark" forKey:@"appTheme"];
    macos::letPass(20ms);
    EXPECT_EQ(told, 0);
}

TEST(Recorded, WhatIsReportedOnAnotherThreadIsToldOnTheMainOne) {
    macos::MacUserDefaults defaults;
    std::vector<std::thread::id> threads;
    defaults.addObserver(QStringLiteral("appTheme"), [&threads] { threads.push_back(std::this_thread::get_id()); });
    std::thread([] {
        @autoreleasepool {
            [NSUserDefaults.standardUserDefaults setObject:@"light" forKey:@"appTheme"];
        }
    }).join();
    EXPECT_THAT(threads, IsEmpty());
    macos::letPass(20ms);
    EXPECT_THAT(threads, ElementsAre(std::this_thread::get_id()));
}

TEST(Recorded, AnObserverMayGoWhileItIsTold) {
    macos::MacUserDefaults defaults;
    UserDefaults::ObserverToken token;
    int told = 0;
    token = defaults.addObserver(QStringLiteral("appTheme"), [&, own = std::make_shared<int>(1)] {
        defaults.removeObserver(token);
        told += *own;
    });
    [NSUserDefaults.standardUserDefaults setObject:@"system" forKey:@"appTheme"];
    macos::letPass(20ms);
    EXPECT_EQ(told, 1);
}

TEST(Recorded, WholeNumbersOfAnySizeAreReadAsFarAsTheyGo) {
    macos::MacUserDefaults defaults;
    [NSUserDefaults.standardUserDefaults setInteger:(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::max());
    [NSUserDefaults.standardUserDefaults setInteger:-(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::min());
}

} // namespace zamber
