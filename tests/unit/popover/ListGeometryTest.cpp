// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ListGeometry.h"

#include <gtest/gtest.h>

#include <vector>

namespace zamber::popover {

namespace {

using RoomBelow = ListGeometry::RoomBelow;

constexpr int HEADER = 20;
constexpr int VIEW = 200;
constexpr int GAP = 6;
constexpr int PADDING = 4;

/// Rows of the heights that the test says, in a view of 200 points; their true heights are nothing like the guess.
class ListGeometryTest : public testing::Test {
protected:
    ListGeometryTest() { geometry.setViewHeight(VIEW); }

    void fill(int count, int height, int pinned = 0) {
        heights.assign(static_cast<std::size_t>(count), height);
        list(pinned);
        geometry.scrollTo(0);
    }

    /// As when the list has become another one: nothing is known but what has been measured.
    void list(int pinned = 0) {
        geometry.setRows({static_cast<int>(heights.size()), pinned}, [](int) { return std::nullopt; });
    }

    int top(int row) { return geometry.rowSpan(row).top; }
    int height(int row) { return geometry.rowSpan(row).height; }
    void grow(int row, int to) { heights[static_cast<std::size_t>(row)] = to; }

    std::vector<int> heights;
    int measured = 0;
    ListGeometry geometry{[this](int row) {
                              ++measured;
                              return heights[static_cast<std::size_t>(row)];
                          },
                          HEADER};
};

} // namespace

TEST_F(ListGeometryTest, RowsStandBelowEachOther) {
    fill(3, 50);
    EXPECT_EQ(top(0), PADDING);
    EXPECT_EQ(top(2), PADDING + 2 * (50 + GAP));
}

TEST_F(ListGeometryTest, HeadersStandAboveBothSections) {
    fill(4, 50, 2);
    EXPECT_EQ(top(0), PADDING + HEADER + GAP);
    EXPECT_EQ(top(2) - top(1), 50 + GAP + HEADER + GAP);
    EXPECT_EQ(geometry.elementAt(top(1)), geometry.sections().elementOfRow(1));
}

TEST_F(ListGeometryTest, OnlyRowsInViewAreMeasured) {
    fill(10'000, 50);
    EXPECT_LE(measured, 8);
}

TEST_F(ListGeometryTest, AnEmptyListScrollsNowhere) {
    fill(0, 0);
    geometry.scrollBy(100);
    EXPECT_EQ(geometry.offset(), 0);
    EXPECT_TRUE(geometry.isEmpty());
    EXPECT_FALSE(geometry.holdView());
}

TEST_F(ListGeometryTest, ScrollingGoesItsDistanceThroughRowsThatWereNeverMeasured) {
    fill(100, 90);
    geometry.scrollTo(2000); // by guess
    for (const double distance : {30.0, -30.0, -100.0, -100.0, -300.0, 56.0}) {
        const auto held = geometry.holdView();
        ASSERT_TRUE(held);
        geometry.scrollBy(distance);
        EXPECT_NEAR(geometry.hold(held->row).top, held->top - distance, 0.001) << distance;
    }
}

TEST_F(ListGeometryTest, ScrollingEndsAtBothEnds) {
    fill(20, 50);
    geometry.scrollBy(-10);
    EXPECT_EQ(geometry.offset(), 0);
    geometry.scrollBy(100'000);
    EXPECT_EQ(top(19) + 50 + PADDING, VIEW);
    geometry.scrollBy(1);
    EXPECT_EQ(top(19) + 50 + PADDING, VIEW);
}

TEST_F(ListGeometryTest, AListThatFitsDoesNotScroll) {
    fill(3, 20);
    geometry.scrollBy(50);
    EXPECT_EQ(geometry.offset(), 0);
    EXPECT_EQ(geometry.centredOffset(2), 0);
}

TEST_F(ListGeometryTest, AHeldRowStaysWhereverHeightsChange) {
    fill(30, 50);
    geometry.scrollBy(500);
    const int row = geometry.holdView()->row + 2;
    const auto held = geometry.hold(row);
    for (const int other : {0, row - 1, row, row + 1, 29}) {
        grow(other, 110);
        geometry.measureAgain(other);
        geometry.keep(held, RoomBelow::Close);
        EXPECT_EQ(geometry.hold(row).top, held.top) << "row " << other;
    }
}

TEST_F(ListGeometryTest, ARowThatTheViewCutsOffShrinksAboveTheView) {
    fill(30, 50);
    grow(3, 150);
    geometry.measureAgain(3);
    geometry.scrollTo(top(3) + 60); // 90 points of it are seen
    auto held = geometry.holdView();
    ASSERT_EQ(held->row, 3);
    grow(3, 100);
    geometry.measureAgain(3);
    geometry.keep(*held, RoomBelow::Close);
    EXPECT_EQ(top(4), 90 + GAP) << "what is below it does not move";

    held = geometry.holdView();
    grow(3, 50);
    geometry.measureAgain(3);
    geometry.keep(*held, RoomBelow::Close);
    EXPECT_EQ(top(3), 0) << "all of it is seen now, and what is above it is not";
}

TEST_F(ListGeometryTest, AHeldRowStaysWhenTheListBecomesAnotherOne) {
    fill(30, 50);
    geometry.scrollBy(500);
    auto held = geometry.hold(geometry.holdView()->row + 2);
    heights.insert(heights.begin(), 3, 75); // three more above it, and a section
    held.row += 3;
    list(2);
    geometry.keep(held, RoomBelow::Close);
    EXPECT_EQ(geometry.hold(held.row).top, held.top);
}

TEST_F(ListGeometryTest, RoomBelowTheLastRowIsLeftUntilItIsClosed) {
    fill(10, 50);
    geometry.scrollBy(10'000);
    const auto held = geometry.hold(7);
    heights.pop_back();
    list();
    geometry.keep(held, RoomBelow::Leave);
    EXPECT_EQ(geometry.hold(7).top, held.top);
    geometry.scrollBy(20);
    EXPECT_EQ(geometry.hold(7).top, held.top) << "there is nothing further down";
    geometry.scrollBy(-10);
    EXPECT_EQ(geometry.hold(7).top, held.top + 10);
    geometry.keep(*geometry.holdView(), RoomBelow::Close);
    EXPECT_EQ(top(8) + 50 + PADDING, VIEW);
}

TEST_F(ListGeometryTest, RoomIsLeftOnlyBelowRowsThatAreInView) {
    fill(30, 50);
    geometry.scrollBy(10'000);
    ListGeometry::Hold held = geometry.hold(28);
    heights.resize(2);
    held.row = 1;
    held.top = -80; // all that is left would be above the view
    list();
    geometry.keep(held, RoomBelow::Leave);
    EXPECT_EQ(geometry.offset(), 0);
}

TEST_F(ListGeometryTest, ARowIsCentredAsFarAsTheListGoes) {
    fill(30, 50);
    geometry.measureAround(15);
    geometry.scrollTo(geometry.centredOffset(15));
    EXPECT_EQ(top(15) + 25, VIEW / 2);
    geometry.scrollTo(geometry.centredOffset(0));
    EXPECT_EQ(geometry.offset(), 0);
    geometry.measureAround(29);
    geometry.scrollTo(geometry.centredOffset(29));
    EXPECT_EQ(top(29) + 50 + PADDING, VIEW);
}

TEST_F(ListGeometryTest, AKnownHeightIsNotMeasuredAgain) {
    fill(30, 50);
    measured = 0;
    geometry.setRows({30, 0}, [](int row) { return row < 20 ? std::optional(50) : std::nullopt; });
    geometry.scrollTo(0);
    EXPECT_EQ(measured, 0);
    EXPECT_EQ(top(19), PADDING + 19 * (50 + GAP));
}

} // namespace zamber::popover
