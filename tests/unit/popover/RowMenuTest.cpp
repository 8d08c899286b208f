// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RowMenu.h"

#include "tests/unit/popover/ClipboardListViewFixture.h"

#include <QContextMenuEvent>

namespace zamber::popover {

/// The list view and the menu of its rows.
class RowMenuTest : public ClipboardListViewTest {
protected:
    /// The menu that opens on a press in the middle of the row, or null when it is the desktop that shows one.
    QMenu* openMenu(int row) {
        const QPoint at = stage.list().rowRectangle(row).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, stage.list().mapToGlobal(at));
        QCoreApplication::sendEvent(&stage.list(), &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
};

TEST_F(RowMenuTest, OffersTheSameActionsAsTheSmallButtonsByName) {
    stage.copyTexts(3);
    pin(0);
    open();
    const auto titles = [](const QMenu& menu) {
        QStringList found;
        for (const QAction* action : menu.actions()) {
            found.append(action->isSeparator() ? u"-"_s : action->text().section(u'\t', 0, 0));
        }
        return found;
    };

    QMenu* menu = openMenu(0);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(titles(*menu), (QStringList{u"Copy"_s, u"-"_s, u"Unpin"_s, u"Delete"_s}));
    menu->actions()[2]->trigger();
    menu->close();
    EXPECT_FALSE(stage.list().items()[0].isPinned);

    menu = openMenu(2);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(titles(*menu), (QStringList{u"Copy"_s, u"-"_s, u"Pin"_s, u"Delete"_s}));
    menu->actions()[3]->trigger();
    menu->close();
    EXPECT_EQ(stage.manager->items().size(), 2);

    menu = openMenu(1);
    ASSERT_NE(menu, nullptr);
    menu->actions()[0]->trigger();
    EXPECT_EQ(pasted(), "text 1");
    EXPECT_EQ(stage.pastes, 1);
    stage.view->hide();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(RowMenuTest, OpensALinkAsTheSmallButtonDoes) {
    stage.copyText("short");
    stage.copyText("see https://example.org/a for more");
    open();
    QMenu* const menu = openMenu(0);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions()[1]->text(), u"Open Link\tCtrl+O"_s);
    EXPECT_TRUE(menu->actions()[2]->isSeparator());
    menu->actions()[1]->trigger();
    menu->close();
    EXPECT_EQ(stage.opened, QList<QUrl>{QUrl(u"https://example.org/a"_s)});

    moveTo(stage.list().rowRectangle(0).center());
    click(stage.list().actionRectangle(0, RowAction::OpenLink).center());
    EXPECT_EQ(stage.opened.size(), 2);
    EXPECT_EQ(stage.pastes, 0) << "the row is not chosen";
}

TEST_F(RowMenuTest, AMenuOfTheDesktopsOwnTakesItsPlace) {
    stage.hasDesktopMenus = true;
    stage.copyTexts(2);
    open();
    EXPECT_EQ(openMenu(1), nullptr);
    ASSERT_EQ(stage.menus.size(), 1);
    const auto& [menu, place] = stage.menus.first();
    EXPECT_EQ(place, stage.list().mapToGlobal(stage.list().rowRectangle(1).center()));
    QStringList titles;
    for (const MenuItem& line : menu) {
        titles.append(line.title);
    }
    EXPECT_EQ(titles, (QStringList{u"Copy"_s, QString(), u"Pin"_s, u"Delete"_s}));
    menu[3].action();
    EXPECT_EQ(stage.manager->items().size(), 1);
    menu[0].action();
    EXPECT_EQ(pasted(), "text 0");
}

} // namespace zamber::popover
