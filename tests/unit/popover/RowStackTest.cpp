// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RowStack.h"

#include <gtest/gtest.h>

namespace zamber::popover {

namespace {

/// Tops 4, 20 and 46; total 60.
RowStack threeRows() {
    RowStack stack(4, 6);
    stack.reset(3, 10);
    stack.setHeight(1, 20);
    return stack;
}

} // namespace

TEST(RowStack, RowsStandBelowEachOtherWithGapsAndPadding) {
    const RowStack stack = threeRows();
    EXPECT_EQ(stack.top(0), 4);
    EXPECT_EQ(stack.top(1), 20);
    EXPECT_EQ(stack.top(2), 46);
    EXPECT_EQ(stack.totalHeight(), 60);
}

TEST(RowStack, OnlyTheRowsWhoseHeightWasSetAreMeasured) {
    const RowStack stack = threeRows();
    EXPECT_FALSE(stack.isMeasured(0));
    EXPECT_TRUE(stack.isMeasured(1));
    EXPECT_FALSE(stack.isMeasured(2));
}

TEST(RowStack, TheRowAtAHeightIsTheLastThatHasBegun) {
    const RowStack stack = threeRows();
    EXPECT_EQ(stack.indexAt(-100), 0);
    EXPECT_EQ(stack.indexAt(4), 0);
    EXPECT_EQ(stack.indexAt(19.9), 0);
    EXPECT_EQ(stack.indexAt(20), 1);
    EXPECT_EQ(stack.indexAt(45), 1);
    EXPECT_EQ(stack.indexAt(46), 2);
    EXPECT_EQ(stack.indexAt(9999), 2);
}

TEST(RowStack, AChangedHeightMovesTheRowsBelow) {
    RowStack stack = threeRows();
    stack.setHeight(0, 30);
    EXPECT_EQ(stack.top(1), 40);
    EXPECT_EQ(stack.totalHeight(), 80);
}

TEST(RowStack, AnEmptyStackIsItsPadding) {
    const RowStack stack(4, 6);
    EXPECT_EQ(stack.totalHeight(), 8);
}

} // namespace zamber::popover
