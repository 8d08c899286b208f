// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/unit/popover/ClipboardListViewFixture.h"

namespace zamber::popover {

using ClipboardListKeyboardTest = ClipboardListViewTest;

TEST_F(ClipboardListKeyboardTest, UpAndDownStopAtTheEnds) {
    stage.copyTexts(3);
    open();
    press(HardwareKey::UpArrow);
    EXPECT_EQ(stage.view->selectedIndex(), 0);
    press(HardwareKey::DownArrow, 7);
    EXPECT_EQ(stage.view->selectedIndex(), 2);
    EXPECT_EQ(highlightedRows(), QList<int>{2});
    press(HardwareKey::UpArrow);
    EXPECT_EQ(stage.view->selectedIndex(), 1);
}

TEST_F(ClipboardListKeyboardTest, DownBeyondTheVisibleAreaScrollsTheSelectedRowToTheCentre) {
    stage.copyTexts(20);
    open();
    press(HardwareKey::DownArrow, 10);
    EXPECT_NEAR(stage.list().rowRectangle(10).center().y(), stage.list().rect().center().y(), 2);
    press(HardwareKey::DownArrow, 30);
    EXPECT_LE(stage.list().rowRectangle(19).bottom(), stage.list().rect().bottom());
    EXPECT_GE(stage.list().rowRectangle(19).top(), 0);
}

TEST_F(ClipboardListKeyboardTest, ReturnCopiesTheSelectedEntryAndThenPastes) {
    stage.copyTexts(3);
    open();
    press(HardwareKey::DownArrow);
    std::optional<QByteArray> onTheClipboardWhenPasting;
    stage.manager->onPaste = [&] { onTheClipboardWhenPasting = pasted(); };
    press(HardwareKey::Return);
    EXPECT_EQ(onTheClipboardWhenPasting, "text 1");
}

TEST_F(ClipboardListKeyboardTest, EscapeClosesThePopover) {
    open();
    press(HardwareKey::Escape);
    EXPECT_EQ(stage.closed, 1);
}

TEST_F(ClipboardListKeyboardTest, TheFourKeysAreSwallowedInAnEmptyListAndOthersPassOn) {
    open();
    press(HardwareKey::UpArrow);
    press(HardwareKey::DownArrow);
    press(HardwareKey::Return);
    EXPECT_EQ(stage.view->selectedIndex(), 0);
    EXPECT_EQ(stage.pastes, 0);
    EXPECT_EQ(stage.keyMonitor.press(HardwareKey::Other), KeyDisposition::PassOn);
}

TEST_F(ClipboardListKeyboardTest, ASelectionBeyondAShrunkenListIsStale) {
    stage.copyTexts(10);
    open();
    press(HardwareKey::DownArrow, 6);
    stage.manager->setSearchText(u"text 3"_s);
    ASSERT_EQ(stage.list().items().size(), 1);
    EXPECT_EQ(stage.view->selectedIndex(), 6);
    EXPECT_EQ(highlightedRows(), QList<int>{});
    press(HardwareKey::Return);
    EXPECT_EQ(stage.pastes, 0);
    press(HardwareKey::UpArrow);
    EXPECT_EQ(stage.view->selectedIndex(), 5);
    press(HardwareKey::DownArrow);
    EXPECT_EQ(stage.view->selectedIndex(), 0);
    press(HardwareKey::Return);
    EXPECT_EQ(pasted(), "text 3");
}

TEST_F(ClipboardListKeyboardTest, TheKeysAreWatchedOnlyWhileTheViewIsShown) {
    stage.copyTexts(3);
    stage.makeView();
    EXPECT_EQ(stage.keyMonitor.handlerCount(), 0U);
    stage.view->show();
    EXPECT_EQ(stage.keyMonitor.handlerCount(), 1U);
    press(HardwareKey::DownArrow, 2);
    stage.view->hide();
    EXPECT_EQ(stage.keyMonitor.handlerCount(), 0U);
    stage.view->show();
    EXPECT_EQ(stage.keyMonitor.handlerCount(), 1U);
    EXPECT_EQ(stage.view->selectedIndex(), 0) << "each opening starts at the top";
    EXPECT_EQ(highlightedRows(), QList<int>{0});
}

TEST_F(ClipboardListKeyboardTest, TypingGoesToTheSearchFieldAndFiltersAtOnce) {
    stage.copyText("apple");
    stage.copyText("banana");
    open();
    QTest::keyClicks(stage.view->focusWidget(), u"ban"_s);
    EXPECT_EQ(stage.manager->searchText(), u"ban"_s);
    ASSERT_EQ(stage.list().items().size(), 1);
    EXPECT_EQ(textOfRow(0), u"banana"_s);
}

TEST_F(ClipboardListKeyboardTest, WhatAnInputMethodComposesIsSearchedForOnceItIsCommitted) {
    stage.copyText("apple");
    stage.copyText("你好");
    open();
    auto* field = visible<QLineEdit>(u"searchField"_s);
    QInputMethodEvent composing(u"ni hao"_s, {});
    QCoreApplication::sendEvent(field, &composing);
    EXPECT_EQ(stage.manager->searchText(), QString());
    EXPECT_EQ(stage.list().items().size(), 2);
    QInputMethodEvent committed;
    committed.setCommitString(u"你好"_s);
    QCoreApplication::sendEvent(field, &committed);
    EXPECT_EQ(stage.manager->searchText(), u"你好"_s);
    ASSERT_EQ(stage.list().items().size(), 1);
    EXPECT_EQ(textOfRow(0), u"你好"_s);
}

TEST_F(ClipboardListKeyboardTest, TheClearSearchButtonIsThereWhileThereIsText) {
    stage.copyTexts(2);
    open();
    EXPECT_EQ(visible<QAbstractButton>(u"Clear search"_s), nullptr);
    stage.manager->setSearchText(u" "_s);
    EXPECT_EQ(visible<QLineEdit>(u"Search clipboard…"_s)->text(), u" "_s);
    visible<QAbstractButton>(u"Clear search"_s)->click();
    EXPECT_EQ(stage.manager->searchText(), QString());
    EXPECT_EQ(visible<QAbstractButton>(u"Clear search"_s), nullptr);
    EXPECT_EQ(stage.list().items().size(), 2);
}

TEST_F(ClipboardListKeyboardTest, APressThatArrivesAfterThePopoverHasClosedAsksNothing) {
    stage.copyTexts(3);
    open();
    auto* const clear = visible<QAbstractButton>(u"Clear"_s);
    stage.view->hide();
    clear->click();
    stage.view->show();
    EXPECT_EQ(visible<QAbstractButton>(u"Clear All"_s), nullptr);
}

TEST_F(ClipboardListKeyboardTest, TheFormerSearchIsSelectedSoThatTheNextOneReplacesIt) {
    stage.copyText("alpha");
    stage.copyText("beta");
    open();
    QTest::keyClicks(stage.view->focusWidget(), u"alpha"_s);
    press(HardwareKey::Return);
    stage.view->hide();
    stage.view->show();
    EXPECT_EQ(visible<QLineEdit>(u"searchField"_s)->selectedText(), u"alpha"_s);
    QTest::keyClicks(stage.view->focusWidget(), u"beta"_s);
    EXPECT_EQ(stage.manager->searchText(), u"beta"_s);
    ASSERT_EQ(stage.list().items().size(), 1);
    EXPECT_EQ(textOfRow(0), u"beta"_s);
}

TEST_F(ClipboardListKeyboardTest, TheFormerSearchCanBeGoneOnWith) {
    stage.copyTexts(3);
    open();
    QTest::keyClicks(stage.view->focusWidget(), u"tex"_s);
    stage.view->hide();
    stage.view->show();
    QTest::keyClick(stage.view->focusWidget(), Qt::Key_Right);
    QTest::keyClicks(stage.view->focusWidget(), u"t"_s);
    EXPECT_EQ(stage.manager->searchText(), u"text"_s);
}

TEST_F(ClipboardListKeyboardTest, TheSearchTextSurvivesClosing) {
    stage.copyTexts(3);
    open();
    stage.manager->setSearchText(u"2"_s);
    stage.view->hide();
    stage.view->show();
    EXPECT_EQ(stage.list().items().size(), 1);
}

TEST_F(ClipboardListKeyboardTest, TheHighlightAndTheScrollMoveUnlessMotionIsReduced) {
    stage.copyTexts(20);
    stage.appearance.setReducedMotion(false);
    open();
    press(HardwareKey::DownArrow, 10);
    EXPECT_LT(stage.list().scrollOffset(), 50) << "it has only begun to scroll";
    const auto isCentred = [&] {
        return std::abs(stage.list().rowRectangle(10).center().y() - stage.list().rect().center().y()) <= 2;
    };
    EXPECT_TRUE(QTest::qWaitFor(isCentred, 5000));
}

} // namespace zamber::popover
