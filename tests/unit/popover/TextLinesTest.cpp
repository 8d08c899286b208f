// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/TextLines.h"

#include "tests/support/Pictures.h"
#include "ui/Typography.h"

#include <QElapsedTimer>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <utility>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

constexpr int LINE_WIDTH = 240;

/// The line as it is drawn in black, on white.
QImage picture(const PreparedLine& line) {
    QImage image(LINE_WIDTH, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    line.draw(painter, {0, 10});
    return image;
}

/// The first and the last column with ink.
std::pair<int, int> inkedColumns(const PreparedLine& line) {
    const QImage drawn = picture(line);
    return inkedRange(drawn, drawn.rect(), Qt::Horizontal);
}

/// Which lines of the layout have any ink, from `top` on.
QList<bool> inkedLines(LazyTextLayout& layout, double top, int lines) {
    const int height = lineHeight(ui::textFont(12));
    QImage image(LINE_WIDTH, height * lines, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    layout.draw(painter, {0, 0}, top, image.height());
    painter.end();
    QList<bool> inked;
    for (int line = 0; line < lines; ++line) {
        bool hasInk = false;
        for (int row = line * height; row < (line + 1) * height; ++row) {
            const uchar* pixels = image.constScanLine(row);
            hasInk |= std::any_of(pixels, pixels + LINE_WIDTH, [](uchar pixel) { return pixel < 128; });
        }
        inked.append(hasInk);
    }
    return inked;
}

} // namespace

TEST(ElidedLines, AShortTextIsOneLine) {
    EXPECT_EQ(elidedLines(u"hello"_s, ui::textFont(12), LINE_WIDTH, 2), QStringList{u"hello"_s});
}

TEST(ElidedLines, EveryKindOfLineBreakBreaks) {
    for (const QString& separator : {u"\n"_s, u"\r"_s, u"\u2028"_s, u"\u2029"_s}) {
        EXPECT_EQ(elidedLines(u"one"_s + separator + u"two"_s, ui::textFont(12), LINE_WIDTH, 3),
                  (QStringList{u"one"_s, u"two"_s}));
    }
    EXPECT_EQ(elidedLines(u"one\r\ntwo"_s, ui::textFont(12), LINE_WIDTH, 3).size(), 2);
}

TEST(ElidedLines, TheLastLineEndsInAnEllipsisWhenThereIsMore) {
    const QStringList lines = elidedLines(u"one\ntwo \nthree"_s, ui::textFont(12), LINE_WIDTH, 2);
    EXPECT_EQ(lines, (QStringList{u"one"_s, u"two…"_s}));
}

TEST(ElidedLines, NoLineIsWiderThanTheRoom) {
    const QString text = u"The quick brown fox jumps over the lazy dog. "_s.repeated(20);
    const QStringList lines = elidedLines(text, ui::textFont(12), LINE_WIDTH, 3);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.last().endsWith(u'…'));
    for (const QString& line : lines) {
        EXPECT_LE(QFontMetricsF(ui::textFont(12)).horizontalAdvance(line.trimmed()), LINE_WIDTH + 0.5);
    }
}

TEST(ElidedLines, TheBlankAtWhichALineWasBrokenIsNotDrawnBeforeTextThatReadsFromTheRight) {
    const QStringList lines = elidedLines(u"שלום עולם "_s.repeated(20), ui::textFont(12), LINE_WIDTH, 3);
    ASSERT_EQ(lines.size(), 3);
    for (const QString& line : lines) {
        EXPECT_FALSE(line.back().isSpace()) << line.toStdString();
    }
}

TEST(ElidedLines, IndentationIsKept) {
    EXPECT_EQ(elidedLines(u"if\n    then\nelse"_s, ui::textFont(12), LINE_WIDTH, 2),
              (QStringList{u"if"_s, u"    then…"_s}));
}

TEST(PreparedLine, PicturesAreColouredAndLettersAreNot) {
    ASSERT_TRUE(QFontDatabase::hasFamily(u"Noto Color Emoji"_s)) << "the test needs a font of pictures";
    const QFont font = ui::textFont(12);
    for (const QString& text :
         {u"😀"_s, u"☎\uFE0F"_s, u"🇩🇪"_s, u"👍🏽"_s, u"👩\u200D💻"_s, u"1\uFE0F\u20E3"_s, u"⌚"_s}) {
        EXPECT_GT(colouredPixels(picture(PreparedLine(text, font))), 10) << text.toStdString();
        EXPECT_GT(colouredPixels(picture(PreparedLine(u"so "_s + text + u" it is"_s, font))), 10);
    }
    for (const QString& text : {u"☎"_s, u"☎\uFE0E"_s, u"😀\uFE0E"_s, u"❤"_s, u"©"_s, u"✔"_s, u"12 → #"_s}) {
        EXPECT_EQ(colouredPixels(picture(PreparedLine(text, font))), 0) << text.toStdString();
        EXPECT_GE(inkedColumns(PreparedLine(text, font)).first, 0) << text.toStdString();
    }
}

