// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "tests/fakes/FakeSymbols.h"
#include "tests/unit/popover/PopoverStage.h"

#include <QAccessible>
#include <QApplication>
#include <QMenu>

#include <gtest/gtest.h>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

class HistoryListAccessibleTest : public testing::Test {
protected:
    void open() {
        stage.makeView();
        stage.view->show();
    }

    QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(&stage.list()); }
    QString name(QAccessibleInterface* interface) { return interface->text(QAccessible::Name); }

    QAccessibleInterface* childNamed(QAccessibleInterface* parent, const QString& wanted) {
        for (int index = 0; index < parent->childCount(); ++index) {
            if (name(parent->child(index)) == wanted) {
                return parent->child(index);
            }
        }
        return nullptr;
    }

    FakeSymbols symbols;
    PopoverStage stage{symbols};
};

} // namespace

TEST_F(HistoryListAccessibleTest, TheHistoryIsAListOfItemsNamedByTheirPreviews) {
    stage.copyTexts(3);
    open();
    EXPECT_EQ(list()->role(), QAccessible::List);
    ASSERT_EQ(list()->childCount(), 3);
    for (int index = 0; index < 3; ++index) {
        QAccessibleInterface* item = list()->child(index);
        EXPECT_EQ(item->role(), QAccessible::ListItem);
        EXPECT_EQ(name(item), u"text %1"_s.arg(2 - index));
        EXPECT_EQ(list()->indexOfChild(item), index);
        EXPECT_EQ(item->parent(), list());
    }
}

TEST_F(HistoryListAccessibleTest, AHiddenTextIsNamedByItsMask) {
    write(stage.defaults, preferences::hideSensitive, true);
    stage.copyText("password = hunter2-Correct!Horse9");
    open();
    EXPECT_EQ(name(list()->child(0)), u"●●●●●●●●●●●●"_s);
}

TEST_F(HistoryListAccessibleTest, TheSelectedStateFollowsTheKeyboard) {
    stage.copyTexts(3);
    open();
    EXPECT_TRUE(list()->child(0)->state().selected);
    stage.keyMonitor.press(HardwareKey::DownArrow);
    EXPECT_FALSE(list()->child(0)->state().selected);
    EXPECT_TRUE(list()->child(1)->state().selected);
}

TEST_F(HistoryListAccessibleTest, PressingAnItemChoosesIt) {
    stage.copyTexts(3);
    open();
    QAccessibleActionInterface* action = list()->child(2)->actionInterface();
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->actionNames(),
              (QStringList{QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::setFocusAction(),
                           QAccessibleActionInterface::showMenuAction(), u"Pin"_s, u"Delete"_s}));
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(stage.pasteboard.string(), "text 0");
    EXPECT_EQ(stage.pastes, 1);
}

TEST_F(HistoryListAccessibleTest, TheButtonsOfEveryRowArePressedByName) {
    stage.copyTexts(2);
    open();
    EXPECT_TRUE(childNamed(list()->child(1), u"Pin"_s)->state().invisible) << "the row is not highlighted";
    EXPECT_FALSE(childNamed(list()->child(0), u"Pin"_s)->state().invisible);
    QAccessibleInterface* pin = childNamed(list()->child(0), u"Pin"_s);
    ASSERT_NE(pin, nullptr);
    EXPECT_EQ(pin->role(), QAccessible::Button);
    EXPECT_EQ(pin->parent(), list()->child(0));
    pin->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(stage.list().items()[0].isPinned);
    EXPECT_NE(childNamed(list()->child(0), u"Unpin"_s), nullptr);
    childNamed(list()->child(0), u"Delete"_s)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(list()->childCount(), 1);
}

