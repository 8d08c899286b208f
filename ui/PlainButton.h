// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QAbstractButton>

namespace zamber {
class Symbols;
}

namespace zamber::ui {

/// The pointer's shape over a button.
enum class HoverPointer { Arrow, PointingHand };

/// The label of a plain button: a symbol, a text, or both beside each other.
struct PlainButtonLabel {
    QString symbol;
    double symbolPoints = 12;
    QFont::Weight symbolWeight = QFont::Normal;
    QString text = {};
    QFont font = {};
    HoverPointer pointer = HoverPointer::Arrow;
};

/// A button without a frame: only its label, and a soft ground while the pointer is over it. It never takes the
/// keyboard focus, which belongs to the search field.
class PlainButton final : public QAbstractButton {
    Q_OBJECT

public:
    PlainButton(const Symbols& symbols, PlainButtonLabel label, QWidget* parent = nullptr);

    /// The label's colour; the ground's comes from the palette.
    void setColors(const QColor& label, const Palette& palette);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// How far the soft ground reaches beyond the label on each side; layouts that align the label subtract it.
    static constexpr int GROUND_PADDING = 5;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    const Symbols& m_symbols;
    PlainButtonLabel m_label;
    QColor m_color;
    Palette m_palette;
};

} // namespace zamber::ui
