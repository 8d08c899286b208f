// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/Panels.h"

#include <gtest/gtest.h>

namespace zamber::x11 {

namespace {

using Edge = ReservedStrip::Edge;

constexpr QRect LEFT_MONITOR(0, 0, 1280, 800);
constexpr QRect RIGHT_MONITOR(1280, 0, 1920, 1080);
constexpr QSize DESKTOP(3200, 1080);

QRect left(const std::vector<ReservedStrip>& strips, const QRect& monitor) {
    return withoutStrips(monitor, DESKTOP, strips);
}

} // namespace

TEST(WithoutStrips, WithoutPanelsAMonitorIsFree) {
    EXPECT_EQ(left({}, LEFT_MONITOR), LEFT_MONITOR);
}

TEST(WithoutStrips, APanelTakesItsEdgeOfTheMonitorThatItIsOn) {
    const ReservedStrip top{Edge::Top, 28, 0, 1279};
    EXPECT_EQ(left({top}, LEFT_MONITOR), QRect(0, 28, 1280, 772));
    EXPECT_EQ(left({top}, RIGHT_MONITOR), RIGHT_MONITOR);
    EXPECT_EQ(left({{Edge::Top, 40, 1280, 3199}}, RIGHT_MONITOR), QRect(1280, 40, 1920, 1040));
    EXPECT_EQ(left({{Edge::Bottom, 30, 1280, 3199}}, RIGHT_MONITOR), QRect(1280, 0, 1920, 1050));
    EXPECT_EQ(left({{Edge::Left, 64, 0, 799}}, LEFT_MONITOR), QRect(64, 0, 1216, 800));
    EXPECT_EQ(left({{Edge::Right, 64, 0, 1079}}, RIGHT_MONITOR), QRect(1280, 0, 1856, 1080));
}

TEST(WithoutStrips, APanelAtTheBottomOfALowerMonitorIsCountedFromTheDesktopsEdge) {
    EXPECT_EQ(left({{Edge::Bottom, 280 + 30, 0, 1279}}, LEFT_MONITOR), QRect(0, 0, 1280, 770));
}

TEST(WithoutStrips, APanelBetweenTwoMonitorsTakesNothingOfTheOneItReachesThrough) {
    const ReservedStrip inner{Edge::Left, 1280 + 48, 0, 799};
    EXPECT_EQ(left({inner}, LEFT_MONITOR), LEFT_MONITOR);
    EXPECT_EQ(left({inner}, RIGHT_MONITOR), QRect(1280 + 48, 0, 1920 - 48, 1080));
}

TEST(WithoutStrips, SeveralPanelsTakeWhatTheWidestTakesOfEachEdge) {
    EXPECT_EQ(left({{Edge::Top, 28, 0, 600}, {Edge::Top, 40, 700, 1279}, {Edge::Left, 50, 0, 1079}}, LEFT_MONITOR),
              QRect(50, 40, 1230, 760));
}

} // namespace zamber::x11
