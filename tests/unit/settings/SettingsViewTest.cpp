// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "SettingsStage.h"

#include "settings/AboutSettingsView.h"
#include "settings/ClipboardSettingsView.h"
#include "settings/GeneralSettingsView.h"
#include "settings/SettingsUI.h"
#include "settings/SettingsWindow.h"
#include "settings/ShortcutsSettingsView.h"
#include "tests/fakes/FakeSymbols.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

class SettingsViewTest : public testing::Test {
public:
    FakeSymbols symbols;
    SettingsStage stage{symbols};
};

QList<QString> textsOf(const QWidget& widget) {
    QList<QString> texts;
    for (const ui::TextLabel* const label : widget.findChildren<ui::TextLabel*>()) {
        texts << label->text();
    }
    return texts;
}

} // namespace

TEST_F(SettingsViewTest, TheSidebarShowsFourEntriesInOrderUnderNoTitlePreferencesAndZamber) {
    const auto* const sidebar = stage.open().findChild<SettingsSidebar*>();
    QStringList entries;
    for (int row = 0; row < sidebar->count(); ++row) {
        entries << sidebar->item(row)->data(Qt::UserRole).toString() + u"/"_s + sidebar->item(row)->text();
    }
    EXPECT_EQ(entries, QStringList({u"/General"_s, u"Preferences/Clipboard"_s, u"/Shortcuts"_s, u"Zamber/About"_s}));
}

TEST_F(SettingsViewTest, ATabIsMadeOfExactlyItsLabel) {
    EXPECT_EQ(settingsTab(u"General"_s), SettingsTab::General);
    EXPECT_EQ(settingsTab(u"About"_s), SettingsTab::About);
    EXPECT_EQ(settingsTab(u"general"_s), std::nullopt);
    EXPECT_EQ(settingsTab(u"Settings"_s), std::nullopt);
    EXPECT_EQ(settingsTab({}), std::nullopt);
}

TEST_F(SettingsViewTest, EachTabHasItsSymbolAndItsColour) {
    const ui::Palette palette = ui::Palette::light(Qt::blue);
    EXPECT_EQ(icon(SettingsTab::General), u"gearshape.fill"_s);
    EXPECT_EQ(icon(SettingsTab::Clipboard), u"clipboard.fill"_s);
    EXPECT_EQ(icon(SettingsTab::Shortcuts), u"keyboard.fill"_s);
    EXPECT_EQ(icon(SettingsTab::About), u"info.circle.fill"_s);
    EXPECT_EQ(iconColor(SettingsTab::General, palette), palette.gray);
    EXPECT_EQ(iconColor(SettingsTab::Clipboard, palette), palette.blue);
    EXPECT_EQ(iconColor(SettingsTab::Shortcuts, palette), palette.orange);
    EXPECT_EQ(iconColor(SettingsTab::About, palette), palette.secondary);
}

TEST_F(SettingsViewTest, AClickInTheSidebarShowsThePage) {
    SettingsView& view = stage.open();
    EXPECT_NE(qobject_cast<GeneralSettingsView*>(view.page()), nullptr);
    auto* const sidebar = view.findChild<SettingsSidebar*>();
    const auto click = [&](int row, int fromBottom) {
        const QRect item = sidebar->visualItemRect(sidebar->item(row));
        QTest::mouseClick(sidebar->viewport(), Qt::LeftButton, {},
                          QPoint(item.center().x(), item.bottom() - fromBottom));
    };
    click(1, 10);
    EXPECT_NE(qobject_cast<ClipboardSettingsView*>(view.page()), nullptr);
    click(2, 10);
    EXPECT_NE(qobject_cast<ShortcutsSettingsView*>(view.page()), nullptr);
    click(3, 10);
    EXPECT_NE(qobject_cast<AboutSettingsView*>(view.page()), nullptr);
    click(1, 45); // on the title above it
    EXPECT_EQ(view.selectedTab(), SettingsTab::About);
}

TEST_F(SettingsViewTest, TheArrowKeysGoThroughThePages) {
    SettingsView& view = stage.open();
    auto* const sidebar = view.findChild<SettingsSidebar*>();
    QTest::keyClick(sidebar, Qt::Key_Down);
    EXPECT_EQ(view.selectedTab(), SettingsTab::Clipboard);
    QTest::keyClick(sidebar, Qt::Key_End);
    EXPECT_EQ(view.selectedTab(), SettingsTab::About);
    QTest::keyClick(sidebar, Qt::Key_Down);
    EXPECT_EQ(view.selectedTab(), SettingsTab::About);
}

