// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ClipboardRowView.h"

#include "tests/fakes/FakeSymbols.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

constexpr int ROW_WIDTH = 424;
constexpr double SHOWN_AT = 1'767'323'045.5;
const QByteArray SECRET = "password = hunter2-Correct!Horse9";

class ClipboardRowViewTest : public testing::Test {
protected:
    void SetUp() override { UserDefaults::setStandard(&defaults); }
    void TearDown() override { UserDefaults::setStandard(nullptr); }

    clipboard::ClipboardItem text(const QByteArray& utf8) {
        return {clipboard::ClipboardContent::text(utf8), SHOWN_AT};
    }

    QSet<QString> symbolsPainted(const ClipboardRowView& view, double highlight) {
        QImage image(ROW_WIDTH, 200, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        const FakeSymbols symbols;
        const ui::Palette palette = ui::Palette::light(Qt::blue);
        view.paint(
            painter, QRect(0, 0, ROW_WIDTH, view.compactHeight(ROW_WIDTH)),
            {.palette = palette, .symbols = symbols, .now = SHOWN_AT, .highlight = highlight, .hoveredAction = {}},
            nullptr);
        return symbols.requestedNames();
    }

    FakeUserDefaults defaults;
};

} // namespace

TEST_F(ClipboardRowViewTest, PlainTextShowsTheDocument) {
    const clipboard::ClipboardItem item = text("hello");
    EXPECT_EQ(ClipboardRowView(item, false, {}).typeIcon().symbol, u"doc.text"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {}).typeIcon().color, &ui::Palette::secondary);
}

TEST_F(ClipboardRowViewTest, ASensitiveTextShowsTheLockOnlyWhileSensitiveTextsAreHidden) {
    const clipboard::ClipboardItem item = text(SECRET);
    EXPECT_EQ(ClipboardRowView(item, false, {.hideSensitive = false}).typeIcon().symbol, u"doc.text"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.hideSensitive = true}).typeIcon().symbol, u"lock.fill"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.hideSensitive = true}).typeIcon().color, &ui::Palette::red);
}

TEST_F(ClipboardRowViewTest, ALinkShowsTheLinkWhetherOrNotItIsPreviewed) {
    const clipboard::ClipboardItem item = text("https://example.org/a/long/path");
    const QUrl url(u"https://example.org/a/long/path"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.previewURLs = true}, {}, url).typeIcon().symbol, u"link"_s);
    EXPECT_EQ(ClipboardRowView(item, false, {.previewURLs = false}, {}, url).typeIcon().symbol, u"link"_s);
}

TEST_F(ClipboardRowViewTest, AWebAddressHasASecondLineOnlyWhenItIsMoreThan10CharactersLongerThanItsHost) {
    const auto height = [&](const QByteArray& address) {
        const clipboard::ClipboardItem item = text(address);
        const ClipboardRowView view(item, false, {}, {}, QUrl(QString::fromUtf8(address)));
        EXPECT_EQ(view.linkTitle(), u"example.org"_s);
        EXPECT_EQ(view.counts(), QStringList());
        return view.compactHeight(ROW_WIDTH);
    };
    const int oneLine = height("https://example.org/1"); // 11 + 10 characters
    EXPECT_GT(height("https://example.org/12"), oneLine);
    EXPECT_EQ(height("https://example.org"), oneLine);
}

TEST_F(ClipboardRowViewTest, ALinkWithoutHostShowsTheWholeAddress) {
    const clipboard::ClipboardItem item = text("someone@example.org");
    const ClipboardRowView view(item, false, {}, {}, QUrl(u"mailto:someone@example.org"_s));
    EXPECT_EQ(view.linkTitle(), u"mailto:someone@example.org"_s);
}

TEST_F(ClipboardRowViewTest, ALinkThatIsNotPreviewedShowsAtMostTwoLinesAndNoCounts) {
    const QUrl url(u"https://example.org"_s);
    const clipboard::ClipboardItem item = text("https://example.org\ntwo\nthree\nfour");
    const ClipboardRowView view(item, false, {.previewURLs = false}, {}, url);
    const int oneLine = ClipboardRowView(text("x"), false, {}).compactHeight(ROW_WIDTH) - 20;
    EXPECT_EQ(view.compactHeight(ROW_WIDTH), 20 + 2 * oneLine);
    EXPECT_EQ(view.counts(), QStringList());
}

