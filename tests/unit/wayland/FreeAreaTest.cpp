// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/FreeArea.h"

#include <gtest/gtest.h>

namespace zamber::wayland {

namespace {

const QRect SCREEN(0, 0, 1280, 800);

TEST(FreeAreaTest, WithoutPanelsAllOfTheScreenIsFree) {
    EXPECT_EQ(freeAreaOf(SCREEN, SCREEN, QRectF(0, 0, 1, 1)), SCREEN);
}

TEST(FreeAreaTest, APanelsRoomIsLeftOut) {
    EXPECT_EQ(freeAreaOf(SCREEN, SCREEN, QRectF(0, 0, 1, 760.0 / 800)), QRect(0, 0, 1280, 760));
    EXPECT_EQ(freeAreaOf(SCREEN, SCREEN, QRectF(60.0 / 1280, 0, 1220.0 / 1280, 1)), QRect(60, 0, 1220, 800));
}

TEST(FreeAreaTest, PartsOfPointsAreNotFree) {
    // Of an X server whose pixels are two thirds of a point, with panels of 61 pixels above and below.
    EXPECT_EQ(freeAreaOf(SCREEN, SCREEN, QRectF(0, 61.0 / 1200, 1, 1078.0 / 1200)), QRect(0, 41, 1280, 718));
}

TEST(FreeAreaTest, OfSeveralScreensEachHasItsOwnPart) {
    const QRect right(1280, 0, 1280, 800);
    const QRect desktop = SCREEN | right;
    const QRectF freePart(0, 0, 1, 760.0 / 800);
    EXPECT_EQ(freeAreaOf(SCREEN, desktop, freePart), QRect(0, 0, 1280, 760));
    EXPECT_EQ(freeAreaOf(right, desktop, freePart), QRect(1280, 0, 1280, 760));
}

TEST(FreeAreaTest, WhatLeavesLittleOfAScreenIsNotAboutIt) {
    const QRect below(0, 800, 1280, 200);
    EXPECT_EQ(freeAreaOf(below, SCREEN | below, QRectF(0, 0, 1, 0.85)), below);
    EXPECT_EQ(freeAreaOf(SCREEN, SCREEN, QRectF()), SCREEN);
}

TEST(FreeAreaTest, WhatIsToldOfAScreenIsTakenWhereItMayBeTrue) {
    EXPECT_EQ(plausibleArea(SCREEN, QRect(0, 0, 1280, 760)), QRect(0, 0, 1280, 760));
    EXPECT_EQ(plausibleArea(SCREEN, QRect(-10, 40, 2000, 900)), QRect(0, 40, 1280, 760));
    EXPECT_EQ(plausibleArea(SCREEN, QRect(1280, 0, 1280, 760)), SCREEN) << "it was moved";
    EXPECT_EQ(plausibleArea(SCREEN, QRect(0, 0, 600, 800)), SCREEN);
}

} // namespace

} // namespace zamber::wayland
