// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/SystemCoordinates.h"

#include <gtest/gtest.h>

namespace zamber::macos {

TEST(SystemCoordinates, AnIconInTheMenuBarIsAtTheTopOfTheFirstScreen) {
    EXPECT_EQ(fromSystemCoordinates({1000, 876, 30, 24}, 900), QRect(1000, 0, 30, 24));
}

TEST(SystemCoordinates, AScreenAboveTheFirstOneIsNegative) {
    EXPECT_EQ(fromSystemCoordinates({200, 1956, 30, 24}, 900), QRect(200, -1080, 30, 24));
}

} // namespace zamber::macos