TEST_F(ClipboardRowViewTest, ALinkNeverExpands) {
    const clipboard::ClipboardItem item = text("https://example.org/" + QByteArray(100, 'x'));
    const QUrl url(u"https://example.org"_s);
    EXPECT_FALSE(ClipboardRowView(item, true, {.previewURLs = true}, {}, url).isExpanded());
    EXPECT_FALSE(ClipboardRowView(item, true, {.previewURLs = false}, {}, url).isExpanded());
}

TEST_F(ClipboardRowViewTest, ASensitiveLinkShowsTheLockAndItsMaskUnderTheHost) {
    defaults.setBoolean(u"hideSensitive"_s, true);
    const clipboard::ClipboardItem item = text("https://example.org/?token=123");
    const ClipboardRowView view(item, false, {.hideSensitive = true}, {}, QUrl(u"https://example.org/?token=123"_s));
    EXPECT_EQ(view.typeIcon().symbol, u"lock.fill"_s);
    EXPECT_EQ(item.content.preview(), u"●●●●●●●●●●●●"_s);
    EXPECT_EQ(view.linkTitle(), u"example.org"_s);
}

TEST_F(ClipboardRowViewTest, OnlyALinkHasTheButtonThatOpensIt) {
    const clipboard::ClipboardItem item = text("https://example.org");
    EXPECT_EQ(ClipboardRowView(item, true, {}).actions(), (QList{RowAction::Pin, RowAction::Delete}));
    const ClipboardRowView link(item, true, {}, {}, QUrl(u"https://example.org"_s));
    EXPECT_EQ(link.actions(), (QList{RowAction::OpenLink, RowAction::Pin, RowAction::Delete}));
    EXPECT_EQ(symbolsPainted(link, 1), (QSet<QString>{u"link"_s, u"safari"_s, u"pin"_s, u"trash"_s}));
    const QRect row(0, 0, ROW_WIDTH, 35);
    EXPECT_EQ(link.actionArea(row, RowAction::Pin).left() - link.actionArea(row, RowAction::OpenLink).right() - 1, 2);
    EXPECT_EQ(link.actionAt(row, link.actionArea(row, RowAction::OpenLink).center()), RowAction::OpenLink);
}

TEST_F(ClipboardRowViewTest, AnImageThatDoesNotDecodeIsAText) {
    const clipboard::ClipboardItem item(clipboard::ClipboardContent::image("bytes"), SHOWN_AT);
    const ClipboardRowView view(item, false, {}, {ThumbnailState::Undecodable});
    EXPECT_EQ(view.typeIcon().symbol, u"photo"_s);
    EXPECT_EQ(view.compactHeight(ROW_WIDTH), ClipboardRowView(text("x"), false, {}).compactHeight(ROW_WIDTH));
    EXPECT_EQ(item.content.preview(), u"📷 Image"_s);
    EXPECT_EQ(view.actions(), (QList{RowAction::Pin, RowAction::Delete})) << "no link";
}

TEST_F(ClipboardRowViewTest, AnImageShowsThePhotoAndNoCounts) {
    const clipboard::ClipboardItem item(clipboard::ClipboardContent::image("bytes"), SHOWN_AT);
    const ClipboardRowView view(item, false, {});
    EXPECT_EQ(view.typeIcon().symbol, u"photo"_s);
    EXPECT_EQ(view.typeIcon().color, &ui::Palette::purple);
    EXPECT_EQ(view.counts(), QStringList());
    EXPECT_EQ(view.compactHeight(ROW_WIDTH), 20 + ClipboardRowView::THUMBNAIL_SIZE.height());
}

TEST_F(ClipboardRowViewTest, ATwoLineTextShowsBothCounts) {
    const clipboard::ClipboardItem item = text("one\ntwo");
    const auto counts = [&](bool lines, bool characters) {
        return ClipboardRowView(item, false, {.showLineCount = lines, .showCharCount = characters}).counts();
    };
    EXPECT_EQ(counts(true, true), (QStringList{u"2 lines"_s, u"·"_s, u"7 chars"_s}));
    EXPECT_EQ(counts(true, false), QStringList{u"2 lines"_s});
    EXPECT_EQ(counts(false, true), QStringList{u"7 chars"_s});
    EXPECT_EQ(counts(false, false), QStringList());
}

