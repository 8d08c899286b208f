// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetricsF>
#include <QLabel>

#include <cmath>

namespace zamber::ui {

/// A line of plain text in one of the palette's colours.
class TextLabel final : public QLabel {
    Q_OBJECT

public:
    TextLabel(const QString& text, const QFont& font, QWidget* parent = nullptr)
        : QLabel(text, parent) {
        setFont(font);
        setTextFormat(Qt::PlainText);
    }

    /// Exactly as wide as its letters advance, so that distances to it are what layouts say.
    QSize sizeHint() const override {
        const QFontMetricsF metrics(font());
        return wordWrap() ? QLabel::sizeHint()
                          : QSize(static_cast<int>(std::ceil(metrics.horizontalAdvance(text()))),
                                  static_cast<int>(std::ceil(metrics.ascent() + metrics.descent())));
    }
    QSize minimumSizeHint() const override { return wordWrap() ? QLabel::minimumSizeHint() : sizeHint(); }

    void setColor(const QColor& color) {
        QPalette colors = palette();
        colors.setColor(QPalette::WindowText, color);
        setPalette(colors);
    }
};

} // namespace zamber::ui
