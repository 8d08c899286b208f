// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/MenuColors.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>

#include <gtest/gtest.h>

namespace zamber::ui {

namespace {

class MenuColorsTest : public testing::Test {
protected:
    ~MenuColorsTest() override { QApplication::setPalette(QPalette()); }

    static QColor groundWhenOpen(QMenu& menu) {
        menu.popup({0, 0});
        return ground(menu);
    }
    static QColor ground(const QMenu& menu) { return menu.palette().color(QPalette::Window); }

    MenuColors colors;
};

/// Sees Qt tell of new colours of the whole application.
class ApplicationColors final : public QObject {
public:
    ApplicationColors() { QCoreApplication::instance()->installEventFilter(this); }
    bool haveChanged() const { return m_haveChanged; }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        m_haveChanged = m_haveChanged || event->type() == QEvent::ApplicationPaletteChange;
        return false;
    }

private:
    bool m_haveChanged = false;
};

} // namespace

TEST_F(MenuColorsTest, MenusThatOpenHaveThem) {
    QMenu before;
    colors.set(QPalette(Qt::red));
    QMenu after;
    EXPECT_EQ(groundWhenOpen(before), QColor(Qt::red));
    EXPECT_EQ(groundWhenOpen(after), QColor(Qt::red));
}

TEST_F(MenuColorsTest, TheyFollowInAMenuThatIsOpenAndInOneThatOpensAgain) {
    colors.set(QPalette(Qt::red));
    QMenu open;
    QMenu closed;
    groundWhenOpen(open);
    groundWhenOpen(closed);
    closed.close();
    colors.set(QPalette(Qt::blue));
    EXPECT_EQ(ground(open), QColor(Qt::blue));
    EXPECT_EQ(groundWhenOpen(closed), QColor(Qt::blue));
}

TEST_F(MenuColorsTest, AMenusOwnColoursStay) {
    colors.set(QPalette(Qt::red));
    QMenu menu;
    menu.setPalette(QPalette(Qt::green));
    EXPECT_EQ(groundWhenOpen(menu), QColor(Qt::green));
    colors.set(QPalette(Qt::blue));
    EXPECT_EQ(ground(menu), QColor(Qt::green));
}

TEST_F(MenuColorsTest, AnotherThemeOfTheDesktopsTakesNothingAway) {
    colors.set(QPalette(Qt::red));
    QMenu menu;
    groundWhenOpen(menu);
    QApplication::setPalette(QPalette(Qt::white));
    QApplication::setPalette(QPalette(Qt::yellow), "QMenu");
    EXPECT_EQ(ground(menu), QColor(Qt::red));
    menu.close();
    EXPECT_EQ(groundWhenOpen(menu), QColor(Qt::red));
}

TEST_F(MenuColorsTest, TheApplicationsColoursStayAsTheyAre) {
    const ApplicationColors application;
    colors.set(QPalette(Qt::red));
    QMenu menu;
    groundWhenOpen(menu);
    colors.set(QPalette(Qt::blue));
    EXPECT_FALSE(application.haveChanged());
}

TEST_F(MenuColorsTest, NothingIsColouredBeforeTheFirstAreSet) {
    const QColor usual = QApplication::palette().color(QPalette::Window);
    QMenu menu;
    EXPECT_EQ(groundWhenOpen(menu), usual);
}

} // namespace zamber::ui