TEST_F(ClipboardRowViewTest, AOneLineTextNeverShowsItsCharacterCount) {
    const clipboard::ClipboardItem item = text("only one\n\n  \n");
    EXPECT_EQ(ClipboardRowView(item, false, {}).counts(), QStringList());
}

TEST_F(ClipboardRowViewTest, OnlyATextOfMoreThan60CharactersExpandsWhenHovered) {
    const clipboard::ClipboardItem sixty = text(QByteArray(60, 'x'));
    const clipboard::ClipboardItem more = text(QByteArray(61, 'x'));
    EXPECT_FALSE(ClipboardRowView(sixty, true, {}).isExpanded());
    EXPECT_TRUE(ClipboardRowView(more, true, {}).isExpanded());
    EXPECT_FALSE(ClipboardRowView(more, false, {}).isExpanded());
}

TEST_F(ClipboardRowViewTest, AHiddenTextOfMoreThan60CharactersStillExpands) {
    defaults.setBoolean(u"hideSensitive"_s, true);
    const clipboard::ClipboardItem item = text(SECRET + " " + QByteArray(60, 'x'));
    ASSERT_TRUE(item.content.isSensitive());
    EXPECT_EQ(item.content.preview(), u"●●●●●●●●●●●●"_s);
    EXPECT_TRUE(ClipboardRowView(item, true, {.hideSensitive = true}).isExpanded());
}

TEST_F(ClipboardRowViewTest, AnExpandedRowIsAtMost120PointsOfTextHigh) {
    const clipboard::ClipboardItem item = text(QByteArray(61, 'x'));
    const ClipboardRowView view(item, true, {});
    EXPECT_EQ(view.expandedHeight(40), 60);
    EXPECT_EQ(view.expandedHeight(100'000), 140);
}

TEST_F(ClipboardRowViewTest, SeveralLinesGetRoomForThreeAndOneForTwo) {
    const clipboard::ClipboardItem oneLong = text(QByteArray("word ").repeated(60));
    const clipboard::ClipboardItem manyLines =
        text(QByteArray("word ").repeated(20) + "\n" + QByteArray("word ").repeated(60));
    const RowPreferences noCounts{.showLineCount = false, .showCharCount = false};
    const int one = ClipboardRowView(text("x"), false, noCounts).compactHeight(ROW_WIDTH) - 20;
    EXPECT_EQ(ClipboardRowView(oneLong, false, noCounts).compactHeight(ROW_WIDTH), 20 + 2 * one);
    EXPECT_EQ(ClipboardRowView(manyLines, false, noCounts).compactHeight(ROW_WIDTH), 20 + 3 * one);
}

TEST_F(ClipboardRowViewTest, APinnedRowShowsItsPinUntilTheButtonsTakeItsPlace) {
    clipboard::ClipboardItem item = text("hello");
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, false, {}), 0), (QSet<QString>{u"doc.text"_s}));
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, true, {}), 1),
              (QSet<QString>{u"doc.text"_s, u"pin"_s, u"trash"_s}));
    item.isPinned = true;
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, false, {}), 0), (QSet<QString>{u"doc.text"_s, u"pin.fill"_s}));
    EXPECT_EQ(symbolsPainted(ClipboardRowView(item, true, {}), 1),
              (QSet<QString>{u"doc.text"_s, u"pin.slash.fill"_s, u"trash"_s}));
}

TEST_F(ClipboardRowViewTest, TheButtonsAreThereOnlyWhileTheRowIsHighlighted) {
    const clipboard::ClipboardItem item = text("hello");
    const QRect row(8, 100, ROW_WIDTH, 35);
    for (const RowAction action : {RowAction::Pin, RowAction::Delete}) {
        const QRect area = ClipboardRowView(item, true, {}).actionArea(row, action);
        EXPECT_EQ(area.size(), QSize(22, 22));
        EXPECT_TRUE(row.contains(area));
        EXPECT_EQ(ClipboardRowView(item, true, {}).actionAt(row, area.center()), action);
        EXPECT_EQ(ClipboardRowView(item, false, {}).actionAt(row, area.center()), std::nullopt);
    }
    EXPECT_EQ(ClipboardRowView(item, true, {}).actionAt(row, row.topLeft()), std::nullopt);
}

} // namespace zamber::popover
