// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "tests/unit/popover/ClipboardListViewFixture.h"
#include "ui/Typography.h"

#include <QWheelEvent>

namespace zamber::popover {

TEST_F(ClipboardListViewTest, AnEmptyHistoryInvitesToCopy) {
    open();
    EXPECT_EQ(labelText(u"emptyStateTitle"_s), u"Copy something to get started"_s);
    EXPECT_EQ(labelText(u"emptyStateHint"_s), u"⌘⇧V to open anytime"_s);
    EXPECT_EQ(stage.view->findChild<QWidget*>(u"emptyStateHint"_s)->toolTip(), u"⌘ is Command"_s);
    EXPECT_EQ(badge(), QString());
    EXPECT_EQ(visible<QAbstractButton>(u"Clear"_s), nullptr);
    EXPECT_FALSE(stage.list().isVisible());
    stage.view->grab();
    EXPECT_TRUE(symbols.requestedNames().contains(u"clipboard"_s));
}

TEST_F(ClipboardListViewTest, ASearchWithoutMatchSaysSoAndStillCountsTheWholeHistory) {
    stage.copyTexts(3);
    open();
    stage.manager->setSearchText(u"nothing like this"_s);
    EXPECT_EQ(labelText(u"emptyStateTitle"_s), u"No matches found"_s);
    EXPECT_EQ(labelText(u"emptyStateHint"_s), QString());
    EXPECT_EQ(badge(), u"3/20"_s);
    EXPECT_NE(visible<QAbstractButton>(u"Clear"_s), nullptr);
}

TEST_F(ClipboardListViewTest, TheBadgeFollowsTheHistoryAndItsLimit) {
    stage.copyTexts(2);
    open();
    EXPECT_EQ(badge(), u"2/20"_s);
    stage.copyText("another");
    EXPECT_EQ(badge(), u"3/20"_s);
    write(stage.defaults, preferences::maxItems, 50);
    EXPECT_EQ(badge(), u"3/50"_s);
}

TEST_F(ClipboardListViewTest, AHistoryOfOnlyPinnedEntriesHasOneHeaderAndNothingToClear) {
    stage.copyTexts(2);
    pin(0);
    pin(1);
    open();
    EXPECT_EQ(visible<QAbstractButton>(u"Clear"_s), nullptr);
    stage.view->grab();
    EXPECT_TRUE(symbols.requestedNames().contains(u"pin.fill"_s));
    EXPECT_FALSE(symbols.requestedNames().contains(u"clock"_s));
    EXPECT_GT(stage.list().rowRectangle(0).top(), 20) << "room for the header";
}

TEST_F(ClipboardListViewTest, AHistoryWithoutPinnedEntriesHasNoHeader) {
    stage.copyTexts(2);
    open();
    stage.view->grab();
    EXPECT_FALSE(symbols.requestedNames().contains(u"clock"_s));
    EXPECT_EQ(stage.list().rowRectangle(0).top(), 4);
}

TEST_F(ClipboardListViewTest, PinnedEntriesComeFirstUnderTheirHeader) {
    stage.copyTexts(3);
    pin(2);
    open();
    stage.view->grab();
    EXPECT_TRUE(symbols.requestedNames().contains(u"clock"_s));
    EXPECT_EQ(textOfRow(0), u"text 0"_s);
    EXPECT_EQ(textOfRow(1), u"text 2"_s);
    EXPECT_GT(stage.list().rowRectangle(1).top() - stage.list().rowRectangle(0).bottom(), 20);
}

TEST_F(ClipboardListViewTest, AClickOnARowChoosesIt) {
    stage.copyTexts(3);
    open();
    click(stage.list().rowRectangle(2).center());
    EXPECT_EQ(pasted(), "text 0");
    EXPECT_EQ(stage.pastes, 1);
}

TEST_F(ClipboardListViewTest, APressThatIsReleasedElsewhereChoosesNothing) {
    stage.copyTexts(3);
    open();
    QTest::mousePress(&stage.list(), Qt::LeftButton, {}, stage.list().rowRectangle(1).center());
    QTest::mouseRelease(&stage.list(), Qt::LeftButton, {}, stage.list().rowRectangle(2).center());
    EXPECT_EQ(stage.pastes, 0);
}

TEST_F(ClipboardListViewTest, HoverAndSelectionMayHighlightTwoRows) {
    stage.copyTexts(3);
    open();
    moveTo(stage.list().rowRectangle(2).center());
    EXPECT_EQ(highlightedRows(), (QList<int>{0, 2}));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&stage.list(), &leave);
    EXPECT_EQ(highlightedRows(), QList<int>{0});
}

