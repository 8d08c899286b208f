// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Every number of the layout, against what is really painted.
#include "preferences/PreferenceKeys.h"

#include "popover/TextLines.h"
#include "tests/support/Pictures.h"
#include "tests/unit/popover/PopoverGeometryFixture.h"
#include "ui/Typography.h"

#include <QAbstractButton>
#include <QFontMetricsF>

namespace zamber::popover {

namespace {

double textWidth(const QString& text, int points, QFont::Weight weight) {
    return QFontMetricsF(ui::textFont(points, weight)).horizontalAdvance(text);
}

double monospacedWidth(const QString& text, int points, QFont::Weight weight) {
    return QFontMetricsF(ui::monospacedFont(points, weight)).horizontalAdvance(text);
}

} // namespace

TEST_F(PopoverGeometryTest, TheHeader) {
    stage.copyTexts(9);
    open();
    look();
    const double titleWidth = textWidth(u"Zamber"_s, 15, QFont::Bold);
    const double countWidth = monospacedWidth(u"9/20"_s, 11, QFont::Medium);
    // 16 to the gear, whose box is 1.2 times its 13 points; 8 between; 7 at both ends of the badge.
    const double badgeRight = 440 - 16 - 16 - 8;
    for (const Expected& one : {
             Expected{u"clipboard.fill"_s, 16, 14 + 1.5, 17, 17, 14, QFont::DemiBold, &ui::Palette::accent},
             Expected{u"Zamber"_s, 16 + 17 + 8, 14 + 1, titleWidth, 18, 15, QFont::Bold, &ui::Palette::primary},
             Expected{u"9/20"_s, badgeRight - 7 - countWidth, 24 - 6.5, countWidth, ANY, 11, QFont::Medium,
                      &ui::Palette::secondary},
             Expected{u"gearshape.fill"_s, 440 - 16 - 16, 24 - 8, 16, 16, 13, QFont::Normal, &ui::Palette::tertiary},
         }) {
        expect(one);
    }
    const double badgeHeight = QFontMetrics(ui::monospacedFont(11, QFont::Medium)).height() + 2 * 3;
    const double badgeWidth = QFontMetrics(ui::monospacedFont(11, QFont::Medium)).horizontalAdvance(u"9/20"_s) + 2 * 7;
    expectFill(QRectF(badgeRight - badgeWidth, std::floor(24 - badgeHeight / 2), badgeWidth, badgeHeight),
               palette.tertiaryFill);
}

TEST_F(PopoverGeometryTest, TheSearchField) {
    stage.copyTexts(2);
    open();
    look();
    expectFill(QRectF(12, 44, 440 - 24, 32), ui::composed(palette.quinaryFill, palette.ultraThinMaterial));
    expect({u"magnifyingglass"_s, 12 + 10, 44 + 9, 14, 14, 12, QFont::Medium, &ui::Palette::tertiary});
    expect(
        {u"\u2009Search clipboard…"_s, 12 + 10 + 14 + 8, 44 + 8, ANY, 16, 13, QFont::Normal, &ui::Palette::tertiary});
    EXPECT_EQ(find(u"xmark.circle.fill"_s), nullptr);
    EXPECT_EQ(stage.list().y(), 44 + 32 + 8);

    stage.manager->setSearchText(u"t"_s);
    QTest::qWait(0);
    look();
    expect({u"xmark.circle.fill"_s, 440 - 12 - 10 - 14, 44 + 9, 14, 14, 12, QFont::Normal, &ui::Palette::tertiary});
}

TEST_F(PopoverGeometryTest, TheUpdateBanner) {
    stage.copyTexts(2);
    open();
    stage.view->setUpdateNotice(UpdateNotice{u"2.0"_s, [] {}, [] {}});
    QTest::qWait(0);
    look();
    expectFill(QRectF(0, 44, 440, 32), ui::faded(palette.blue, 0.08));
    expect({u"arrow.down.circle.fill"_s, 14, 44 + 10, 12, 12, 10, QFont::Normal, &ui::Palette::blue});
    expect({u"v2.0 available"_s, 14 + 12 + 8, 44 + 16 - 6.5, textWidth(u"v2.0 available"_s, 11, QFont::Medium), ANY, 11,
            QFont::Medium, &ui::Palette::primary});
    expect({u"xmark"_s, 440 - 14 - 10, 44 + 11, 10, 10, 8, QFont::Bold, &ui::Palette::secondary});
    const double buttonWidth = QFontMetrics(ui::textFont(10, QFont::DemiBold)).horizontalAdvance(u"Update"_s) + 14;
    expectFill(QRectF(440 - 14 - 10 - 8 - buttonWidth, 44 + 8, buttonWidth, 16), palette.accentFill);
    expectFill(QRectF(12, 44 + 32, 440 - 24, 32), ui::composed(palette.quinaryFill, palette.ultraThinMaterial));
}

TEST_F(PopoverGeometryTest, TheFooter) {
    stage.copyTexts(2);
    open();
    look();
    constexpr double top = 420 - 36;
    expectFill(QRectF(0, top, 440, 36), palette.barMaterial);
    double x = 16;
    for (const auto& [key, label] : {std::pair(u"↑↓"_s, u"navigate"_s), {u"↩"_s, u"paste"_s}, {u"esc"_s, u"close"_s}}) {
        const double keyWidth = QFontMetrics(ui::monospacedFont(9, QFont::DemiBold)).horizontalAdvance(key);
        const double keyHeight = QFontMetrics(ui::monospacedFont(9, QFont::DemiBold)).height() + 2 * 2;
        expectFill(QRectF(x, std::floor(top + 18 - keyHeight / 2), keyWidth + 2 * 5, keyHeight), palette.tertiaryFill);
        expect({key, x + 5, ANY, keyWidth, ANY, 9, QFont::DemiBold, &ui::Palette::tertiary});
        x += keyWidth + 2 * 5 + 4;
        expect({label, x, top + 18 - 6, textWidth(label, 10, QFont::Normal), ANY, 10, QFont::Normal,
                &ui::Palette::quaternary});
        x += std::ceil(textWidth(label, 10, QFont::Normal)) + 14;
    }
    const double clearWidth = textWidth(u"Clear"_s, 11, QFont::Medium);
    expect({u"Clear"_s, 440 - 16 - clearWidth, top + 18 - 6.5, clearWidth, ANY, 11, QFont::Medium,
            &ui::Palette::secondary});
    expect({u"trash"_s, 440 - 16 - clearWidth - 3 - 12, top + 12, 12, 12, 10, QFont::Normal, &ui::Palette::secondary},
           top);
}

TEST_F(PopoverGeometryTest, TheEmptyStates) {
    open();
    look();
    const double titleWidth = textWidth(u"Copy something to get started"_s, 13, QFont::Medium);
    const double hintWidth = textWidth(u"⌘⇧V to open anytime"_s, 11, QFont::Normal);
    // Symbol 38, 12 between each two, one line of 13 and one of 11 points, in the middle of what is left to the list.
    const double titleHeight = QFontMetrics(ui::textFont(13, QFont::Medium)).height();
    const double hintHeight = QFontMetrics(ui::textFont(11)).height();
    const double top = (84 + 384) / 2.0 - (38 + 12 + titleHeight + 12 + hintHeight) / 2;
    expect({u"clipboard"_s, 220 - 19, top, 38, 38, 32, QFont::Light, &ui::Palette::quaternary});
    expect({u"Copy something to get started"_s, 220 - titleWidth / 2, top + 38 + 12, titleWidth, ANY, 13, QFont::Medium,
            &ui::Palette::tertiary});
    // The key symbols may come from another font, as a piece of their own.
    const Painted* hint = find(u"⌘⇧V to open anytime"_s);
    ASSERT_NE(hint, nullptr);
    EXPECT_NEAR(hint->place.center().x(), 220, 3);
    EXPECT_NEAR(hint->place.width(), hintWidth, 3);
    expect({u"⌘⇧V to open anytime"_s, ANY, top + 38 + 12 + titleHeight + 12, ANY, ANY, 11, QFont::Normal,
            &ui::Palette::quaternary});

    stage.copyTexts(1);
    stage.manager->setSearchText(u"nowhere"_s);
    QTest::qWait(0);
    look();
    const double lower = (84 + 384) / 2.0 - (38 + 12 + titleHeight) / 2;
    expect({u"magnifyingglass"_s, 220 - 19, lower, 38, 38, 32, QFont::Light, &ui::Palette::quaternary}, 100);
    expect({u"No matches found"_s, ANY, lower + 38 + 12, ANY, ANY, 13, QFont::Medium, &ui::Palette::tertiary});
    EXPECT_EQ(find(u"⌘⇧V to open anytime"_s), nullptr);
}

TEST_F(PopoverGeometryTest, TheSections) {
    stage.copyTexts(2);
    stage.manager->togglePin(stage.manager->items()[1]);
    open();
    look();
    const double header = 8 + lineHeight(ui::textFont(10, QFont::DemiBold)) + 2;
    constexpr double list = 84;
    expect({u"pin.fill"_s, 16, list + 4 + 8, 11, ANY, 9, QFont::DemiBold, &ui::Palette::tertiary});
    expect({u"PINNED"_s, 16 + 11 + 4, list + 4 + 8, ANY, ANY, 10, QFont::DemiBold, &ui::Palette::tertiary});
    EXPECT_EQ(rowPlace(0).top(), list + 4 + header + 6);
    const double second = rowPlace(0).bottom() + 6;
    expect({u"clock"_s, 16, second + 8, 11, ANY, 9, QFont::DemiBold, &ui::Palette::tertiary});
    expect({u"RECENT"_s, 16 + 11 + 4, second + 8, ANY, ANY, 10, QFont::DemiBold, &ui::Palette::tertiary});
    EXPECT_EQ(rowPlace(1).top(), second + header + 6);
    EXPECT_EQ(rowPlace(1).left(), 8);
    EXPECT_EQ(rowPlace(1).width(), 440 - 16);
}

TEST_F(PopoverGeometryTest, APlainRow) {
    stage.copyText("plain");
    stage.scheduler.advance(std::chrono::minutes(7));
    stage.copyText("first");
    open();
    look();
    const double line = lineHeight(ui::textFont(12));
    EXPECT_EQ(rowPlace(0), QRectF(8, 84 + 4, 424, line + 20));
    EXPECT_EQ(rowPlace(1).top(), rowPlace(0).bottom() + 6);
    const double top = rowPlace(1).top();
    expectFill(rowPlace(1), ui::composed(palette.primaryAt(0.04), palette.ultraThinMaterial));
    expect({u"doc.text"_s, 8 + 12 + 2, middle(1, 12), 12, 12, 10, QFont::Medium, &ui::Palette::secondary}, top);
    expect({u"plain"_s, 8 + 12 + 16 + 10, top + 10, ANY, ANY, 12, QFont::Normal, &ui::Palette::primary});
    const double ageWidth = textWidth(u"7m"_s, 10, QFont::Medium);
    expect({u"7m"_s, 432 - 12 - ageWidth, middle(1, 12), ageWidth, ANY, 10, QFont::Medium, &ui::Palette::quaternary});
    EXPECT_EQ(find(u"pin"_s, top), nullptr);
}

TEST_F(PopoverGeometryTest, AHighlightedRow) {
    stage.copyTexts(2);
    open();
    look();
    expectFill(rowPlace(0), ui::composed(ui::faded(palette.accent, 0.1), palette.ultraThinMaterial));
    const double right = 432 - 12 - 28 - 10; // the age's box and the space before it
    const double middleOfRow = rowPlace(0).center().y();
    // A symbol of 12 in the middle of each box of 22.
    expect({u"pin"_s, right - 22 - 2 - 22 + 5, middle(0, 12), 12, 12, 10, QFont::Medium, &ui::Palette::secondary});
    expect({u"trash"_s, right - 22 + 5, middle(0, 12), 12, 12, 10, QFont::Medium, &ui::Palette::red, 0.7});
    expectFill(QRectF(right - 22, std::floor(middleOfRow - 11), 22, 22), palette.tertiaryFill);
    expectFill(QRectF(right - 22 - 2 - 22, std::floor(middleOfRow - 11), 22, 22), palette.tertiaryFill);
    expect({u"now"_s, 432 - 12 - textWidth(u"now"_s, 10, QFont::Medium), ANY, ANY, ANY, 10, QFont::Medium,
            &ui::Palette::quaternary});
}

TEST_F(PopoverGeometryTest, APinnedRow) {
    stage.copyTexts(2);
    stage.manager->togglePin(stage.manager->items()[0]);
    stage.manager->togglePin(stage.manager->items()[1]);
    open();
    look();
    const double right = 432 - 12 - 28 - 10;
    expect({u"pin.fill"_s, right - 11, middle(1, 11), 11, 11, 9, QFont::Normal, &ui::Palette::orange},
           rowPlace(1).top());
    expect(
        {u"pin.slash.fill"_s, right - 22 - 2 - 22 + 5, middle(0, 12), 12, 12, 10, QFont::Medium, &ui::Palette::orange});
}

TEST_F(PopoverGeometryTest, TheCountsOfATextOfSeveralLines) {
    stage.copyText("one\ntwo");
    stage.copyText("first");
    open();
    look();
    const double line = lineHeight(ui::textFont(12));
    const double counts = lineHeight(ui::textFont(9, QFont::Medium));
    EXPECT_EQ(rowPlace(1).height(), 10 + 2 * line + 3 + counts + 10);
    const double top = rowPlace(1).top() + 10 + 2 * line + 3;
    const double lines = textWidth(u"2 lines"_s, 9, QFont::Medium);
    const double dot = textWidth(u"·"_s, 9, QFont::Medium);
    expect({u"one"_s, 46, rowPlace(1).top() + 10, ANY, ANY, 12, QFont::Normal, &ui::Palette::primary});
    expect({u"two"_s, 46, rowPlace(1).top() + 10 + line, ANY, ANY, 12, QFont::Normal, &ui::Palette::primary});
    expect({u"2 lines"_s, 46, top, lines, ANY, 9, QFont::Medium, &ui::Palette::tertiary});
    expect({u"·"_s, 46 + lines + 4, top, dot, ANY, 9, QFont::Medium, &ui::Palette::tertiary});
    expect({u"7 chars"_s, 46 + lines + 4 + dot + 4, top, ANY, ANY, 9, QFont::Medium, &ui::Palette::tertiary});
}

TEST_F(PopoverGeometryTest, ALink) {
    stage.copyText("https://example.org/a/page");
    stage.copyText("first");
    open();
    look();
    const double host = lineHeight(ui::textFont(12, QFont::Medium));
    EXPECT_EQ(rowPlace(1).height(), 10 + host + 2 + lineHeight(ui::textFont(10)) + 10);
    const double top = rowPlace(1).top();
    expect({u"link"_s, 22, middle(1, 12), 12, 12, 10, QFont::Medium, &ui::Palette::blue});
    expect({u"example.org"_s, 46, top + 10, ANY, ANY, 12, QFont::Medium, &ui::Palette::blue});
    expect({u"https://example.org/a/page"_s, 46, top + 10 + host + 2, ANY, ANY, 10, QFont::Normal,
            &ui::Palette::secondary});

    hover(1);
    look();
    const double right = 432 - 12 - 28 - 10;
    expect({u"safari"_s, right - 3 * 22 - 2 * 2 + 5, middle(1, 12), 12, 12, 10, QFont::Medium, &ui::Palette::blue});
    expect({u"pin"_s, right - 2 * 22 - 2 + 5, middle(1, 12), 12, 12, 10, QFont::Medium, &ui::Palette::secondary}, top);

    write(stage.defaults, preferences::previewURLs, false);
    look();
    EXPECT_EQ(find(u"example.org"_s), nullptr);
    expect({u"https://example.org/a/page"_s, 46, top + 10, ANY, ANY, 12, QFont::Normal, &ui::Palette::primary});
    expect({u"link"_s, 22, middle(1, 12), 12, 12, 10, QFont::Medium, &ui::Palette::blue});
}

TEST_F(PopoverGeometryTest, AnImage) {
    stage.copyImage(filledPicture({300, 200}, Qt::darkCyan));
    stage.copyText("first");
    open();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            look();
            return std::ranges::none_of(painted, [&](const Painted& one) {
                return one.kind == Kind::Fill && one.color.rgba() == palette.tertiaryFill.rgba() &&
                       one.place.size() == QSizeF(40, 30);
            });
        },
        5000))
        << "the placeholder gives way to the picture";
    EXPECT_EQ(rowPlace(1).height(), 10 + 30 + 10);
    expect({u"photo"_s, 22, middle(1, 12), 12, 12, 10, QFont::Medium, &ui::Palette::purple});
    const bool hasPicture = std::ranges::any_of(painted, [&](const Painted& one) {
        return one.kind == Kind::Fill && one.place == QRectF(46, rowPlace(1).top() + 10, 40, 30);
    });
    EXPECT_TRUE(hasPicture);
    EXPECT_EQ(find(u"📷 Image"_s), nullptr);
}

