// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/unit/popover/HistoryListMovesFixture.h"

#include <algorithm>

namespace zamber::popover {

using HistoryListPlacesTest = HistoryListMovesTest;

TEST_F(HistoryListPlacesTest, WhereARowIsDeletedTheNextOneTakesItsPlaceAndNothingElseAboveMoves) {
    copyEntries(60);
    open();
    scrollDown(25);
    const int row = middleRow();
    ASSERT_GT(row, 10);
    moveTo(middle());
    const QUuid next = entry(row + 1);
    const QUuid afterNext = entry(row + 2);
    const QUuid above = entry(row - 1);
    const int place = list().rowRectangle(row).top();
    const int placeAbove = top(above);

    const QPoint at = clickAction(row, RowAction::Delete);
    EXPECT_EQ(stage.manager->items().size(), 59);
    EXPECT_EQ(top(next), place);
    EXPECT_EQ(top(above), placeAbove);
    EXPECT_EQ(rowAt(at), rowOf(next));

    click(at);
    EXPECT_EQ(rowOf(next), -1) << "a second click at the same place deletes the row that moved there";
    EXPECT_EQ(top(afterNext), place);
    EXPECT_EQ(stage.manager->items().size(), 58);
    EXPECT_EQ(stage.pastes, 0);
}

TEST_F(HistoryListPlacesTest, DeletingByTheMenuOrByAssistiveTechnologyLeavesTheRestWhereItIs) {
    copyEntries(60);
    open();
    scrollDown(25);
    leave();
    const int row = firstSeenRow() + 2;
    const QUuid above = entry(row - 1);
    const QUuid below = entry(row + 1);
    const int placeAbove = top(above);
    const int place = list().rowRectangle(row).top();
    list().perform(row, RowAction::Delete);
    EXPECT_EQ(top(above), placeAbove);
    EXPECT_EQ(top(below), place);

    list().perform(0, RowAction::Delete);
    EXPECT_EQ(top(above), placeAbove) << "far above";
    list().perform(static_cast<int>(list().items().size()) - 1, RowAction::Delete);
    EXPECT_EQ(top(above), placeAbove) << "far below";
}

TEST_F(HistoryListPlacesTest, TheFirstRowThatIsSeenMayGo) {
    copyEntries(60);
    open();
    scrollDown(25);
    leave();
    const int row = firstSeenRow();
    const int place = list().rowRectangle(row).top();
    const QUuid next = entry(row + 1);
    list().perform(row, RowAction::Delete);
    EXPECT_EQ(top(next), place);
}

TEST_F(HistoryListPlacesTest, ACopyThatArrivesMovesNothingInAScrolledList) {
    copyEntries(60);
    open();
    scrollDown(25);
    for (const bool isPointedAt : {true, false}) {
        isPointedAt ? moveTo(middle()) : leave();
        const QUuid seen = entry(middleRow());
        const int place = top(seen);
        stage.copyText("a copy of " + QByteArray::number(isPointedAt) + "\nwith\nfour\nlines");
        EXPECT_EQ(top(seen), place);
        EXPECT_EQ(list().isHovered(rowOf(seen)), isPointedAt);
    }
}

TEST_F(HistoryListPlacesTest, ACopyThatArrivesLeavesTheHistorysLimitAndTheViewInPlace) {
    write(stage.defaults, preferences::maxItems, 50);
    for (int number = 49; number >= 0; --number) {
        stage.copyText("entry " + QByteArray::number(number) + "\nsecond line\nthird line\nfourth line");
    }
    open();
    scrollDown(20);
    const QUuid seen = entry(middleRow());
    const int place = top(seen);
    stage.copyText("one more");
    EXPECT_EQ(list().items().size(), 50);
    EXPECT_EQ(top(seen), place);
}

TEST_F(HistoryListPlacesTest, AtTheTopACopyThatArrivesIsSeen) {
    copyEntries(20);
    open();
    stage.copyText("fresh");
    EXPECT_EQ(list().scrollOffset(), 0);
    EXPECT_EQ(list().rowRectangle(0).top(), 4);
    EXPECT_EQ(textOfRow(0), u"fresh"_s);
}

TEST_F(HistoryListPlacesTest, ACopyThatArrivesLeavesARowThatIsBeingReadUnderThePointer) {
    copyLongTexts(20);
    open();
    turn(-6, QPoint(middle().x(), 2)); // beside every text
    pause();
    moveTo(middle() + QPoint(0, 8));
    const int row = middleRow();
    ASSERT_TRUE(list().isExpanded(row));
    const QUuid read = entry(row);
    const QRect place = list().rowRectangle(row);
    turn(-1, list().expandedTextRectangle(row).center());
    stage.copyText("fresh");
    EXPECT_EQ(list().rowRectangle(rowOf(read)), place);
    EXPECT_TRUE(list().isExpanded(rowOf(read)));
}

TEST_F(HistoryListPlacesTest, AtTheTopARowThatIsBeingReadStaysUnderThePointer) {
    copyLongTexts(10);
    open();
    const QPoint at = list().rowRectangle(1).center();
    moveTo(at);
    const QUuid read = entry(1);
    stage.copyText("fresh");
    EXPECT_EQ(rowAt(at), rowOf(read)) << "the selected row above it has collapsed";
    EXPECT_TRUE(list().isHovered(rowOf(read)));
}

TEST_F(HistoryListPlacesTest, APinnedRowLeavesItsPlaceToTheNextOne) {
    copyEntries(60);
    open();
    scrollDown(25);
    for (int time = 0; time < 2; ++time) { // without a pinned section, and with one
        const int row = middleRow();
        const QUuid next = entry(row + 1);
        const QUuid above = entry(row - 1);
        const int place = list().rowRectangle(row).top();
        const int placeAbove = top(above);
        const QPoint at = clickAction(row, RowAction::Pin);
        EXPECT_EQ(top(next), place);
        EXPECT_EQ(top(above), placeAbove);
        EXPECT_EQ(rowAt(at), rowOf(next));
    }
    EXPECT_TRUE(list().items()[1].isPinned);
}

TEST_F(HistoryListPlacesTest, AScrolledListWithAPinnedSectionStaysWhenAPinIsTakenAway) {
    copyEntries(60);
    for (int pinned = 0; pinned < 4; ++pinned) {
        pin(pinned * 3);
    }
    open();
    scrollDown(25);
    const QUuid seen = entry(middleRow());
    const int place = top(seen);
    list().perform(0, RowAction::Pin);
    EXPECT_EQ(top(seen), place);
    list().perform(1, RowAction::Delete);
    EXPECT_EQ(top(seen), place);
}

TEST_F(HistoryListPlacesTest, NearTheEndNothingMovesUntilThePointerLeaves) {
    copyEntries(20);
    open();
    turn(-1000);
    pause();
    const int last = 19;
    const QUuid above = entry(16);
    const QUuid next = entry(18);
    const int place = list().rowRectangle(17).top();
    moveTo(list().rowRectangle(17).center());
    const int placeAbove = top(above);
    const QPoint at = clickAction(17, RowAction::Delete);
    EXPECT_EQ(top(next), place);
    EXPECT_EQ(top(above), placeAbove);
    click(at);
    EXPECT_EQ(rowOf(next), -1);
    click(at);
    EXPECT_EQ(list().items().size(), last - 2) << "the last one too";
    click(at);
    click(at);
    EXPECT_EQ(list().items().size(), last - 2) << "and then there is nothing at that place";
    EXPECT_EQ(top(above), placeAbove);
    EXPECT_EQ(stage.pastes, 0);
    leave();
    EXPECT_EQ(list().rowRectangle(last - 3).bottom() + 1 + 4, list().height()) << "the room below is closed";
}

TEST_F(HistoryListPlacesTest, ASecondClickAtThePlaceOfAHighRowNeverHitsTheOneAfterTheNext) {
    for (int number = 0; number < 15; ++number) {
        stage.copyText("short " + QByteArray::number(number));
        stage.copyText(QByteArray("long words ").repeated(60) + QByteArray::number(number));
    }
    write(stage.defaults, preferences::maxItems, 50);
    open();
    for (const int notches : {0, 5, 8}) {
        scrollDown(notches);
        const int row = middleRow();
        const auto before = stage.manager->items();
        const QPoint at = clickAction(row, RowAction::Delete);
        ASSERT_EQ(stage.manager->items().size(), before.size() - 1);
        click(at);
        click(at, Qt::LeftButton);
        EXPECT_EQ(stage.pastes, 0) << "a double click on the trash chooses nothing";
        const auto isKept = [&](const QUuid& id) {
            return std::ranges::any_of(stage.manager->items(), [&](const auto& item) { return item.id == id; });
        };
        bool isGoneInARow = true; // only rows that moved there one after the other
        for (int later = row + 1; later < row + 4 && later < before.size(); ++later) {
            const bool isGone = !isKept(before[later].id);
            EXPECT_TRUE(isGoneInARow || !isGone) << "row " << later << " from row " << row;
            isGoneInARow = isGoneInARow && isGone;
        }
        moveTo(at + QPoint(8, 8));
    }
}

TEST_F(HistoryListPlacesTest, ASearchShowsTheSelectedMatch) {
    copyEntries(60);
    open();
    scrollDown(25);
    stage.manager->setSearchText(u"entry"_s); // all of them
    EXPECT_EQ(list().scrollOffset(), 0);
    EXPECT_TRUE(list().isHovered(0));
    stage.manager->setSearchText(u"entry 4"_s);
    EXPECT_EQ(list().scrollOffset(), 0);
    EXPECT_EQ(list().rowRectangle(0).top(), 4);
}

TEST_F(HistoryListPlacesTest, AnotherSizeKeepsTheFirstRowThatIsSeen) {
    copyEntries(60);
    open();
    scrollDown(25);
    leave();
    const QUuid seen = entry(firstSeenRow() + 1);
    const int place = top(seen);
    write(stage.defaults, preferences::popoverSize, u"compact"_s);
    QTest::qWait(0);
    EXPECT_NEAR(top(seen), place, 1);
    write(stage.defaults, preferences::popoverSize, u"large"_s);
    QTest::qWait(0);
    EXPECT_NEAR(top(seen), place, 1);
    write(stage.defaults, preferences::showLineCount, false);
    write(stage.defaults, preferences::showCharCount, false);
    EXPECT_NEAR(top(seen), place, 60) << "rows are lower now, yet it is still there";
    EXPECT_TRUE(list().rect().intersects(list().rowRectangle(rowOf(seen))));
}

} // namespace zamber::popover