TEST_F(ClipboardListViewTest, TheSmallButtonsDoOnlyTheirOwn) {
    stage.copyTexts(3);
    open();
    moveTo(stage.list().rowRectangle(1).center());
    click(stage.list().actionRectangle(1, RowAction::Pin).center());
    EXPECT_TRUE(stage.list().items()[0].isPinned);
    EXPECT_EQ(textOfRow(0), u"text 1"_s);
    moveTo(stage.list().rowRectangle(2).center());
    click(stage.list().actionRectangle(2, RowAction::Delete).center());
    EXPECT_EQ(stage.manager->items().size(), 2);
    EXPECT_EQ(stage.pastes, 0);
}

TEST_F(ClipboardListViewTest, ClearAllKeepsPinnedEntriesAndCancelChangesNothing) {
    stage.copyTexts(3);
    pin(1);
    open();
    visible<QAbstractButton>(u"Clear"_s)->click();
    ASSERT_NE(visible<QAbstractButton>(u"Cancel"_s), nullptr);
    EXPECT_NE(visible<QWidget>(u"Clear all clipboard items?"_s), nullptr);
    visible<QAbstractButton>(u"Cancel"_s)->click();
    EXPECT_EQ(stage.manager->items().size(), 3);
    EXPECT_EQ(visible<QAbstractButton>(u"Cancel"_s), nullptr);

    visible<QAbstractButton>(u"Clear"_s)->click();
    visible<QAbstractButton>(u"Clear All"_s)->click();
    ASSERT_EQ(stage.manager->items().size(), 1);
    EXPECT_EQ(textOfRow(0), u"text 1"_s);
    EXPECT_EQ(visible<QAbstractButton>(u"Clear All"_s), nullptr);
    EXPECT_EQ(visible<QAbstractButton>(u"Clear"_s), nullptr);
    EXPECT_EQ(stage.view->focusWidget(), visible<QLineEdit>(u"Search clipboard…"_s));
}

TEST_F(ClipboardListViewTest, ClosingThePopoverTakesTheQuestionAway) {
    stage.copyTexts(3);
    open();
    visible<QAbstractButton>(u"Clear"_s)->click();
    stage.view->hide();
    stage.view->show();
    EXPECT_EQ(visible<QAbstractButton>(u"Clear All"_s), nullptr);
    EXPECT_EQ(stage.manager->items().size(), 3);
}

TEST_F(ClipboardListViewTest, TheSettingsButtonIsThereWhenThereAreSettingsToOpen) {
    open();
    visible<QAbstractButton>(u"Settings"_s)->click();
    EXPECT_EQ(stage.settingsOpened, 1);

    stage.view = std::make_unique<ClipboardListView>(stage.keyMonitor, stage.appearance, symbols, stage.defaults,
                                                     stage.scheduler, stage.manager,
                                                     PopoverServices{.openSettings = {}, .closePopover = [] {}});
    stage.view->show();
    EXPECT_EQ(visible<QAbstractButton>(u"Settings"_s), nullptr);
}

TEST_F(ClipboardListViewTest, TheUpdateBannerTellsTheVersionAndDisappearsAfterItsCloseButton) {
    open();
    EXPECT_EQ(visible<QWidget>(u"updateBanner"_s), nullptr);
    int downloads = 0;
    stage.view->setUpdateNotice(UpdateNotice{.latestVersion = u"1.4.2"_s,
                                             .download = [&] { ++downloads; },
                                             .skip = [&] { stage.view->setUpdateNotice(std::nullopt); }});
    QTest::qWait(0);
    ASSERT_NE(visible<QWidget>(u"updateBanner"_s), nullptr);
    EXPECT_EQ(labelText(u"updateText"_s), u"v1.4.2 available"_s);
    visible<QAbstractButton>(u"Update"_s)->click();
    EXPECT_EQ(downloads, 1);
    EXPECT_NE(visible<QWidget>(u"updateBanner"_s), nullptr) << "it stays until it is skipped";
    visible<QAbstractButton>(u"Skip This Version"_s)->click();
    EXPECT_EQ(visible<QWidget>(u"updateBanner"_s), nullptr);
    EXPECT_EQ(downloads, 1);
}

TEST_F(ClipboardListViewTest, AVersionWithAnEndlessNameLeavesTheBannersButtonsInPlace) {
    open();
    stage.view->setUpdateNotice(UpdateNotice{u"9"_s.repeated(500), [] {}, [] {}});
    QTest::qWait(0);
    const auto* button = visible<QAbstractButton>(u"Skip This Version"_s);
    ASSERT_NE(button, nullptr);
    EXPECT_LE(button->mapTo(stage.view.get(), QPoint(button->width(), 0)).x(), 440);
    EXPECT_EQ(stage.view->size(), QSize(440, 420));
}

TEST_F(ClipboardListViewTest, ALinkIsLookedForOnceHoweverOftenTheRowIsDrawn) {
    stage.copyText("see https://example.org/a for more");
    open();
    const int asked = stage.linkDetector.questions;
    EXPECT_GT(asked, 0);
    stage.view->grab();
    press(HardwareKey::DownArrow);
    stage.manager->setSearchText(u"see"_s);
    stage.view->grab();
    EXPECT_EQ(stage.linkDetector.questions, asked);
}

