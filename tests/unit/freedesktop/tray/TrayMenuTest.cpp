// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/TrayMenu.h"

#include <QAction>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace zamber::freedesktop::tray {

using namespace Qt::StringLiterals;

namespace {

class TrayMenuTest : public testing::Test {
protected:
    TrayMenuTest() {
        // A menu that a user has open makes the program the active one; offscreen only a window can.
        other.show();
        other.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
        menu.setItems({{.title = u"Settings…"_s, .keyEquivalent = u","_s, .action = [this] { ++settingsAsked; }},
                       {},
                       {.title = u"Plain"_s, .keyEquivalent = {}, .action = [this] { ++plainAsked; }},
                       {.title = u"Quit"_s, .keyEquivalent = u"q"_s, .action = [this] { ++quitAsked; }}});
    }

    QWidget other;
    TrayMenu menu{u"⌘ is the Super key"_s};
    int settingsAsked = 0;
    int plainAsked = 0;
    int quitAsked = 0;
};

} // namespace

TEST_F(TrayMenuTest, KeysAreShownWithTheirModifierAndAHintAtIt) {
    const auto entries = menu.actions();
    ASSERT_EQ(entries.size(), 4);
    EXPECT_EQ(entries[0]->text(), u"Settings…\t⌘,"_s);
    EXPECT_TRUE(entries[1]->isSeparator());
    EXPECT_EQ(entries[2]->text(), u"Plain"_s);
    EXPECT_EQ(entries[3]->text(), u"Quit\t⌘Q"_s);
    EXPECT_EQ(entries[3]->toolTip(), u"⌘ is the Super key"_s);
    EXPECT_NE(entries[2]->toolTip(), u"⌘ is the Super key"_s);
    EXPECT_TRUE(menu.toolTipsVisible());
}

TEST_F(TrayMenuTest, AKeyChoosesItsEntryWithCommandOrAloneAndClosesTheMenu) {
    for (const Qt::KeyboardModifiers modifiers : {Qt::KeyboardModifiers(Qt::MetaModifier), Qt::KeyboardModifiers()}) {
        quitAsked = 0;
        menu.open({20, 20});
        QTest::keyClick(&menu, Qt::Key_Q, modifiers);
        EXPECT_EQ(quitAsked, 1);
        EXPECT_FALSE(menu.isVisible());
    }
    menu.open({20, 20});
    QTest::keyClick(&menu, Qt::Key_Comma);
    EXPECT_EQ(settingsAsked, 1);
}

TEST_F(TrayMenuTest, AnotherKeyChoosesNothing) {
    menu.open({20, 20});
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_Shift, Qt::Key_Meta, Qt::Key_Super_L}) {
        QTest::keyClick(&menu, key);
    }
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(settingsAsked + plainAsked + quitAsked, 0);
}

TEST_F(TrayMenuTest, OpenedAgainItMovesAndStillClosesAtEscape) {
    menu.open({20, 20});
    menu.open({200, 100});
    EXPECT_EQ(menu.pos(), QPoint(200, 100));
    QTest::keyClick(&menu, Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(TrayMenuTest, ItsEntriesAreReplaced) {
    menu.setItems({{.title = u"Only"_s, .keyEquivalent = {}, .action = [] {}}});
    ASSERT_EQ(menu.actions().size(), 1);
    menu.open({20, 20});
    QTest::keyClick(&menu, Qt::Key_Q);
    EXPECT_EQ(quitAsked, 0);
}

} // namespace zamber::freedesktop::tray
