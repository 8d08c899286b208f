// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinFreeAreas.h"

#include <gtest/gtest.h>

namespace zamber::wayland {

namespace {

using namespace Qt::StringLiterals;

TEST(KWinFreeAreasTest, EachScreenHasItsOwn) {
    const auto areas = freeAreasIn(uR"({"DP-1":[0,0,1280,760],"HDMI-A-1":[1280,30,1920,1050]})"_s);
    EXPECT_EQ(areas.size(), 2);
    EXPECT_EQ(areas.value(u"DP-1"_s), QRect(0, 0, 1280, 760));
    EXPECT_EQ(areas.value(u"HDMI-A-1"_s), QRect(1280, 30, 1920, 1050));
}

TEST(KWinFreeAreasTest, PartsOfPointsAreNotFree) {
    EXPECT_EQ(freeAreasIn(uR"({"A":[0,40.25,1280.5,719.5]})"_s).value(u"A"_s), QRect(0, 41, 1280, 718));
    EXPECT_EQ(freeAreasIn(uR"({"A":[-1280.5,0,1280,800]})"_s).value(u"A"_s), QRect(-1280, 0, 1279, 800));
}

TEST(KWinFreeAreasTest, WhatIsNotUnderstoodIsLeftOut) {
    for (const auto& told : {u""_s, u"null"_s, u"[1,2]"_s, u"{"_s, uR"({"A":null})"_s, uR"({"A":[1,2,3]})"_s,
                             uR"({"A":["0","0","9","9"]})"_s, uR"({"A":[0,0,-5,5]})"_s}) {
        EXPECT_TRUE(freeAreasIn(told).isEmpty()) << told.toStdString();
    }
    EXPECT_EQ(freeAreasIn(uR"({"A":7,"B":[0,0,100,50]})"_s).size(), 1);
}

} // namespace

} // namespace zamber::wayland