TEST_F(ClipboardListViewTest, WhereARowIsDeletedThePointerIsOverTheNextOne) {
    stage.copyTexts(4);
    open();
    const QPoint pointer = stage.list().rowRectangle(1).center();
    moveTo(pointer);
    moveTo(stage.list().actionRectangle(1, RowAction::Delete).center());
    click(stage.list().actionRectangle(1, RowAction::Delete).center());
    EXPECT_EQ(highlightedRows(), (QList<int>{0, 1}));
    EXPECT_EQ(textOfRow(1), u"text 1"_s);
    click(stage.list().actionRectangle(1, RowAction::Delete).center());
    EXPECT_EQ(textOfRow(1), u"text 0"_s);
    EXPECT_EQ(stage.pastes, 0);
}

TEST_F(ClipboardListViewTest, OnlyTheClearButtonHasThePointingHand) {
    stage.copyTexts(1);
    open();
    EXPECT_EQ(visible<QAbstractButton>(u"Clear"_s)->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(visible<QAbstractButton>(u"Settings"_s)->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ClipboardListViewTest, ASelectedLongTextIsExpanded) {
    stage.copyText("short");
    stage.copyText(QByteArray("a longer text ").repeated(100));
    open();
    EXPECT_TRUE(stage.list().isExpanded(0));
    EXPECT_EQ(stage.list().expandedTextRectangle(0).height(), 120);
    press(HardwareKey::DownArrow);
    EXPECT_FALSE(stage.list().isExpanded(0));
    EXPECT_LT(stage.list().rowRectangle(0).height(), 120);
}

TEST_F(ClipboardListViewTest, ARowThatIsNoLongerHighlightedIsAsHighAsBefore) {
    // One line in 326 points, two in the 270 beside the buttons.
    QByteArray widerThanBesideTheButtons = "a";
    while (QFontMetrics(ui::textFont(12)).horizontalAdvance(QString::fromUtf8(widerThanBesideTheButtons)) < 290) {
        widerThanBesideTheButtons += " an";
    }
    stage.copyText("short");
    stage.copyText(widerThanBesideTheButtons);
    stage.copyText("short too");
    for (const bool isReduced : {true, false}) {
        stage.appearance.setReducedMotion(isReduced);
        open();
        const int before = stage.list().rowRectangle(1).height();
        press(HardwareKey::DownArrow);
        const auto isTaller = [&] { return stage.list().rowRectangle(1).height() > before; };
        EXPECT_TRUE(QTest::qWaitFor(isTaller, 5000));
        press(HardwareKey::DownArrow);
        EXPECT_TRUE(QTest::qWaitFor([&] { return stage.list().rowRectangle(1).height() == before; }, 5000));
    }
}

TEST_F(ClipboardListViewTest, AWheelOverTheListScrollsItAndStopsAtItsEnds) {
    stage.copyTexts(20);
    open();
    const auto turn = [&](int notches) {
        const QPointF at(stage.list().rect().center());
        QWheelEvent wheel(at, stage.list().mapToGlobal(at), {}, QPoint(0, 120 * notches), {}, {}, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&stage.list(), &wheel);
    };
    turn(-1);
    EXPECT_GT(stage.list().scrollOffset(), 0);
    turn(-1000);
    EXPECT_EQ(stage.list().rowRectangle(19).bottom() + 1 + 4, stage.list().height());
    turn(2000);
    EXPECT_EQ(stage.list().scrollOffset(), 0);
}

TEST_F(ClipboardListViewTest, OfALongHistoryOnlyTheRowsThatAreSeenCostWorkAlsoAtTheFirstLetters) {
    constexpr int MOST_ROWS_SEEN = 20;
    write(stage.defaults, preferences::maxItems, 2000);
    stage.copyTexts(2000);
    open();
    stage.view->grab();
    EXPECT_GT(stage.linkDetector.questions, 0);
    EXPECT_LE(stage.linkDetector.questions, MOST_ROWS_SEEN);
    for (const auto key : {Qt::Key_T, Qt::Key_E, Qt::Key_X}) {
        const auto before = stage.linkDetector.questions;
        QTest::keyClick(visible<QLineEdit>(u"searchField"_s), key);
        stage.view->grab();
        EXPECT_EQ(stage.list().items().size(), 2000);
        EXPECT_LE(stage.linkDetector.questions - before, MOST_ROWS_SEEN);
    }
}

TEST_F(ClipboardListViewTest, AnEndlessLineInTheHistoryDoesNotHoldUpTheView) {
    stage.copyText(QByteArray(20'000'000, 'x'));
    stage.copyText("short");
    stage.manager->items().last().content.charCount(); // counted once per entry, not per drawing
    open();
    QElapsedTimer time;
    time.start();
    press(HardwareKey::DownArrow);
    stage.view->grab();
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_TRUE(stage.list().isExpanded(1));
}

} // namespace zamber::popover
