// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RelativeTime.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace zamber::popover {

namespace {

constexpr double NOW = 1'767'323'045.5;

std::string after(double seconds) {
    return timeAgo(NOW - seconds, NOW).toStdString();
}

} // namespace

TEST(RelativeTime, EachUnitBeginsExactlyWhereTheOneBelowEnds) {
    const std::pair<double, const char*> table[] = {
        {0, "now"},     {4, "now"},    {5, "5s"},          {42, "42s"},         {59, "59s"},
        {60, "1m"},     {420, "7m"},   {3599, "59m"},      {3600, "1h"},        {10800, "3h"},
        {86399, "23h"}, {86400, "1d"}, {1'000'000, "11d"}, {31'536'000, "365d"}};
    for (const auto& [seconds, text] : table) {
        EXPECT_EQ(after(seconds), text) << seconds;
    }
}

TEST(RelativeTime, FractionsAreCutNotRounded) {
    EXPECT_EQ(after(4.99), "now");
    EXPECT_EQ(after(59.99), "59s");
    EXPECT_EQ(after(119), "1m");
    EXPECT_EQ(after(119.9), "1m");
    EXPECT_EQ(after(7199.9), "1h");
}

TEST(RelativeTime, TheFutureIsNow) {
    EXPECT_EQ(after(-1), "now");
    EXPECT_EQ(after(-3.7), "now");
    EXPECT_EQ(after(-1e12), "now");
}

TEST(RelativeTime, TheLargestSecondsThatAnIntegerHoldsAreStillShown) {
    const double largest = std::nextafter(9223372036854775808.0, 0.0);
    EXPECT_EQ(timeAgo(-largest, 0).toStdString(), "106751991167300d");
    EXPECT_EQ(timeAgo(9223372036854775808.0, 0).toStdString(), "now");
}

TEST(RelativeTimeDeathTest, WhatNoIntegerHoldsEndsTheProgram) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const char* neither = "Double value cannot be converted to Int because it is either infinite or NaN";
    EXPECT_DEATH(timeAgo(nan, NOW), neither);
    EXPECT_DEATH(timeAgo(infinity, NOW), neither);
    EXPECT_DEATH(timeAgo(-infinity, NOW), neither);
    EXPECT_DEATH(timeAgo(1e19, 0),
                 "Double value cannot be converted to Int because the result would be less than Int.min");
    EXPECT_DEATH(timeAgo(-9223372036854775808.0, 0),
                 "Double value cannot be converted to Int because the result would be greater than Int.max");
}

} // namespace zamber::popover
