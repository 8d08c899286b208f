// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/ClosingPress.h"

#include <gtest/gtest.h>

namespace zamber::freedesktop::tray {

namespace {

constexpr QPoint ICON(1200, 14);

TEST(ClosingPress, AClickWithoutAPressThatClosedIsAnother) {
    ClosingPress press;
    EXPECT_FALSE(press.claim(ICON));
}

TEST(ClosingPress, TheClickAtThePlaceOfThePressIsTheSameAndOnlyOnce) {
    ClosingPress press;
    press.note(ICON);
    EXPECT_TRUE(press.claim(ICON + QPoint(5, -3)));
    EXPECT_FALSE(press.claim(ICON));
}

TEST(ClosingPress, AClickElsewhereIsAnother) {
    ClosingPress press;
    press.note(QPoint(20, 700));
    EXPECT_FALSE(press.claim(ICON));
    EXPECT_FALSE(press.claim(QPoint(20, 700))) << "the press is over";
}

TEST(ClosingPress, WhatWasOpenedSinceIsClosedByAnotherClick) {
    ClosingPress press;
    press.note(ICON);
    press.forget();
    EXPECT_FALSE(press.claim(ICON));
}

} // namespace

} // namespace zamber::freedesktop::tray
