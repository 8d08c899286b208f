// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: preferences.

#include "platform/macos/MacUserDefaults.h"
#include "tests/macos/System.h"

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;

} // namespace

TEST(Recorded, AnObserverOfADefaultAsksForNewValuesWithoutAContext) {
    macos::MacUserDefaults defaults;
    EXPECT_THAT(callsDuring([&] { defaults.addObserver(QStringLiteral("popoverSize"), [] {}); }),
                ElementsAre("NSUserDefaults standard addObserver forKeyPath: popoverSize options: 1 context: (nil)"));
}

TEST(Recorded, WholeNumbersOfAnySizeAreReadAsFarAsTheyGo) {
    macos::MacUserDefaults defaults;
    [NSUserDefaults.standardUserDefaults setInteger:(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::max());
    [NSUserDefaults.standardUserDefaults setInteger:-(NSInteger{1} << 40) forKey:@"maxItems"];
    EXPECT_EQ(defaults.integer(QStringLiteral("maxItems")), std::numeric_limits<int>::min());
}

} // namespace zamber
