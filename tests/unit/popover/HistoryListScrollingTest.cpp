// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/unit/popover/HistoryListMovesFixture.h"

#include <algorithm>

namespace zamber::popover {

using HistoryListScrollingTest = HistoryListMovesTest;

TEST_F(HistoryListScrollingTest, EachNotchMovesTheListByItsWayAndNoRowChangesItsHeight) {
    copyLongTexts(20);
    open();
    moveTo(list().rowRectangle(3).center()); // which expands
    const QPoint at(middle().x(), list().height() - 4);
    moveTo(at);
    ASSERT_TRUE(list().isExpanded(rowAt(at)));
    ASSERT_TRUE(list().expandedTextRectangle(rowAt(at)).contains(at));
    turn(-1000, at); // its text is at its end
    pause();
    const int row = rowAt(at);
    ASSERT_EQ(row, 3) << "the wheel has moved the text and not the list";
    const QUuid anchor = entry(row);
    double wanted = top(anchor);
    double lowest = list().rowRectangle(19).bottom();
    for (int notch = 0; notch < 16 && lowest - POINTS_PER_NOTCH > list().height(); ++notch) {
        turn(-1, at);
        stage.scheduler.advance(60ms);
        wanted -= POINTS_PER_NOTCH;
        EXPECT_NEAR(top(anchor), wanted, 1) << "notch " << notch;
        lowest = list().rowRectangle(19).bottom();
    }
    EXPECT_LT(wanted, -POINTS_PER_NOTCH);
}

TEST_F(HistoryListScrollingTest, SixteenNotchesOverLongTextsGoOn) {
    copyLongTexts(20, 30); // what is expanded fits, so that the wheel is the list's
    open();
    for (const auto between : {30ms, 120ms, 350ms, 1000ms}) {
        turn(1000);
        pause();
        int before = firstSeenRow();
        int underBefore = rowAt(middle());
        for (int notch = 0; notch < 16; ++notch) {
            turn(-1);
            stage.scheduler.advance(between);
            EXPECT_GE(firstSeenRow(), before) << "notch " << notch << " every " << between.count() << " ms";
            const int under = rowAt(middle());
            EXPECT_TRUE(under < 0 || under >= underBefore) << "notch " << notch;
            before = firstSeenRow();
            underBefore = std::max(underBefore, under);
        }
        EXPECT_GE(before, 6) << "every " << between.count() << " ms";
    }
}

TEST_F(HistoryListScrollingTest, AfterAPauseTheRowUnderThePointerIsHighlightedAndStays) {
    copyLongTexts(20, 30);
    open();
    moveTo(middle());
    turn(-1);
    const int row = turnOntoARow(3);
    EXPECT_FALSE(list().isExpanded(row)) << "not while the list scrolls";
    pause();
    const int rested = rowAt(middle());
    ASSERT_GE(rested, row);
    EXPECT_TRUE(list().isExpanded(rested));
    EXPECT_EQ(rowAt(middle()), rested);
}

TEST_F(HistoryListScrollingTest, APointerThatMovesEndsTheScrollingAtOnceButATremorDoesNot) {
    copyLongTexts(20, 30);
    open();
    moveTo(middle());
    const int row = turnOntoARow(3);
    moveTo(middle() + QPoint(1, 0));
    EXPECT_FALSE(list().isExpanded(row));
    moveTo(middle() + QPoint(6, 0));
    EXPECT_TRUE(list().isExpanded(rowAt(middle() + QPoint(6, 0))));
}

TEST_F(HistoryListScrollingTest, TheListKeepsTheWheelWhenAnExpandedTextComesUnderThePointer) {
    copyLongTexts(20);
    open();
    press(HardwareKey::DownArrow, 6); // which is expanded wherever the pointer is
    turn(1000, QPoint(middle().x(), 2));
    pause();
    leave();
    const QPoint at = middle();
    const QUuid anchor = entry(19);
    int before = top(anchor);
    turn(-1, QPoint(at.x(), 2)); // beside every text
    for (int notch = 0; notch < 12; ++notch) {
        turn(-1, at);
        EXPECT_LT(top(anchor), before) << "notch " << notch;
        before = top(anchor);
    }
}

TEST_F(HistoryListScrollingTest, AnExpandedTextHasTheWheelUntilItsEnd) {
    copyLongTexts(10);
    open();
    moveTo(list().rowRectangle(0).center());
    const QPoint at = list().expandedTextRectangle(0).center();
    turn(-1, at);
    EXPECT_EQ(list().scrollOffset(), 0);
    turn(-1000, at);
    turn(-1, at);
    EXPECT_GT(list().scrollOffset(), 0);
}

TEST_F(HistoryListScrollingTest, RowsThatWereNeverSeenComeIntoViewAtTheWheelsPace) {
    copyEntries(60);
    open();
    press(HardwareKey::DownArrow, 59);
    leave();
    ASSERT_GT(list().scrollOffset(), 1000);
    for (int notch = 0; notch < 30; ++notch) {
        const QUuid seen = entry(firstSeenRow() + 1);
        const int place = top(seen);
        turn(1);
        EXPECT_NEAR(top(seen), place + POINTS_PER_NOTCH, 1) << "notch " << notch;
    }
}

TEST_F(HistoryListScrollingTest, FractionsOfANotchAndPixelsAddUp) {
    copyEntries(60);
    open();
    for (int part = 0; part < 8; ++part) {
        turnBy(QPoint(0, -15), {}, middle());
    }
    EXPECT_NEAR(list().scrollOffset(), POINTS_PER_NOTCH, 0.01);
    turnBy(QPoint(0, -15), QPoint(0, -7), middle());
    EXPECT_NEAR(list().scrollOffset(), POINTS_PER_NOTCH + 7, 0.01);
    turnBy(QPoint(0, 15), QPoint(0, 7), middle());
    EXPECT_NEAR(list().scrollOffset(), POINTS_PER_NOTCH, 0.01);
}

TEST_F(HistoryListScrollingTest, ANotchWhileARowExpandsLeavesItsTextWhereItBegins) {
    stage.copyText("below");
    stage.copyText("first words of all, then others, and so on until there are more than fit into two lines of the "
                   "list, yet no more than an expanded row shows at once without being scrolled at all, I should say");
    stage.copyText("above");
    stage.appearance.setReducedMotion(false);
    open();
    const auto isSettled = [this] { return list().rowRectangle(1).height() > 60; };
    const auto picture = [this] { return list().grab(list().expandedTextRectangle(1)).toImage(); };

    moveTo(list().rowRectangle(1).center());
    ASSERT_TRUE(QTest::qWaitFor(isSettled, 5000));
    QTest::qWait(200);
    const QImage unscrolled = picture();
    ASSERT_LT(list().expandedTextRectangle(1).height(), 120) << "all of it fits";

    leave();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !isSettled(); }, 5000));
    QTest::qWait(200);
    moveTo(list().rowRectangle(1).center());
    for (int notch = 0; notch < 3; ++notch) {
        turn(-1, list().rowRectangle(1).center());
    }
    ASSERT_TRUE(QTest::qWaitFor(isSettled, 5000));
    QTest::qWait(200);
    EXPECT_EQ(picture(), unscrolled);
}

