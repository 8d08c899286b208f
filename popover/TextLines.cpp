// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/TextLines.h"

#include "ui/EmojiFonts.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QPointer>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace zamber::popover {

namespace {

/// More characters than fit into three lines of the widest popover, whatever the letters.
constexpr qsizetype MOST_SHOWN_CHARACTERS = 1024;
/// How much text is laid out in one go: about the height of two popovers.
constexpr qsizetype PIECE_BYTES = 4096;

constexpr QChar ELLIPSIS = u'…';

/// A QTextLayout breaks at line separators only. The length stays: where both a carriage return and a line feed end a
/// line, the first one becomes invisible.
QString withLineSeparators(QString text) {
    constexpr QChar zeroWidthSpace = u'\u200B';
    text.replace(QStringLiteral("\r\n"), QString(zeroWidthSpace) + QChar::LineSeparator);
    for (QChar& character : text) {
        if (character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator || character == u'\f' ||
            character == u'\v' || character == u'\u0085') {
            character = QChar::LineSeparator;
        }
    }
    return text;
}

QTextOption wrapping() {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

QString withoutTrailingBlanks(QString text) {
    while (!text.isEmpty() && text.back().isSpace()) {
        text.chop(1);
    }
    return text;
}

double widthOf(const QString& text, const QFont& font) {
    constexpr double wideEnough = 1'000'000;
    QTextLayout layout;
    prepareLayout(layout, text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(wideEnough);
    layout.endLayout();
    return line.naturalTextWidth();
}

/// As much of the line as fits, closely followed by an ellipsis.
QString elided(const QString& line, const QFont& font, int width) {
    const QString text = withoutTrailingBlanks(line);
    if (widthOf(text + ELLIPSIS, font) <= width) {
        return text + ELLIPSIS;
    }
    // One that is broken where it has to be tells how much fits, to a character: the ellipsis may take one or two more.
    QTextLayout layout;
    prepareLayout(layout, text, font);
    QTextOption anywhere;
    anywhere.setWrapMode(QTextOption::WrapAnywhere);
    layout.setTextOption(anywhere);
    layout.beginLayout();
    QTextLine first = layout.createLine();
    first.setLineWidth(std::max(1.0, width - widthOf(QString(ELLIPSIS), font)));
    layout.endLayout();
    int end = first.textLength();
    while (end > 0 && widthOf(withoutTrailingBlanks(text.left(end)) + ELLIPSIS, font) > width) {
        end = layout.previousCursorPosition(end);
    }
    return withoutTrailingBlanks(text.left(end)) + ELLIPSIS;
}

/// All that a prepared text depends on; the typeface is always the same.
struct LineKey {
    QString text;
    int pixelSize;
    int weight;
    int width;
    int mostLines;

    bool operator==(const LineKey&) const = default;
    friend size_t qHash(const LineKey& key, size_t seed) {
        return qHashMulti(seed, key.text, key.pixelSize, key.weight, key.width, key.mostLines);
    }
};

constexpr qsizetype MOST_KEPT_TEXTS = 400;

/// Destroyed with the application object, as long as Qt's fonts exist.
QHash<LineKey, QList<PreparedLine>>* keptLines() {
    static QPointer<QObject> owner;
    static QHash<LineKey, QList<PreparedLine>> kept;
    if (owner == nullptr) {
        owner = new QObject(QCoreApplication::instance());
        QObject::connect(owner, &QObject::destroyed, owner, [] { kept.clear(); });
    }
    return &kept;
}

/// Where a character ends that begins before `limit` bytes.
qsizetype characterBoundary(const QByteArray& utf8, qsizetype limit) {
    const auto isContinuation = [&](qsizetype at) { return (static_cast<unsigned char>(utf8[at]) & 0xC0U) == 0x80U; };
    while (limit < utf8.size() && isContinuation(limit)) {
        ++limit;
    }
    return limit;
}

} // namespace

int lineHeight(const QFont& font) {
    const QFontMetricsF metrics(font);
    return static_cast<int>(std::ceil(metrics.ascent() + metrics.descent()));
}

void prepareLayout(QTextLayout& layout, const QString& text, const QFont& font) {
    layout.setFont(font);
    layout.setText(ui::withKeycapsJoined(text));
    layout.setFormats(ui::emojiFormats(text, font));
}

double baselineShift(const QTextLine& line, const QFont& font) {
    return QFontMetricsF(font).ascent() - line.ascent();
}

QStringList elidedLines(const QString& text, const QFont& font, int width, int mostLines) {
    const QString shown = withLineSeparators(text.left(MOST_SHOWN_CHARACTERS));
    QTextLayout layout;
    prepareLayout(layout, shown, font);
    layout.setTextOption(wrapping());

    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const qsizetype start = line.textStart();
        const qsizetype end = start + line.textLength();
        if (lines.size() + 1 == mostLines && end < shown.size()) {
            const qsizetype nextBreak = shown.indexOf(QChar::LineSeparator, start);
            lines.append(elided(shown.mid(start, nextBreak < 0 ? -1 : nextBreak - start), font, width));
            break;
        }
        QString piece = shown.mid(start, line.textLength());
        piece.remove(QChar::LineSeparator);
        // The blank at which the line was broken would stand before a text that reads from right to left.
        lines.append(withoutTrailingBlanks(piece));
    }
    layout.endLayout();
    return lines;
}

QList<PreparedLine> preparedLines(const QString& text, const QFont& font, int width, int mostLines) {
    const LineKey key{text, font.pixelSize(), font.weight(), width, mostLines};
    QHash<LineKey, QList<PreparedLine>>& kept = *keptLines();
    if (const auto known = kept.constFind(key); known != kept.constEnd()) {
        return *known;
    }
    QList<PreparedLine> lines;
    for (const QString& line : elidedLines(text, font, width, mostLines)) {
        lines.append(PreparedLine(line, font));
    }
    if (kept.size() >= MOST_KEPT_TEXTS) {
        kept.clear();
    }
    return *kept.insert(key, lines);
}

PreparedLine preparedLine(const QString& text, const QFont& font) {
    constexpr int wideEnough = 100'000;
    return preparedLines(text, font, wideEnough, 1).value(0);
}

LazyTextLayout::LazyTextLayout(QByteArray text, const QFont& font, int width)
    : m_text(std::move(text))
    , m_font(font)
    , m_width(width)
    , m_lineHeight(lineHeight(font)) {}

double LazyTextLayout::height(double reach) {
    layOutDownTo(reach);
    const double laidOut = m_lineCount * m_lineHeight;
    if (isComplete()) {
        return laidOut;
    }
    return laidOut * (static_cast<double>(m_text.size()) / static_cast<double>(m_laidOutBytes));
}

void LazyTextLayout::draw(QPainter& painter, QPointF origin, double top, double visibleHeight) {
    layOutDownTo(top + visibleHeight);
    for (const Piece& piece : m_pieces) {
        const double pieceTop = piece.firstLine * m_lineHeight;
        if (pieceTop + piece.lineCount * m_lineHeight <= top || pieceTop >= top + visibleHeight) {
            continue;
        }
        for (int line = 0; line < piece.lineCount; ++line) {
            const double y = pieceTop + line * m_lineHeight - top;
            if (y > -m_lineHeight && y < visibleHeight) {
                piece.layout->lineAt(line).draw(&painter, origin + QPointF(0, y));
            }
        }
    }
}

void LazyTextLayout::layOutDownTo(double y) {
    while (!isComplete() && m_lineCount * m_lineHeight < y) {
        layOutNextPiece();
    }
}

void LazyTextLayout::layOutNextPiece() {
    const qsizetype end = characterBoundary(m_text, std::min(m_text.size(), m_laidOutBytes + PIECE_BYTES));
    const QByteArray bytes = m_text.sliced(m_laidOutBytes, end - m_laidOutBytes);
    const QString original = QString::fromUtf8(bytes);
    const bool isLast = end == m_text.size();

    auto layout = std::make_unique<QTextLayout>();
    prepareLayout(*layout, withLineSeparators(original), m_font);
    layout->setTextOption(wrapping());
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(m_width);
        line.setPosition({0, baselineShift(line, m_font)});
    }
    layout->endLayout();

    // The last line of a piece may go on in the next one: it is laid out again there.
    int lineCount = layout->lineCount();
    m_laidOutBytes = end;
    if (!isLast && lineCount > 1) {
        --lineCount;
        const QString unfinished = layout->text().mid(layout->lineAt(lineCount).textStart());
        m_laidOutBytes -= original.last(unfinished.size()).toUtf8().size();
    }
    m_pieces.push_back({std::move(layout), m_lineCount, lineCount});
    m_lineCount += lineCount;
}

} // namespace zamber::popover
