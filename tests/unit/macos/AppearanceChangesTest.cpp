// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/AppearanceChanges.h"

#include <gtest/gtest.h>

namespace zamber::macos {

namespace {

/// Counts what two handlers are told.
struct Told {
    AppearanceChanges changes{{.isDark = false, .accentColor = Qt::blue, .reducedMotion = false}};
    int first = 0;
    int second = 0;

    Told() {
        changes.addHandler([this] { ++first; });
        changes.addHandler([this] { ++second; });
    }
};

} // namespace

TEST(AppearanceChanges, TheSameValuesAreNoChange) {
    Told told;
    told.changes.take({.isDark = false, .accentColor = Qt::blue, .reducedMotion = false});
    EXPECT_EQ(told.first, 0);
}

TEST(AppearanceChanges, EachOfTheThreeIsAChangeAndEveryHandlerIsToldOnce) {
    Told told;
    told.changes.take({.isDark = true, .accentColor = Qt::blue, .reducedMotion = false});
    EXPECT_EQ(std::pair(told.first, told.second), std::pair(1, 1));
    told.changes.take({.isDark = true, .accentColor = Qt::red, .reducedMotion = false});
    EXPECT_EQ(std::pair(told.first, told.second), std::pair(2, 2));
    told.changes.take({.isDark = true, .accentColor = Qt::red, .reducedMotion = true});
    told.changes.take({.isDark = true, .accentColor = Qt::red, .reducedMotion = true});
    EXPECT_EQ(std::pair(told.first, told.second), std::pair(3, 3));
}

TEST(AppearanceChanges, AHandlerMayAddAnotherWhichHearsOfTheNextChange) {
    AppearanceChanges changes{AppearanceValues{}};
    int added = 0;
    changes.addHandler([&] { changes.addHandler([&added] { ++added; }); });
    changes.take({.isDark = true});
    EXPECT_EQ(added, 0);
    changes.take({.isDark = false});
    EXPECT_EQ(added, 1);
}

} // namespace zamber::macos
