// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/PreparedLine.h"

#include <QByteArray>
#include <QFont>
#include <QString>
#include <QStringList>
#include <QTextLayout>

#include <memory>
#include <vector>

class QPainter;

namespace zamber::popover {

/// The height that every line of the font takes, in points; symbols from another font do not push lines apart.
int lineHeight(const QFont& font);

/// Gives the layout the text in the font, its emoji in fonts of their own.
void prepareLayout(QTextLayout& layout, const QString& text, const QFont& font);

/// How far below its place (points) a line must lie for its baseline to be the font's.
double baselineShift(const QTextLine& line, const QFont& font);

/// The text broken into at most so many lines of the width (points), the last one ending in "…" when there is more.
/// Looks only at as much of the text as could possibly be shown.
QStringList elidedLines(const QString& text, const QFont& font, int width, int mostLines);

/// The same lines ready to be drawn. Those last asked for are kept, as long as the application runs: breaking and
/// shaping the same few texts anew would be most of what drawing a list costs.
QList<PreparedLine> preparedLines(const QString& text, const QFont& font, int width, int mostLines);

/// A text that is drawn on one line, however long it is.
PreparedLine preparedLine(const QString& text, const QFont& font);

/// A text of any length, broken into lines only as far down as it is drawn or measured.
class LazyTextLayout {
public:
    /// The text is UTF-8, the width in points.
    LazyTextLayout(QByteArray text, const QFont& font, int width);

    int width() const { return m_width; }

    /// The height in points: exact once it is no more than what was asked to be reached, else estimated from the part
    /// that has been laid out.
    double height(double reach);

    /// Draws the lines between `top` and `top + visibleHeight` of the text, `top` at the origin's height.
    void draw(QPainter& painter, QPointF origin, double top, double visibleHeight);

private:
    struct Piece {
        std::unique_ptr<QTextLayout> layout;
        int firstLine = 0;
        int lineCount = 0;
    };

    bool isComplete() const { return m_laidOutBytes >= m_text.size(); }
    void layOutDownTo(double y);
    void layOutNextPiece();

    QByteArray m_text;
    QFont m_font;
    int m_width;
    int m_lineHeight;
    qsizetype m_laidOutBytes = 0;
    int m_lineCount = 0;
    std::vector<Piece> m_pieces;
};

} // namespace zamber::popover
