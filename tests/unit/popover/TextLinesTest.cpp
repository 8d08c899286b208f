// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/TextLines.h"

#include "ui/Typography.h"

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

constexpr int WIDTH = 240;

/// Which lines of the layout have any ink, from `top` on.
QList<bool> inkedLines(LazyTextLayout& layout, double top, int lines) {
    const int height = lineHeight(ui::textFont(12));
    QImage image(WIDTH, height * lines, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    layout.draw(painter, {0, 0}, top, image.height());
    painter.end();
    QList<bool> inked;
    for (int line = 0; line < lines; ++line) {
        bool hasInk = false;
        for (int row = line * height; row < (line + 1) * height; ++row) {
            const uchar* pixels = image.constScanLine(row);
            hasInk |= std::any_of(pixels, pixels + WIDTH, [](uchar pixel) { return pixel < 128; });
        }
        inked.append(hasInk);
    }
    return inked;
}

} // namespace

TEST(ElidedLines, AShortTextIsOneLine) {
    EXPECT_EQ(elidedLines(u"hello"_s, ui::textFont(12), WIDTH, 2), QStringList{u"hello"_s});
}

TEST(ElidedLines, EveryKindOfLineBreakBreaks) {
    for (const QString& separator : {u"\n"_s, u"\r"_s, u"\u2028"_s, u"\u2029"_s}) {
        EXPECT_EQ(elidedLines(u"one"_s + separator + u"two"_s, ui::textFont(12), WIDTH, 3),
                  (QStringList{u"one"_s, u"two"_s}));
    }
    EXPECT_EQ(elidedLines(u"one\r\ntwo"_s, ui::textFont(12), WIDTH, 3).size(), 2);
}

TEST(ElidedLines, TheLastLineEndsInAnEllipsisWhenThereIsMore) {
    const QStringList lines = elidedLines(u"one\ntwo \nthree"_s, ui::textFont(12), WIDTH, 2);
    EXPECT_EQ(lines, (QStringList{u"one"_s, u"two…"_s}));
}

TEST(ElidedLines, NoLineIsWiderThanTheRoom) {
    const QString text = u"The quick brown fox jumps over the lazy dog. "_s.repeated(20);
    const QStringList lines = elidedLines(text, ui::textFont(12), WIDTH, 3);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.last().endsWith(u'…'));
    for (const QString& line : lines) {
        EXPECT_LE(QFontMetricsF(ui::textFont(12)).horizontalAdvance(line.trimmed()), WIDTH + 0.5);
    }
}

TEST(ElidedLines, IndentationIsKept) {
    EXPECT_EQ(elidedLines(u"if\n    then\nelse"_s, ui::textFont(12), WIDTH, 2), (QStringList{u"if"_s, u"    then…"_s}));
}

TEST(LazyTextLayout, AShortTextHasItsExactHeight) {
    LazyTextLayout layout("one\ntwo\nthree", ui::textFont(12), WIDTH);
    EXPECT_EQ(layout.height(1000), 3 * lineHeight(ui::textFont(12)));
}

TEST(LazyTextLayout, LinesThatCrossThePiecesOfALongTextAreAllThereOnce) {
    constexpr int lineCount = 3000;
    QByteArray text;
    for (int line = 0; line < lineCount; ++line) {
        text += "line ä " + QByteArray::number(line) + (line % 2 == 0 ? "\r\n" : "\n");
    }
    text.chop(1);
    LazyTextLayout layout(text, ui::textFont(12), WIDTH);
    const int height = lineHeight(ui::textFont(12));
    EXPECT_EQ(layout.height(1e9), lineCount * height);
    EXPECT_EQ(inkedLines(layout, 1500 * height, 4), QList<bool>(4, true));
    EXPECT_EQ(inkedLines(layout, (lineCount - 2) * height, 4), (QList<bool>{true, true, false, false}));
}

TEST(LazyTextLayout, AGiantLineCostsOnlyWhatIsSeenOfIt) {
    const QByteArray giant(50'000'000, 'x');
    QElapsedTimer time;
    time.start();
    LazyTextLayout layout(giant, ui::textFont(12), WIDTH);
    const double height = layout.height(120);
    EXPECT_EQ(inkedLines(layout, 0, 8), QList<bool>(8, true));
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_GT(height, 1'000'000) << "the estimate tells that there is much more";
}

} // namespace zamber::popover
