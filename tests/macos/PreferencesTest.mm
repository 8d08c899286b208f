// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: preferences.

#include "platform/macos/MacUserDefaults.h"
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

TEST(Recorded, WholeNumbersOfAnySizeAreReadAsFarAsTheyGo) {
    macos::MacUserDefaults defaults;
    [NSUserDefaults.standardUserDefaults setInteger:(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::max());
    [NSUserDefaults.standardUserDefaults setInteger:-(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::min());
}

} // namespace zamber
