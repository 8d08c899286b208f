// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace zamber {

/// A line of plain text in one of the palette's colours.
class TextLabel final : public QLabel {
    Q_OBJECT

public:
    TextLabel(const QString& text, const QFont& font, QWidget* parent = nullptr)
        : QLabel(text, parent) {
        setFont(font);
        setTextFormat(Qt::PlainText);
    }

    void setColor(const QColor& color) {
        QPalette colors = palette();
        colors.setColor(QPalette::WindowText, color);
        setPalette(colors);
    }
};

} // namespace zamber
