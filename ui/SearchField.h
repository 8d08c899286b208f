// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QWidget>

namespace zamber {
class Symbols;
}

namespace zamber::ui {

class EmojiLineEdit;
class PlainButton;

/// A rounded field with a magnifying glass, a placeholder, and a button that empties it while there is text.
class SearchField final : public QWidget {
    Q_OBJECT

public:
    SearchField(const Symbols& symbols, const QString& placeholder, QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);
    /// Selects the text, so that typing replaces it; no other program can paste the selection.
    void selectAll();
    void setColors(const Palette& palette);

signals:
    void textChanged(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Symbols& m_symbols;
    EmojiLineEdit* m_field;
    PlainButton* m_clearButton;
    Palette m_palette;
};

} // namespace zamber::ui
