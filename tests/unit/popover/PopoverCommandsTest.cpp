// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/PopoverCommands.h"

#include "tests/unit/popover/ClipboardListViewFixture.h"

#include <QContextMenuEvent>
#include <QMenu>

namespace zamber::popover {

namespace {

constexpr auto CONTROL = Qt::ControlModifier;
constexpr auto COMMAND = Qt::MetaModifier;
constexpr auto SHIFT = Qt::ShiftModifier;

class PopoverCommandsTest : public ClipboardListViewTest {
protected:
    /// With what the X server says that the key types; Control makes that a control character.
    void type(Qt::Key key, Qt::KeyboardModifiers modifiers, bool isRepeated = false) {
        const char letter = static_cast<char>(modifiers.testFlag(CONTROL) ? key & 0x1F : key | 0x20);
        const QString text = key < Qt::Key_Escape ? QString(QLatin1Char(letter)) : QString();
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text, isRepeated);
        QCoreApplication::sendEvent(stage.view->focusWidget(), &event);
    }

    static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    QString searchText() { return visible<QLineEdit>(u"searchField"_s)->text(); }
    QAbstractButton* clearAllButton() { return visible<QAbstractButton>(u"Clear All"_s); }
};

TEST_F(PopoverCommandsTest, PinAndDeleteAreForTheSelectedRow) {
    for (const auto modifier : {CONTROL, COMMAND}) {
        stage.copyTexts(4);
        open();
        press(HardwareKey::DownArrow);
        type(Qt::Key_P, modifier);
        EXPECT_TRUE(stage.list().items()[0].isPinned);
        EXPECT_EQ(textOfRow(0), u"text 2"_s);

        press(HardwareKey::DownArrow);
        type(Qt::Key_D, modifier | SHIFT);
        EXPECT_EQ(stage.manager->items().size(), 3);
        EXPECT_EQ(textOfRow(2), u"text 0"_s) << "the row below has come into the place of the one that is gone";
        EXPECT_EQ(searchText(), QString()) << "no letter has gone into the search";

        press(HardwareKey::UpArrow, 3);
        type(Qt::Key_P, modifier);
        EXPECT_FALSE(stage.list().items()[0].isPinned);
        stage.manager->clearAll();
    }
}

TEST_F(PopoverCommandsTest, AKeyThatIsHeldDeletesOneRow) {
    stage.copyTexts(4);
    open();
    for (const auto modifier : {CONTROL, COMMAND}) {
        type(Qt::Key_D, modifier | SHIFT);
        type(Qt::Key_D, modifier | SHIFT, true);
        type(Qt::Key_D, modifier | SHIFT, true);
    }
    EXPECT_EQ(stage.manager->items().size(), 2);
    EXPECT_EQ(searchText(), QString());
}

TEST_F(PopoverCommandsTest, WithoutASelectedRowNothingHappens) {
    open();
    type(Qt::Key_P, CONTROL);
    type(Qt::Key_D, CONTROL | SHIFT);
    type(Qt::Key_O, CONTROL);
    type(Qt::Key_F10, SHIFT);
    type(Qt::Key_Delete, CONTROL | SHIFT);
    EXPECT_EQ(menu(), nullptr);
    EXPECT_EQ(clearAllButton(), nullptr);

    stage.copyTexts(3);
    press(HardwareKey::DownArrow, 2);
    stage.manager->setSearchText(u"text 1"_s);
    type(Qt::Key_D, CONTROL | SHIFT);
    type(Qt::Key_F10, SHIFT);
    EXPECT_EQ(menu(), nullptr);
    EXPECT_EQ(stage.manager->items().size(), 3) << "no row looks selected";
}

TEST_F(PopoverCommandsTest, TheLinkOfTheSelectedRowIsOpened) {
    stage.copyText("no link");
    stage.copyText("https://example.org/");
    open();
    type(Qt::Key_O, CONTROL);
    EXPECT_EQ(stage.opened, QList<QUrl>{QUrl(u"https://example.org/"_s)});
}

TEST_F(PopoverCommandsTest, ClearAsksWhereThereIsSomethingToClear) {
    stage.copyTexts(2);
    pin(0);
    open();
    type(Qt::Key_Delete, CONTROL | SHIFT);
    ASSERT_NE(clearAllButton(), nullptr);
    type(Qt::Key_D, CONTROL | SHIFT);
    EXPECT_EQ(stage.manager->items().size(), 2) << "what is asked comes first";
    clearAllButton()->click();
    EXPECT_EQ(stage.manager->items().size(), 1);

    type(Qt::Key_Backspace, CONTROL | SHIFT);
    EXPECT_EQ(clearAllButton(), nullptr) << "what is left is pinned";
}

TEST_F(PopoverCommandsTest, TheSettingsOpen) {
    open();
    type(Qt::Key_Comma, CONTROL);
    type(Qt::Key_Comma, COMMAND);
    EXPECT_EQ(stage.settingsOpened, 2);
    EXPECT_EQ(searchText(), QString());
}

TEST_F(PopoverCommandsTest, AnUpdateIsTakenOrSkippedWhileItIsOffered) {
    int downloads = 0;
    int skips = 0;
    open();
    type(Qt::Key_R, CONTROL);
    stage.view->setUpdateNotice(UpdateNotice{u"2.0"_s, [&] { ++downloads; }, [&] { ++skips; }});
    type(Qt::Key_R, CONTROL);
    EXPECT_EQ(downloads, 1);
    EXPECT_EQ(skips, 0);
    type(Qt::Key_R, CONTROL | SHIFT);
    EXPECT_EQ(skips, 1);
    stage.view->setUpdateNotice(std::nullopt);
    type(Qt::Key_R, CONTROL);
    type(Qt::Key_R, CONTROL | SHIFT);
    EXPECT_EQ(downloads, 1);
    EXPECT_EQ(skips, 1);
}

TEST_F(PopoverCommandsTest, TheMenuKeyAndShiftF10OpenTheSelectedRowsMenu) {
    stage.copyTexts(3);
    open();
    press(HardwareKey::DownArrow);
    type(Qt::Key_F10, SHIFT);
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(menu()->activeAction(), menu()->actions().first()) << "arrows and Return go on from there";
    EXPECT_TRUE(
        QRect(stage.list().mapToGlobal(stage.list().rowRectangle(1).topLeft()), stage.list().rowRectangle(1).size())
            .contains(menu()->pos()));
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Return);
    EXPECT_TRUE(stage.list().items()[0].isPinned);
    EXPECT_EQ(textOfRow(0), u"text 1"_s);

