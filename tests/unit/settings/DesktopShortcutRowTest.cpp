// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "SettingsStage.h"

#include "tests/fakes/FakeDesktopShortcut.h"
#include "tests/fakes/FakeSymbols.h"
#include "ui/Switch.h"
#include "ui/TextLabel.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

const QString LABEL = u"Use the desktop's own shortcut"_s;
const QString CAPTION = u"For desktops that keep the Super key to themselves"_s;

class DesktopShortcutRowTest : public testing::Test {
protected:
    void open() {
        stage.open();
        stage.select(SettingsTab::Shortcuts);
        QApplication::processEvents();
    }

    ui::Switch* control() const { return stage.control<ui::Switch>(LABEL); }
    void click() const { QTest::mouseClick(control(), Qt::LeftButton); }

    bool shows(const QString& text) const {
        const auto* const label = stage.control<ui::TextLabel>(text);
        return label != nullptr && label->isVisible();
    }

    FakeSymbols symbols;
    SettingsStage stage{symbols};
    FakeDesktopShortcut shortcut;
};

} // namespace

TEST_F(DesktopShortcutRowTest, WhereTheDesktopHasNoShortcutsNothingIsOffered) {
    open();
    EXPECT_EQ(control(), nullptr);
    shortcut.current = DesktopShortcutStatus::NotOffered;
    stage.desktopShortcut = &shortcut;
    open();
    EXPECT_EQ(control(), nullptr);
}

TEST_F(DesktopShortcutRowTest, TheSwitchShowsTheDesktopsRecordAndLooksAtItEachTimeThePageIsOpened) {
    stage.desktopShortcut = &shortcut;
    open();
    EXPECT_FALSE(control()->isChecked());
    EXPECT_TRUE(shows(CAPTION));
    shortcut.current = DesktopShortcutStatus::Set;
    stage.select(SettingsTab::General);
    stage.select(SettingsTab::Shortcuts);
    EXPECT_TRUE(control()->isChecked());
    EXPECT_EQ(shortcut.changesAsked, 0);
}

TEST_F(DesktopShortcutRowTest, TheShortcutIsSetAndTakenAwayByTheSwitchAndByNothingElse) {
    stage.desktopShortcut = &shortcut;
    open();
    click();
    EXPECT_EQ(shortcut.current, DesktopShortcutStatus::Set);
    EXPECT_EQ(shortcut.changesAsked, 1);
    click();
    EXPECT_EQ(shortcut.current, DesktopShortcutStatus::NotSet);
    EXPECT_EQ(shortcut.changesAsked, 2);
}

TEST_F(DesktopShortcutRowTest, WhatTheDesktopRefusesIsSaidAndTheSwitchGoesBack) {
    stage.desktopShortcut = &shortcut;
    shortcut.failure = u"The key is not writable"_s;
    open();
    click();
    EXPECT_FALSE(control()->isChecked());
    EXPECT_EQ(shortcut.changesAsked, 1);
    EXPECT_TRUE(shows(u"The key is not writable"_s));
    EXPECT_EQ(control()->accessibleDescription(), u"The key is not writable"_s);
    shortcut.failure.reset();
    click();
    EXPECT_TRUE(control()->isChecked());
    EXPECT_TRUE(shows(CAPTION));
}

TEST_F(DesktopShortcutRowTest, ALongRefusalStaysInsideTheCard) {
    stage.desktopShortcut = &shortcut;
    shortcut.failure = u"⌘⇧V starts “%1” already"_s.arg(QString(200, u'x'));
    open();
    click();
    QApplication::processEvents();
    const QWidget* const page = stage.view->page();
    for (const ui::TextLabel* const label : page->findChildren<ui::TextLabel*>()) {
        if (!label->isVisible()) {
            continue;
        }
        EXPECT_LE(label->mapTo(page, QPoint(label->width(), 0)).x(), page->width()) << label->text().toStdString();
    }
}

} // namespace zamber::settings
