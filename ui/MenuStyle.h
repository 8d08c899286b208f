// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

class QAction;

namespace zamber::ui {

/// Marks a line of a menu that does what cannot be undone.
void setDestructive(QAction& action);

/// How menus and tool tips are drawn, in the colours of their palettes: a rounded card with its shadow around it,
/// or a square one with a thin edge.
class MenuStyle final : public QProxyStyle {
public:
    enum class Shape { Square, RoundedWithShadow };

    MenuStyle();

    /// For all menus and tool tips to come.
    void setShape(Shape shape) { m_shape = shape; }

    /// How far a menu's window, or a tool tip's, reaches beyond its card on each side, in points.
    int menuShadow() const;
    int toolTipShadow() const;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

private:
    void drawCard(QPainter& painter, const QStyleOption& option, int shadow, double radius) const;
    void drawLine(QPainter& painter, const QStyleOption& option, const QWidget* menu) const;

    Shape m_shape = Shape::RoundedWithShadow;
};

} // namespace zamber::ui