TEST_F(HistoryListAccessibleTest, AnExpandedTextIsThereExactlyWhileItIsOnScreen) {
    const QByteArray text = QByteArray("a longer text ").repeated(100);
    stage.copyText("short");
    stage.copyText(text);
    open();
    QAccessibleInterface* expanded = list()->child(0)->child(0);
    ASSERT_NE(expanded, nullptr);
    EXPECT_EQ(expanded->role(), QAccessible::StaticText);
    EXPECT_EQ(name(expanded), QString::fromUtf8(text));
    stage.keyMonitor.press(HardwareKey::DownArrow);
    EXPECT_EQ(childNamed(list()->child(0), QString::fromUtf8(text)), nullptr);
}

TEST_F(HistoryListAccessibleTest, ARowIsPinnedDeletedAndSelectedByItsOwnActions) {
    stage.copyTexts(3);
    open();
    list()->child(2)->actionInterface()->doAction(u"Pin"_s);
    EXPECT_EQ(name(list()->child(0)), u"text 0"_s);
    EXPECT_TRUE(stage.list().items()[0].isPinned);
    list()->child(0)->actionInterface()->doAction(u"Unpin"_s);
    EXPECT_FALSE(stage.list().items()[2].isPinned);
    list()->child(1)->actionInterface()->doAction(u"Delete"_s);
    EXPECT_EQ(list()->childCount(), 2);
    list()->child(1)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(stage.view->selectedIndex(), 1);
    EXPECT_EQ(stage.pastes, 0);
}

TEST_F(HistoryListAccessibleTest, ALinkIsOpenedByName) {
    stage.copyText("https://example.org/page");
    open();
    childNamed(list()->child(0), u"Open Link"_s)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    list()->child(0)->actionInterface()->doAction(u"Open Link"_s);
    EXPECT_EQ(stage.opened, QList<QUrl>(2, QUrl(u"https://example.org/page"_s)));
}

TEST_F(HistoryListAccessibleTest, ARowsMenuOpensByName) {
    stage.copyTexts(2);
    open();
    list()->child(1)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    menu->actions().last()->trigger();
    menu->close();
    ASSERT_EQ(stage.manager->items().size(), 1);
    EXPECT_EQ(stage.manager->items()[0].content.preview(), u"text 1"_s);
}

TEST_F(HistoryListAccessibleTest, WhatTheEyeSeesBesideThePreviewIsDescribed) {
    const auto described = [&](int row) { return list()->child(row)->text(QAccessible::Description); };
    write(stage.defaults, preferences::hideSensitive, true);
    stage.copyText("one\ntwo");
    stage.manager->togglePin(stage.manager->items()[0]);
    stage.copyText("https://example.org");
    stage.copyText("password = hunter2-Correct!Horse9");
    stage.copyText("short");
    open();
    EXPECT_EQ(described(0), u"pinned, 2 lines, 7 chars, now"_s);
    EXPECT_EQ(described(1), u"recent, now"_s) << "as the header above it says";
    EXPECT_EQ(described(2), u"sensitive, now"_s);
    EXPECT_EQ(described(3), u"link, now"_s);
}

TEST_F(HistoryListAccessibleTest, AnItemThatIsGoneIsInvalidAndDoesNothing) {
    stage.copyTexts(2);
    open();
    QAccessibleInterface* item = list()->child(0);
    stage.manager->deleteItem(stage.manager->items().first());
    EXPECT_FALSE(item->isValid());
    EXPECT_TRUE(item->state().invalid);
    item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(stage.pastes, 0);
}

TEST_F(HistoryListAccessibleTest, ItemsLieWhereTheirRowsAreAndTellWhenTheyAreScrolledAway) {
    stage.copyTexts(20);
    open();
    QAccessibleInterface* item = list()->child(0);
    EXPECT_EQ(item->rect(), stage.list().rowRectangle(0).translated(stage.list().mapToGlobal(QPoint())));
    const QPoint centre = item->rect().center();
    EXPECT_EQ(list()->childAt(centre.x(), centre.y()), item);
    EXPECT_FALSE(item->state().offscreen);
    EXPECT_TRUE(list()->child(19)->state().offscreen);
}

} // namespace zamber::popover
