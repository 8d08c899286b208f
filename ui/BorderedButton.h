// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QAbstractButton>

namespace zamber::ui {

/// The size of a control and its text.
enum class ControlSize { Large, Regular, Small, Mini };

/// The style of a button with a ground of its own.
struct ButtonStyle {
    enum class Prominence {
        Bordered,   ///< a quiet ground
        Prominent,  ///< filled with the accent: the one button that is meant to be pressed
        Destructive ///< in red, for an action that deletes something
    };
    enum class Shape { Rounded, Capsule };

    Prominence prominence = Prominence::Bordered;
    ControlSize size = ControlSize::Regular;
    Shape shape = Shape::Rounded;
};

/// A push button with a ground. Reached by the Tab key and pressed by the space bar, unless its focus policy is
/// changed; assistive technology reads its text.
class BorderedButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit BorderedButton(const QString& text, ButtonStyle style = {}, QWidget* parent = nullptr);

    void setColors(const Palette& palette);

    const ButtonStyle& buttonStyle() const { return m_style; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor groundColor() const;
    QColor textColor() const;

    ButtonStyle m_style;
    Palette m_palette;
};

} // namespace zamber::ui
