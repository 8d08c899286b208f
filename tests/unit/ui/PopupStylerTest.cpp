// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/PopupStyler.h"

#include "ui/MenuStyle.h"
#include "ui/Palette.h"
#include "ui/Typography.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace zamber::ui {

namespace {

class PopupStylerTest : public testing::Test {
protected:
    ~PopupStylerTest() override { QApplication::setPalette(QPalette()); }

    static QColor groundWhenOpen(QMenu& menu) {
        if (menu.isEmpty()) {
            menu.addAction(QStringLiteral("Entry")); // newer Qt opens no menu without one
        }
        menu.popup({0, 0});
        return ground(menu);
    }
    static QColor ground(const QMenu& menu) { return menu.palette().color(QPalette::Window); }

    static QWidget* toolTip() {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTipLabel") && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }

    bool isComposited = true;
    PopupStyler styler{[this] { return isComposited; }};
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

TEST_F(PopupStylerTest, MenusThatOpenHaveThem) {
    QMenu before;
    styler.setColors(QPalette(Qt::red));
    QMenu after;
    EXPECT_EQ(groundWhenOpen(before), QColor(Qt::red));
    EXPECT_EQ(groundWhenOpen(after), QColor(Qt::red));
}

TEST_F(PopupStylerTest, AMenuIsStyledAsItOpensAndNotBefore) {
    QMenu menu;
    QApplication::processEvents(); // Qt asks every new widget to be polished
    EXPECT_FALSE(menu.testAttribute(Qt::WA_TranslucentBackground));
    menu.popup({0, 0});
    EXPECT_TRUE(menu.testAttribute(Qt::WA_TranslucentBackground));
}

TEST_F(PopupStylerTest, TheyFollowInAMenuThatIsOpenAndInOneThatOpensAgain) {
    styler.setColors(QPalette(Qt::red));
    QMenu open;
    QMenu closed;
    groundWhenOpen(open);
    groundWhenOpen(closed);
    closed.close();
    styler.setColors(QPalette(Qt::blue));
    EXPECT_EQ(ground(open), QColor(Qt::blue));
    EXPECT_EQ(groundWhenOpen(closed), QColor(Qt::blue));
}

TEST_F(PopupStylerTest, AMenusOwnColoursStay) {
    styler.setColors(QPalette(Qt::red));
    QMenu menu;
    menu.setPalette(QPalette(Qt::green));
    EXPECT_EQ(groundWhenOpen(menu), QColor(Qt::green));
    styler.setColors(QPalette(Qt::blue));
    EXPECT_EQ(ground(menu), QColor(Qt::green));
}

TEST_F(PopupStylerTest, AnotherThemeOfTheDesktopsTakesNothingAway) {
    styler.setColors(QPalette(Qt::red));
    QMenu menu;
    groundWhenOpen(menu);
    QApplication::setPalette(QPalette(Qt::white));
    QApplication::setPalette(QPalette(Qt::yellow), "QMenu");
    EXPECT_EQ(ground(menu), QColor(Qt::red));
    menu.close();
    EXPECT_EQ(groundWhenOpen(menu), QColor(Qt::red));
}

TEST_F(PopupStylerTest, TheApplicationsColoursStayAsTheyAre) {
    const ApplicationColors application;
    styler.setColors(QPalette(Qt::red));
    QMenu menu;
    groundWhenOpen(menu);
    styler.setColors(QPalette(Qt::blue));
    EXPECT_FALSE(application.haveChanged());
}

TEST_F(PopupStylerTest, TheColoursOfTheWidgetThatAMenuBelongsToComeFirst) {
    styler.setColors(QPalette(Qt::red));
    QWidget owner;
    owner.setPalette(QPalette(Qt::green));
    QWidget part(&owner);
    QMenu menu(&part);
    EXPECT_EQ(groundWhenOpen(menu), QColor(Qt::green));
    owner.setPalette(QPalette(Qt::yellow));
    menu.close();
    EXPECT_EQ(groundWhenOpen(menu), QColor(Qt::yellow));
}

TEST_F(PopupStylerTest, AMenuIsACardWithItsShadowAroundItWhereThatIsBlended) {
    styler.setColors(Palette::light(Qt::blue).forWidgets());
    QMenu menu;
    menu.addAction(QStringLiteral("First"));
    menu.addAction(QStringLiteral("Second"));
    menu.popup({200, 100});
    const int shadow = 16;
    EXPECT_EQ(menu.pos(), QPoint(200 - shadow, 100 - shadow)) << "the card is where the menu was to be";
    EXPECT_EQ(menu.actionGeometry(menu.actions()[0]).left(), shadow + 5);
    EXPECT_EQ(menu.font().family(), textFont(13).family());
    QImage drawn(menu.size(), QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    menu.render(&drawn, {}, {}, {});
    EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 0);
    EXPECT_LT(drawn.pixelColor(shadow, shadow).alpha(), 200) << "the corner is round";
    EXPECT_EQ(drawn.pixelColor(menu.rect().center()).alpha(), 255);
    const QColor beside = drawn.pixelColor(shadow - 3, menu.height() / 2);
    EXPECT_TRUE(beside.alpha() > 5 && beside.alpha() < 120) << beside.alpha();
}

TEST_F(PopupStylerTest, WithoutACompositorItIsSquareAndWhole) {
    isComposited = false;
    styler.setColors(Palette::light(Qt::blue).forWidgets());
    QMenu menu;
    menu.addAction(QStringLiteral("First"));
    menu.popup({200, 100});
    EXPECT_EQ(menu.pos(), QPoint(200, 100));
    QImage drawn(menu.size(), QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    menu.render(&drawn, {}, {}, {});
    EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 255);
    EXPECT_NE(drawn.pixelColor(0, 0), drawn.pixelColor(3, 3)) << "an edge";
}

TEST_F(PopupStylerTest, ACompositorThatHasComeIsSeenAtTheNextOpening) {
    isComposited = false;
    QMenu menu;
    menu.addAction(QStringLiteral("First"));
    menu.popup({200, 100});
    const int width = menu.width();
    menu.close();
    isComposited = true;
    menu.popup({200, 100});
    EXPECT_EQ(menu.width(), width + 32);
    EXPECT_EQ(menu.pos(), QPoint(184, 84));
}

TEST_F(PopupStylerTest, APressOnTheShadowClosesTheMenuAsOneOutsideDoes) {
    QMenu menu;
    int chosen = 0;
    QObject::connect(menu.addAction(QStringLiteral("First")), &QAction::triggered, &menu, [&] { ++chosen; });
    menu.popup({200, 100});
    QTest::mousePress(&menu, Qt::LeftButton, {}, QPoint(8, menu.height() / 2));
    EXPECT_FALSE(menu.isVisible());
    QTest::mouseRelease(&menu, Qt::LeftButton, {}, QPoint(8, menu.height() / 2));
    menu.popup({200, 100});
    for (int step = 9; step >= 0; --step) { // newer Qt takes a click from a pointer that has moved over the menu
        QTest::mouseMove(&menu, menu.rect().center() + QPoint(step, 0));
    }
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.rect().center());
    EXPECT_EQ(chosen, 1);
}

TEST_F(PopupStylerTest, WhatCannotBeUndoneIsRedAndTheChosenLineIsOnTheAccent) {
    const Palette palette = Palette::light(Qt::blue);
    styler.setColors(palette.forWidgets());
    QMenu menu;
    QAction* const plain = menu.addAction(QStringLiteral("▇▇▇▇"));
    QAction* const gone = menu.addAction(QStringLiteral("▇▇▇▇"));
    setDestructive(*gone);
    menu.popup({200, 100});
    const auto hasColor = [&menu](QAction* line, const QColor& color) {
        const QImage drawn = menu.grab(menu.actionGeometry(line)).toImage();
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                if (drawn.pixelColor(x, y).rgb() == color.rgb()) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(hasColor(gone, palette.red));
    EXPECT_FALSE(hasColor(plain, palette.red));
    EXPECT_FALSE(hasColor(plain, palette.accentFill));
    menu.setActiveAction(plain);
    EXPECT_TRUE(hasColor(plain, palette.accentFill));
    menu.setActiveAction(gone);
    EXPECT_FALSE(hasColor(gone, palette.accentFill)) << "it is chosen in its own colour";
    EXPECT_TRUE(hasColor(gone, Qt::white));
}

TEST_F(PopupStylerTest, AToolTipHasTheColoursOfWhatItExplains) {
    const Palette palette = Palette::dark(Qt::blue);
    styler.setColors(Palette::light(Qt::blue).forWidgets());
    QWidget owner;
    owner.setPalette(palette.forWidgets());
    QWidget part(&owner);
    owner.show();
    QToolTip::showText({300, 200}, QStringLiteral("What it does"), &part);
    QWidget* const tip = toolTip();
    ASSERT_NE(tip, nullptr);
    EXPECT_EQ(tip->font().family(), textFont(11).family());
    EXPECT_EQ(tip->font().pixelSize(), 11);
    QImage drawn(tip->size(), QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    tip->render(&drawn, {}, {}, {});
    EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(drawn.pixelColor(12, tip->height() / 2), palette.ultraThinMaterial);
    QToolTip::hideText();
}

TEST_F(PopupStylerTest, NothingIsColouredBeforeTheFirstAreSet) {
    const QColor usual = QApplication::palette().color(QPalette::Window);
    QMenu menu;
    EXPECT_EQ(groundWhenOpen(menu), usual);
}

} // namespace zamber::ui