TEST_F(SettingsViewTest, TheWindowIs650By500AndNoOtherSizeAndTheSidebarStays) {
    SettingsView& view = stage.open();
    EXPECT_EQ(view.size(), QSize(650, 500));
    view.resize(800, 800);
    EXPECT_EQ(view.size(), QSize(650, 500));
    view.resize(100, 100);
    EXPECT_EQ(view.size(), QSize(650, 500));
    const auto* const sidebar = view.findChild<SettingsSidebar*>();
    EXPECT_TRUE(sidebar->isVisible());
    EXPECT_EQ(sidebar->width(), 200);
    EXPECT_EQ(sidebar->minimumWidth(), 180);
    EXPECT_EQ(sidebar->maximumWidth(), 220);
}

TEST_F(SettingsViewTest, OpeningAndLeavingEveryPageWritesNothing) {
    stage.open();
    for (const SettingsTab tab : ALL_SETTINGS_TABS) {
        stage.select(tab);
        QApplication::processEvents();
    }
    stage.view.reset();
    EXPECT_TRUE(stage.defaults.values.isEmpty());
    EXPECT_EQ(stage.loginItem.changesAsked, 0);
    EXPECT_TRUE(stage.web.addresses.empty());
}

TEST_F(SettingsViewTest, ASectionWithoutATitleStartsWithItsCard) {
    stage.open();
    const auto makeSection = [&](const QString& title) {
        auto section = std::unique_ptr<QWidget>(settingsSection(
            *stage.theme, title, [](QBoxLayout& card) { card.addWidget(settingsRow([](QBoxLayout&) {})); }));
        section->resize(300, section->sizeHint().height());
        section->show();
        return section;
    };
    const auto untitled = makeSection({});
    const auto titled = makeSection(u"Title"_s);
    EXPECT_TRUE(textsOf(*untitled).isEmpty());
    EXPECT_EQ(untitled->layout()->itemAt(0)->widget()->y(), 0);
    EXPECT_EQ(untitled->sizeHint().height(), 24 + 16) << "two paddings of the row, one of the section";
    const auto* const title = titled->findChild<ui::TextLabel*>();
    EXPECT_EQ(title->x(), 4);
    EXPECT_EQ(titled->sizeHint().height() - untitled->sizeHint().height(), title->sizeHint().height() + 6);
}

TEST_F(SettingsViewTest, KeyCapsAre24EachWayAndWiderForWideTexts) {
    stage.open();
    const auto size = [&](const QString& key) {
        return std::unique_ptr<QWidget>(keyCapView(*stage.theme, key))
            ->sizeHint()
            .expandedTo(std::unique_ptr<QWidget>(keyCapView(*stage.theme, key))->minimumSize());
    };
    for (const QString& key : {u"⌘"_s, u"⇧"_s, u"V"_s, u"2"_s}) {
        EXPECT_GE(size(key).width(), 24) << key.toStdString();
        EXPECT_EQ(size(key).height(), 24);
    }
    EXPECT_EQ(size(u"i"_s).width(), 24);
    EXPECT_GT(size(u"Return"_s).width(), 24);
}

TEST_F(SettingsViewTest, TheLookFollowsTheDesktopWhileTheWindowIsOpen) {
    SettingsView& view = stage.open();
    const auto* const title = view.page()->findChild<ui::TextLabel*>();
    const QColor before = title->palette().color(QPalette::WindowText);
    QWidget* const page = view.page();
    stage.appearance.setDark(true);
    stage.theme->update();
    EXPECT_NE(title->palette().color(QPalette::WindowText), before);
    EXPECT_EQ(view.page(), page) << "the page is the same one: what the user has put stays";
}

TEST_F(SettingsViewTest, TheWindowIsReusedWhileItIsOpenAndStartsAnewAfterItWasClosed) {
    WId broughtToFront = 0;
    SettingsWindow window(symbols, stage.appearance, stage.services(), [&](WId id) { broughtToFront = id; });
    window.show();
    SettingsView* const first = window.view();
    first->findChild<SettingsSidebar*>()->setCurrentRow(2);
    window.show();
    EXPECT_EQ(window.view(), first);
    EXPECT_EQ(window.view()->selectedTab(), SettingsTab::Shortcuts);
    first->close();
    EXPECT_EQ(window.view(), nullptr);
    window.show();
    EXPECT_EQ(window.view()->selectedTab(), SettingsTab::General);
    EXPECT_TRUE(window.view()->isVisible());
    EXPECT_EQ(broughtToFront, window.view()->winId());
}

TEST_F(SettingsViewTest, AMinimisedWindowComesBack) {
    WId broughtToFront = 0;
    SettingsWindow window(symbols, stage.appearance, stage.services(), [&](WId id) { broughtToFront = id; });
    window.show();
    window.view()->showMinimized();
    window.show();
    EXPECT_EQ(broughtToFront, window.view()->winId());
    EXPECT_FALSE(window.view()->isMinimized());
    EXPECT_TRUE(window.view()->isVisible());
}

} // namespace zamber::settings
