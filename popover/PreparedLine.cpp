// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/PreparedLine.h"

#include "popover/TextLines.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

namespace zamber::popover {

PreparedLine::PreparedLine(const QString& text, const QFont& font)
    : m_font(font) {
    auto layout = std::make_shared<QTextLayout>();
    prepareLayout(*layout, text, font);
    if (!layout->formats().isEmpty()) {
        constexpr double wideEnough = 100'000;
        layout->setCacheEnabled(true);
        layout->beginLayout();
        QTextLine line = layout->createLine();
        line.setLineWidth(wideEnough);
        // At its own width, a line that reads from the right begins where it ends.
        line.setLineWidth(line.naturalTextWidth());
        line.setPosition({0, baselineShift(line, font)});
        layout->endLayout();
        m_withEmoji = std::move(layout);
        return;
    }
    m_letters.setText(text);
    m_letters.setTextFormat(Qt::PlainText);
    m_letters.setPerformanceHint(QStaticText::AggressiveCaching);
    m_letters.prepare({}, font);
}

double PreparedLine::width() const {
    return m_withEmoji ? m_withEmoji->lineAt(0).naturalTextWidth() : m_letters.size().width();
}

void PreparedLine::draw(QPainter& painter, QPointF topLeft) const {
    if (m_withEmoji) {
        m_withEmoji->draw(&painter, topLeft);
        return;
    }
    painter.setFont(m_font);
    painter.drawStaticText(topLeft, m_letters);
}

} // namespace zamber::popover
