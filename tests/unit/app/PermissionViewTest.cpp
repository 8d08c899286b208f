// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/PermissionView.h"

#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeSymbols.h"
#include "ui/SymbolView.h"
#include "ui/Typography.h"

#include <QLabel>
#include <QTextDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zamber::app {

namespace {

class PermissionViewTest : public testing::Test {
protected:
    PermissionViewTest() {
        view.resize(view.sizeHint());
        view.ensurePolished();
        view.show();
    }

    /// From top to bottom.
    template <class Widget>
    QList<Widget*> all() const {
        QList<Widget*> found = view.findChildren<Widget*>();
        std::ranges::sort(found, {}, [this](const Widget* widget) { return top(widget); });
        return found;
    }

    int top(const QWidget* widget) const { return widget->mapTo(&view, QPoint()).y(); }
    int bottom(const QWidget* widget) const { return top(widget) + widget->height(); }

    static QString plain(const QLabel* label) {
        QTextDocument document;
        document.setHtml(label->text());
        return document.toPlainText();
    }

    static QColor colorOf(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

    FakeAppearance appearance;
    FakeSymbols symbols;
    PermissionView view{appearance, symbols};
};

TEST(RichTextOfMarkup, WordsBetweenDoubleAsterisksAreBoldAndTheRestIsLiteral) {
    EXPECT_EQ(richTextOfMarkup(QStringLiteral("a **b** (or **c d**)")), QStringLiteral("a <b>b</b> (or <b>c d</b>)"));
    EXPECT_EQ(richTextOfMarkup(QStringLiteral("<i> & *x* ** y")), QStringLiteral("&lt;i&gt; &amp; *x* ** y"));
}

TEST_F(PermissionViewTest, TheTextsStandFromTopToBottom) {
    QStringList texts;
    for (const QLabel* const label : all<QLabel>()) {
        texts << plain(label);
    }
    EXPECT_EQ(texts, (QStringList{QStringLiteral("Zamber needs Accessibility"), QStringLiteral("Click the + button"),
                                  QStringLiteral("Add Zamber (or Xcode)"), QStringLiteral("Toggle it on ✅"),
                                  QStringLiteral("This window closes automatically once granted.")}));
}

TEST_F(PermissionViewTest, TheStepsShowPlusZamberXcodeAndOnInBold) {
    const auto labels = all<QLabel>();
    EXPECT_EQ(labels[1]->text(), QStringLiteral("Click the <b>+</b> button"));
    EXPECT_EQ(labels[2]->text(), QStringLiteral("Add <b>Zamber</b> (or <b>Xcode</b>)"));
    EXPECT_EQ(labels[3]->text(), QStringLiteral("Toggle it <b>on</b> ✅"));
}

TEST_F(PermissionViewTest, TheSymbolsAreAShieldAndThreeNumbers) {
    QStringList names;
    for (const ui::SymbolView* const symbol : all<ui::SymbolView>()) {
        names << symbol->symbol();
    }
    EXPECT_EQ(names, (QStringList{QStringLiteral("lock.shield"), QStringLiteral("1.circle.fill"),
                                  QStringLiteral("2.circle.fill"), QStringLiteral("3.circle.fill")}));
}

TEST_F(PermissionViewTest, TheFontsFallFromTitleToHint) {
    const auto labels = all<QLabel>();
    EXPECT_EQ(labels[0]->font(), ui::textFont(16, QFont::Bold));
    for (int step = 1; step <= 3; ++step) {
        EXPECT_EQ(labels[step]->font(), ui::textFont(13));
    }
    EXPECT_EQ(labels[4]->font(), ui::textFont(11));
}

TEST_F(PermissionViewTest, TheStackIsCentredWithItsPaddingAndSpacing) {
    EXPECT_EQ(view.width(), 380);
    const auto labels = all<QLabel>();
    const QWidget* const shield = all<ui::SymbolView>().first();
    EXPECT_EQ(top(shield), 24);
    EXPECT_EQ(top(labels[0]) - bottom(shield), 16);
    const QWidget* const steps = labels[1]->parentWidget();
    EXPECT_EQ(top(steps) - bottom(labels[0]), 16);
    EXPECT_EQ(top(labels[2]) - bottom(labels[1]), 8);
    EXPECT_EQ(top(labels[3]) - bottom(labels[2]), 8);
    EXPECT_EQ(top(labels[4]) - bottom(steps), 16);
    EXPECT_EQ(view.height() - bottom(labels[4]), 24);
    for (const QWidget* const widget : {shield, static_cast<const QWidget*>(labels[0]), steps}) {
        EXPECT_NEAR(widget->mapTo(&view, widget->rect().center()).x(), view.rect().center().x(), 1);
    }
    EXPECT_EQ(labels[1]->mapTo(&view, QPoint()).x(), labels[2]->mapTo(&view, QPoint()).x()) << "leading-aligned";
}

TEST_F(PermissionViewTest, ItsColoursAreThoseOfTheLookAndFollowIt) {
    const auto labels = all<QLabel>();
    for (const bool isDark : {false, true}) {
        appearance.setDark(isDark);
        view.updateAppearance();
        const ui::Palette palette =
            isDark ? ui::Palette::dark(appearance.accentColor()) : ui::Palette::light(appearance.accentColor());
        EXPECT_EQ(colorOf(labels[0]), palette.primary);
        EXPECT_EQ(colorOf(labels[1]), palette.secondary);
        EXPECT_EQ(colorOf(labels[4]), palette.tertiary);
    }
}

} // namespace

} // namespace zamber::app