    QWidget* const field = stage.view->focusWidget();
    QContextMenuEvent key(QContextMenuEvent::Keyboard, field->rect().center(), field->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(field, &key);
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(menu()->actions().first()->text().section(u'\t', 0, 0), u"Copy"_s);
    stage.view->hide();
    EXPECT_EQ(menu(), nullptr) << "it does not outlive the popover";
}

TEST_F(PopoverCommandsTest, AMenuOfARowThatIsScrolledAwayBringsItBack) {
    stage.copyTexts(20);
    open();
    QWheelEvent wheel(QPointF(50, 50), QPointF(50, 50), {}, {0, -12000}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&stage.list(), &wheel);
    ASSERT_LT(stage.list().rowRectangle(0).bottom(), 0);
    type(Qt::Key_F10, SHIFT);
    EXPECT_EQ(stage.list().rowRectangle(0).top(), 4);
    ASSERT_NE(menu(), nullptr);
    menu()->close();
}

TEST_F(PopoverCommandsTest, TheKeysInTheMenusRightColumnChooseWhileItIsOpen) {
    stage.copyText("https://example.org/");
    stage.copyTexts(2);
    open();
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_P, Qt::KeyboardModifiers(CONTROL)), std::pair(Qt::Key_P, Qt::KeyboardModifiers())}) {
        const bool wasPinned = stage.list().items()[0].isPinned;
        type(Qt::Key_F10, SHIFT);
        ASSERT_NE(menu(), nullptr);
        QTest::keyClick(menu(), key, modifiers);
        EXPECT_EQ(menu(), nullptr);
        EXPECT_NE(stage.list().items()[0].isPinned, wasPinned);
    }
}

TEST_F(PopoverCommandsTest, TheMenuAndTheToolTipsNameTheKeys) {
    stage.copyTexts(2);
    open();
    type(Qt::Key_F10, SHIFT);
    ASSERT_NE(menu(), nullptr);
    QStringList keys;
    for (const QAction* action : menu()->actions()) {
        keys.append(action->text().section(u'\t', 1));
    }
    EXPECT_EQ(keys, (QStringList{u"↩"_s, {}, u"Ctrl+P"_s, u"Ctrl+Shift+D"_s}));
    menu()->close();
    stage.view->setUpdateNotice(UpdateNotice{u"2.0"_s, [] {}, [] {}});
    for (const auto& [button, tip] :
         {std::pair(u"settingsButton"_s, u"Settings (Ctrl+,)"_s),
          std::pair(u"clearButton"_s, u"Clear (Ctrl+Shift+Del)"_s), std::pair(u"updateButton"_s, u"Update (Ctrl+R)"_s),
          std::pair(u"skipUpdateButton"_s, u"Skip This Version (Ctrl+Shift+R)"_s)}) {
        ASSERT_NE(visible<QAbstractButton>(button), nullptr);
        EXPECT_EQ(visible<QAbstractButton>(button)->toolTip(), tip);
    }
}

TEST_F(PopoverCommandsTest, WhatEditsATextStaysTheSearchFields) {
    stage.copyTexts(2);
    open();
    QTest::keyClicks(stage.view->focusWidget(), u"one two"_s);
    type(Qt::Key_Backspace, CONTROL);
    EXPECT_EQ(searchText(), u"one "_s);
    type(Qt::Key_A, CONTROL);
    QTest::keyClicks(stage.view->focusWidget(), u"pdo,r"_s);
    EXPECT_EQ(searchText(), u"pdo,r"_s);
    EXPECT_EQ(stage.manager->items().size(), 2);
}

} // namespace

} // namespace zamber::popover
