// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/SymbolView.h"

#include "platform/Symbols.h"

#include <QPainter>

#include <cmath>

namespace zamber::ui {

SymbolView::SymbolView(const Symbols& symbols, const QString& name, double points, QFont::Weight weight,
                       QWidget* parent)
    : QWidget(parent)
    , m_symbols(symbols)
    , m_name(name)
    , m_points(points)
    , m_weight(weight) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString& name) {
    m_name = name;
    updateGeometry();
    update();
}

void SymbolView::setColor(const QColor& color) {
    m_color = color;
    update();
}

QSize SymbolView::sizeHint() const {
    const QSizeF size = drawn().deviceIndependentSize();
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(QPointF(0, 0), drawn());
}

QPixmap SymbolView::drawn() const {
    return m_symbols.pixmap(m_name, {m_points, m_weight, m_color, devicePixelRatioF()});
}

} // namespace zamber::ui
