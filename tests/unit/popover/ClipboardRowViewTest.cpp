// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ClipboardRowView.h"

#include "tests/fakes/FakeSymbols.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace zamber {

using namespace Qt::StringLiterals;

namespace {

constexpr int WIDTH = 424;
constexpr double NOW = 1'767'323'045.5;
const QByteArray SECRET = "password = hunter2-Correct!Horse9";

class ClipboardRowViewTest : public testing::Test {
protected:
    void SetUp() override { UserDefaults::setStandard(&defaults); }
    void TearDown() override { UserDefaults::setStandard(nullptr); }

    ClipboardItem text(const QByteArray& utf8) { return {ClipboardContent::text(utf8), NOW}; }

    QSet<QString> symbolsPainted(const ClipboardRowView& view, double highlight) {
        QImage image(WIDTH, 200, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        const FakeSymbols symbols;
        const Palette palette = Palette::light(Qt::blue);
        view.paint(painter, QRect(0, 0, WIDTH, view.compactHeight(WIDTH)),
                   {.palette = palette, .symbols = symbols, .now = NOW, .highlight = highlight, .pressedOver = {}},
                   nullptr);
        return symbols.requestedNames();
    }

    FakeUserDefaults defaults;
};

} // namespace

TEST_F(ClipboardRowViewTest, PlainTextShowsTheDocument) {
    const ClipboardItem item = text("hello");
    EXPECT_EQ(ClipboardRowView(item, false, {}).typeIcon().symbol, u"doc.text"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {}).typeIcon().color, &Palette::secondary);
}

TEST_F(ClipboardRowViewTest, ASensitiveTextShowsTheLockOnlyWhileSensitiveTextsAreHidden) {
    const ClipboardItem item = text(SECRET);
    EXPECT_EQ(ClipboardRowView(item, false, {.hideSensitive = false}).typeIcon().symbol, u"doc.text"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.hideSensitive = true}).typeIcon().symbol, u"lock.fill"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.hideSensitive = true}).typeIcon().color, &Palette::red);
}

TEST_F(ClipboardRowViewTest, ALinkShowsTheLinkWhetherOrNotItIsPreviewed) {
    const ClipboardItem item = text("https://example.org/a/long/path");
    const QUrl url(u"https://example.org/a/long/path"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.previewURLs = true}, {}, url).typeIcon().symbol, u"link"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.previewURLs = false}, {}, url).typeIcon().symbol, u"link"_s);
}

TEST_F(ClipboardRowViewTest, AnImageShowsThePhotoAndNoCounts) {
    const ClipboardItem item(ClipboardContent::image("bytes"), NOW);
    const ClipboardRowView view(item, false, {});
    EXPECT_EQ(view.typeIcon().symbol, u"photo"_s);
    EXPECT_EQ(view.typeIcon().color, &Palette::purple);
    EXPECT_EQ(view.countsLine(), QString());
    EXPECT_EQ(view.compactHeight(WIDTH), 20 + ClipboardRowView::THUMBNAIL_SIZE.height());
}

TEST_F(ClipboardRowViewTest, ATwoLineTextShowsBothCounts) {
    const ClipboardItem item = text("one\ntwo");
    EXPECT_EQ(ClipboardRowView(item, false, {}).countsLine().simplified(), u"2 lines · 7 chars"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.showCharCount = false}).countsLine(), u"2 lines"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.showLineCount = false}).countsLine(), u"7 chars"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.showLineCount = false, .showCharCount = false}).countsLine(), QString());
}

TEST_F(ClipboardRowViewTest, AOneLineTextNeverShowsItsCharacterCount) {
    const ClipboardItem item = text("only one\n\n  \n");
    EXPECT_EQ(ClipboardRowView(item, false, {}).countsLine(), QString());
}

TEST_F(ClipboardRowViewTest, OnlyATextOfMoreThan60CharactersExpandsWhenHovered) {
    const ClipboardItem sixty = text(QByteArray(60, 'x'));
    const ClipboardItem more = text(QByteArray(61, 'x'));
    EXPECT_FALSE(ClipboardRowView(sixty, true, {}).isExpanded());
    EXPECT_TRUE(ClipboardRowView(more, true, {}).isExpanded());
    EXPECT_FALSE(ClipboardRowView(more, false, {}).isExpanded());
}

TEST_F(ClipboardRowViewTest, AHiddenTextOfMoreThan60CharactersStillExpands) {
    defaults.setBoolean(u"hideSensitive"_s, true);
    const ClipboardItem item = text(SECRET + " " + QByteArray(60, 'x'));
    ASSERT_TRUE(item.content.isSensitive());
    EXPECT_EQ(item.content.preview(), u"●●●●●●●●●●●●"_s);
    EXPECT_TRUE(ClipboardRowView(item, true, {.hideSensitive = true}).isExpanded());
}

TEST_F(ClipboardRowViewTest, AnExpandedRowIsAtMost120PointsOfTextHigh) {
    const ClipboardItem item = text(QByteArray(61, 'x'));
    const ClipboardRowView view(item, true, {});
    EXPECT_EQ(view.expandedHeight(40), 60);
    EXPECT_EQ(view.expandedHeight(100'000), 140);
}

TEST_F(ClipboardRowViewTest, SeveralLinesGetRoomForThreeAndOneForTwo) {
    const ClipboardItem oneLong = text(QByteArray("word ").repeated(60));
    const ClipboardItem manyLines = text(QByteArray("word ").repeated(20) + "\n" + QByteArray("word ").repeated(60));
    const RowPreferences noCounts{.showLineCount = false, .showCharCount = false};
    const int one = ClipboardRowView(text("x"), false, noCounts).compactHeight(WIDTH) - 20;
    EXPECT_EQ(ClipboardRowView(oneLong, false, noCounts).compactHeight(WIDTH), 20 + 2 * one);
    EXPECT_EQ(ClipboardRowView(manyLines, false, noCounts).compactHeight(WIDTH), 20 + 3 * one);
}

TEST_F(ClipboardRowViewTest, APinnedRowShowsItsPinUntilTheButtonsTakeItsPlace) {
    ClipboardItem item = text("hello");
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, false, {}), 0), (QSet<QString>{u"doc.text"_s}));
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, true, {}), 1),
              (QSet<QString>{u"doc.text"_s, u"pin"_s, u"trash"_s}));
    item.isPinned = true;
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, false, {}), 0), (QSet<QString>{u"doc.text"_s, u"pin.fill"_s}));
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, true, {}), 1),
              (QSet<QString>{u"doc.text"_s, u"pin.slash.fill"_s, u"trash"_s}));
}

TEST_F(ClipboardRowViewTest, TheButtonsAreThereOnlyWhileTheRowIsHighlighted) {
    const ClipboardItem item = text("hello");
    const QRect row(8, 100, WIDTH, 35);
    for (const RowAction action : {RowAction::Pin, RowAction::Delete}) {
        const QRect area = ClipboardRowView(item, true, {}).actionArea(row, action);
        EXPECT_EQ(area.size(), QSize(22, 22));
        EXPECT_TRUE(row.contains(area));
        EXPECT_EQ(ClipboardRowView(item, true, {}).actionAt(row, area.center()), action);
        EXPECT_EQ(ClipboardRowView(item, false, {}).actionAt(row, area.center()), std::nullopt);
    }
    EXPECT_EQ(ClipboardRowView(item, true, {}).actionAt(row, row.topLeft()), std::nullopt);
}

} // namespace zamber
