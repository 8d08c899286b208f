// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QWidget>

namespace zamber {
class Symbols;
}

namespace zamber::ui {

/// A symbol by itself, as large as it is drawn. Decoration: assistive technology gets no name for it.
class SymbolView final : public QWidget {
    Q_OBJECT

public:
    SymbolView(const Symbols& symbols, const QString& name, double points, QFont::Weight weight,
               QWidget* parent = nullptr);

    void setSymbol(const QString& name);
    const QString& symbol() const { return m_name; }
    void setColor(const QColor& color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap drawn() const;

    const Symbols& m_symbols;
    QString m_name;
    double m_points;
    QFont::Weight m_weight;
    QColor m_color = Qt::black;
};

} // namespace zamber::ui
