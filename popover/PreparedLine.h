// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPointF>
#include <QStaticText>
#include <QString>

#include <memory>

class QPainter;
class QTextLayout;

namespace zamber::popover {

/// One line of text, shaped and ready to be drawn many times; a cheap value.
class PreparedLine {
public:
    PreparedLine() = default;
    PreparedLine(const QString& text, const QFont& font);

    double width() const; ///< points

    /// In the painter's pen, the top left corner of the font's own line at the place (points). The baseline is the
    /// font's, whatever other fonts lend symbols.
    void draw(QPainter& painter, QPointF topLeft) const;

private:
    QFont m_font;
    QStaticText m_letters;
    std::shared_ptr<QTextLayout> m_withEmoji; ///< in place of the letters: their fonts differ from run to run
};

} // namespace zamber::popover