TEST_F(HistoryListScrollingTest, TheLastRowExpandsAndCollapsesInItsPlace) {
    copyLongTexts(20, 30);
    open();
    turn(-1000);
    pause();
    leave();
    const int place = list().rowRectangle(19).top();
    moveTo(list().rowRectangle(19).center());
    EXPECT_TRUE(list().isExpanded(19));
    EXPECT_EQ(list().rowRectangle(19).top(), place);
    const QPoint above = list().rowRectangle(18).center();
    moveTo(above);
    EXPECT_EQ(rowAt(above), 18);
    leave();
    EXPECT_EQ(list().rowRectangle(19).bottom() + 1 + 4, list().height());
}

TEST_F(HistoryListScrollingTest, TheArrowKeysAfterTheWheelShowTheSelectedRow) {
    copyLongTexts(20, 30);
    open();
    moveTo(middle());
    turn(-8);
    press(HardwareKey::DownArrow);
    EXPECT_TRUE(list().rect().contains(list().rowRectangle(1)));
    EXPECT_EQ(highlightedRows(), QList<int>{1}) << "what the wheel had passed by is not highlighted";
    pause();
    EXPECT_TRUE(list().rect().contains(list().rowRectangle(1)));
}

TEST_F(HistoryListScrollingTest, ClosingForgetsWhereTheWheelWas) {
    copyLongTexts(20, 30);
    open();
    moveTo(middle());
    turn(-8);
    stage.view->hide();
    stage.view->show();
    pause();
    EXPECT_EQ(list().scrollOffset(), 0);
    EXPECT_EQ(highlightedRows(), QList<int>{0});
}

} // namespace zamber::popover