TEST(PreparedLine, AKeycapIsOnePicture) {
    const QFont font = ui::textFont(12);
    EXPECT_NEAR(PreparedLine(u"1\uFE0F\u20E3"_s, font).width(), PreparedLine(u"😀"_s, font).width(), 0.5);
}

TEST(PreparedLine, EmojiMoveNeitherTheBaselineNorTheLettersBeforeThem) {
    const QFont font = ui::textFont(12);
    const QImage plain = picture(PreparedLine(u"Hgx"_s, font));
    const QRect letters(0, 0, static_cast<int>(PreparedLine(u"Hgx"_s, font).width()), plain.height());
    EXPECT_EQ(picture(PreparedLine(u"Hgx 😀"_s, font)).copy(letters), plain.copy(letters));
}

TEST(PreparedLine, ItIsAsWideAsItsInk) {
    const QFont font = ui::textFont(12);
    for (const QString& text : {u"שלום 😀 עולם"_s, u"מזל טוב 🎉"_s, u"Well done 🎉"_s, u"🇩🇪🇫🇷"_s}) {
        const PreparedLine line(text, font);
        const auto [first, last] = inkedColumns(line);
        EXPECT_GE(first, 0);
        EXPECT_LE(first, 3) << text.toStdString();
        EXPECT_NEAR(last, line.width(), 4) << text.toStdString();
    }
}

TEST(ElidedLines, PicturesAreMeasuredAsTheyAreDrawn) {
    const QFont font = ui::textFont(12);
    for (const QString& text : {u"👍🏽 "_s.repeated(60), u"😀"_s.repeated(60), u"שלום 😀 "_s.repeated(40),
                                u"1\uFE0F\u20E3 ☎ "_s.repeated(40)}) {
        const QStringList lines = elidedLines(text, font, LINE_WIDTH, 2);
        ASSERT_EQ(lines.size(), 2) << text.toStdString();
        EXPECT_TRUE(lines.last().endsWith(u'…'));
        for (const QString& line : lines) {
            EXPECT_LE(PreparedLine(line, font).width(), LINE_WIDTH + 0.5) << line.toStdString();
            EXPECT_GT(PreparedLine(line, font).width(), LINE_WIDTH - 40) << line.toStdString();
            EXPECT_FALSE(line.contains(u"👍…"_s)) << "no picture is cut in two";
        }
    }
}

TEST(LazyTextLayout, PicturesAreColouredHereToo) {
    LazyTextLayout layout("one 😀 two", ui::textFont(12), LINE_WIDTH);
    QImage image(LINE_WIDTH, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    layout.draw(painter, {0, 0}, 0, 20);
    painter.end();
    EXPECT_GT(colouredPixels(image), 20);
    const QRect letters(0, 0, 20, 20);
    LazyTextLayout plain("one", ui::textFont(12), LINE_WIDTH);
    QImage without(image.size(), image.format());
    without.fill(Qt::white);
    painter.begin(&without);
    plain.draw(painter, {0, 0}, 0, 20);
    painter.end();
    EXPECT_EQ(image.copy(letters), without.copy(letters)) << "on the same baseline";
}

TEST(LazyTextLayout, AShortTextHasItsExactHeight) {
    LazyTextLayout layout("one\ntwo\nthree", ui::textFont(12), LINE_WIDTH);
    EXPECT_EQ(layout.height(1000), 3 * lineHeight(ui::textFont(12)));
}

TEST(LazyTextLayout, LinesThatCrossThePiecesOfALongTextAreAllThereOnce) {
    constexpr int lineCount = 3000;
    QByteArray text;
    for (int line = 0; line < lineCount; ++line) {
        text += "line ä " + QByteArray::number(line) + (line % 2 == 0 ? "\r\n" : "\n");
    }
    text.chop(1);
    LazyTextLayout layout(text, ui::textFont(12), LINE_WIDTH);
    const int height = lineHeight(ui::textFont(12));
    EXPECT_EQ(layout.height(1e9), lineCount * height);
    EXPECT_EQ(inkedLines(layout, 1500 * height, 4), QList<bool>(4, true));
    EXPECT_EQ(inkedLines(layout, (lineCount - 2) * height, 4), (QList<bool>{true, true, false, false}));
}

TEST(LazyTextLayout, AGiantLineCostsOnlyWhatIsSeenOfIt) {
    const QByteArray giant(50'000'000, 'x');
    QElapsedTimer time;
    time.start();
    LazyTextLayout layout(giant, ui::textFont(12), LINE_WIDTH);
    const double height = layout.height(120);
    EXPECT_EQ(inkedLines(layout, 0, 8), QList<bool>(8, true));
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_GT(height, 1'000'000) << "the estimate tells that there is much more";
}

} // namespace zamber::popover