TEST_F(PopoverGeometryTest, AMaskedText) {
    write(stage.defaults, preferences::hideSensitive, true);
    stage.copyText("password = hunter2-Correct!Horse9");
    stage.copyText("first");
    open();
    look();
    expect({u"lock.fill"_s, 22, middle(1, 12), 12, 12, 10, QFont::Medium, &ui::Palette::red});
    expect({u"●●●●●●●●●●●●"_s, 46, rowPlace(1).top() + 10, ANY, ANY, 12, QFont::Normal, &ui::Palette::primary});
}

TEST_F(PopoverGeometryTest, AnExpandedText) {
    stage.copyText("first line of many words that go on and on and on and on until there are enough\n" +
                   QByteArray("more words ").repeated(200));
    open();
    look();
    const double counts = 3 + lineHeight(ui::textFont(9, QFont::Medium));
    EXPECT_EQ(rowPlace(0).height(), 10 + 120 + counts + 10);
    const Painted* first = nullptr;
    double width = 0;
    for (const Painted& one : painted) {
        if (one.what.startsWith(u"first line"_s)) {
            first = &one;
        }
        if (one.kind == Kind::Text && one.points == 12) {
            width = std::max(width, one.place.width());
        }
    }
    ASSERT_NE(first, nullptr);
    EXPECT_NEAR(first->place.x(), 46, TOLERANCE_POINTS);
    EXPECT_NEAR(first->place.y(), rowPlace(0).top() + 10, TOLERANCE_POINTS);
    EXPECT_EQ(first->color.rgba(), palette.primary.rgba());
    EXPECT_LE(width, 432 - 12 - 28 - 10 - 46 - 10 - 46 - 10) << "the buttons and the age have their room";
}

TEST_F(PopoverGeometryTest, TheClearAlert) {
    stage.copyTexts(2);
    open();
    stage.view->findChild<QAbstractButton*>(u"clearButton"_s)->click();
    QTest::qWait(0);
    look();
    const Painted* title = find(u"Clear all clipboard items?"_s);
    ASSERT_NE(title, nullptr);
    EXPECT_NEAR(title->place.center().x(), 220, TOLERANCE_POINTS);
    EXPECT_EQ(title->color.rgba(), palette.primary.rgba());
    const Painted* clear = find(u"Clear All"_s);
    const Painted* cancel = find(u"Cancel"_s);
    ASSERT_TRUE(clear && cancel);
    EXPECT_EQ(clear->color.rgba(), palette.red.rgba());
    EXPECT_LT(clear->place.bottom(), cancel->place.top()) << "in this order";
}

} // namespace zamber::popover
