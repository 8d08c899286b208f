// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Symbols.h"

#include <QHash>
#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace zamber::popover {

/// A text or symbol that was painted: its place (points, in the rendered widget), size, weight and colour.
struct Painted {
    enum class Kind { Text, Symbol, Fill };
    Kind kind = Kind::Fill;
    QString what; ///< the text, or the symbol's name
    QRectF place;
    QRectF visiblePart; ///< what of it is not cut off
    double points = 0;
    int weight = 0;
    QColor color;
};

/// Real symbols that can be recognised when they are painted.
class TaggedSymbols final : public Symbols {
public:
    struct Tag {
        QString name;
        SymbolStyle style;
    };

    explicit TaggedSymbols(const Symbols& real)
        : m_real(real) {}

    QPixmap pixmap(const QString& name, const SymbolStyle& style) const override {
        QPixmap symbol = m_real.pixmap(name, style);
        m_tags.insert(symbol.cacheKey(), {name, style});
        return symbol;
    }

    const Tag* tag(const QPixmap& symbol) const {
        const auto found = m_tags.constFind(symbol.cacheKey());
        return found == m_tags.constEnd() ? nullptr : &*found;
    }

private:
    const Symbols& m_real;
    mutable QHash<qint64, Tag> m_tags;
};

/// A sheet that writes down what is painted on it instead of showing it.
class PaintRecorder final : public QPaintDevice, private QPaintEngine {
public:
    PaintRecorder(const TaggedSymbols& symbols, QSize size)
        : QPaintEngine(AllFeatures)
        , m_symbols(symbols)
        , m_size(size) {}

    static QList<Painted> record(QWidget& widget, const TaggedSymbols& symbols) {
        PaintRecorder recorder(symbols, widget.size());
        widget.render(&recorder);
        return recorder.m_painted;
    }

    QPaintEngine* paintEngine() const override {
        return const_cast<QPaintEngine*>(static_cast<const QPaintEngine*>(this));
    }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmNumColors:
            return 0;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 96;
        }
    }

private:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    Type type() const override { return User; }

    void drawTextItem(const QPointF& baseline, const QTextItem& item) override {
        const QRectF place(baseline.x(), baseline.y() - item.ascent(), item.width(), item.ascent() + item.descent());
        note({Painted::Kind::Text,
              item.text(),
              place,
              {},
              static_cast<double>(item.font().pixelSize()),
              item.font().weight(),
              painter()->pen().color()});
    }

    void drawPixmap(const QRectF& place, const QPixmap& pixmap, const QRectF&) override {
        if (const auto* tag = m_symbols.tag(pixmap)) {
            note({Painted::Kind::Symbol,
                  tag->name,
                  place,
                  {},
                  tag->style.pointSize,
                  tag->style.weight,
                  tag->style.color});
        }
    }

    void drawPath(const QPainterPath& path) override {
        if (painter()->brush().style() != Qt::NoBrush) {
            note({Painted::Kind::Fill, {}, path.boundingRect(), {}, 0, 0, painter()->brush().color()});
        }
    }
    void drawRects(const QRectF* rectangles, int count) override {
        for (int index = 0; index < count; ++index) {
            QPainterPath path;
            path.addRect(rectangles[index]);
            drawPath(path);
        }
    }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}

    void note(Painted painted) {
        painted.place = painter()->deviceTransform().mapRect(painted.place);
        painted.visiblePart = painted.place & QRectF(systemClip().boundingRect());
        m_painted.append(painted);
    }

    const TaggedSymbols& m_symbols;
    QSize m_size;
    QList<Painted> m_painted;
};

} // namespace zamber::popover
