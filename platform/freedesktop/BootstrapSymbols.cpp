// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/BootstrapSymbols.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// Bootstrap's pictures fill a box of 16 units whose lines are one unit wide.
constexpr double BOX_UNITS = 16;
/// Room around the box, so that a line at its edge is not cut when it is made bolder.
constexpr double MARGIN_UNITS = 0.5;
/// How high a symbol is for its point size.
constexpr double HEIGHT_PER_POINT = 1.2;
/// Sizes and colours come from a handful of places; more than this many means that something animates a colour.
constexpr qsizetype MOST_KEPT = 512;

enum class Slash { None, Across };

struct Drawing {
    QString macName;
    QString file; ///< of Bootstrap's
    Slash slash = Slash::None;
    const char* lines = nullptr; ///< a drawing of our own instead, as the path of a pen
};

/// A chain that stays open at twelve pixels, where Bootstrap's runs together.
constexpr auto LINK = "M6.6 9.4A2.7 2.7 0 0 0 10.4 9.4L13.2 6.6A2.7 2.7 0 0 0 9.4 2.8L8.2 4"
                      "M9.4 6.6A2.7 2.7 0 0 0 5.6 6.6L2.8 9.4A2.7 2.7 0 0 0 6.6 13.2L7.8 12";
/// A glass whose handle is no heavier than its rim, also when it is large.
constexpr auto MAGNIFYING_GLASS = "M12.4 6.4A6 6 0 1 1 .4 6.4A6 6 0 1 1 12.4 6.4M10.7 10.7L15.4 15.4";
constexpr double LINE_UNITS = 1.1;

const Drawing* drawingFor(const QString& name) {
    static const Drawing drawings[] = {
        {u"1.circle.fill"_s, u"1-circle-fill"_s},
        {u"2.circle.fill"_s, u"2-circle-fill"_s},
        {u"3.circle.fill"_s, u"3-circle-fill"_s},
        {u"arrow.down.circle.fill"_s, u"arrow-down-circle-fill"_s},
        {u"arrow.up.arrow.down"_s, u"arrow-down-up"_s},
        {u"checkmark.circle.fill"_s, u"check-circle-fill"_s},
        {u"clipboard"_s, u"clipboard"_s},
        {u"clipboard.fill"_s, u"clipboard-fill"_s},
        {u"clock"_s, u"clock"_s},
        {u"doc.on.clipboard"_s, u"clipboard"_s},
        {u"doc.text"_s, u"file-earmark-text"_s},
        {u"escape"_s, u"escape"_s},
        {u"gearshape.fill"_s, u"gear-fill"_s},
        {u"info.circle.fill"_s, u"info-circle-fill"_s},
        {u"keyboard.fill"_s, u"keyboard-fill"_s},
        {.macName = u"link"_s, .file = {}, .lines = LINK},
        {u"lock.fill"_s, u"lock-fill"_s},
        {u"lock.shield"_s, u"shield-lock"_s},
        {.macName = u"magnifyingglass"_s, .file = {}, .lines = MAGNIFYING_GLASS},
        {u"photo"_s, u"image"_s},
        {u"pin"_s, u"pin"_s},
        {u"pin.fill"_s, u"pin-fill"_s},
        {u"pin.slash.fill"_s, u"pin-fill"_s, Slash::Across},
        {u"return"_s, u"arrow-return-left"_s},
        {u"safari"_s, u"browser-safari"_s},
        {u"trash"_s, u"trash"_s},
        {u"xmark"_s, u"x-lg"_s},
        {u"xmark.circle.fill"_s, u"x-circle-fill"_s},
    };
    const auto* found = std::ranges::find(drawings, name, &Drawing::macName);
    return found == std::end(drawings) ? nullptr : found;
}

/// How much wider than drawn a line becomes, in units; negative for a thinner one.
double boldness(QFont::Weight weight) {
    if (weight >= QFont::Bold) {
        return 0.9;
    }
    if (weight >= QFont::DemiBold) {
        return 0.6;
    }
    if (weight >= QFont::Medium) {
        return 0.35;
    }
    return weight >= QFont::Normal ? 0.0 : -0.25;
}

enum class Filling { Whole, OutlineOnly };

QByteArray drawnByPen(const char* lines, double width) {
    return R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="-0.5 -0.5 17 17"><path fill="none" stroke="#000" )"
           R"(stroke-linecap="round" stroke-linejoin="round" stroke-width=")" +
           QByteArray::number(width) + R"(" d=")" + lines + R"("/></svg>)";
}

QByteArray svg(const Drawing& drawing, double outlineWidth, Filling filling) {
    QFile file(u":/symbols/%1.svg"_s.arg(drawing.file));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray picture = file.readAll();
    picture.replace("currentColor", filling == Filling::Whole ? "#000" : "none");
    picture.replace("viewBox=\"0 0 16 16\"", "viewBox=\"-0.5 -0.5 17 17\"");
    if (outlineWidth > 0) {
        picture.replace("<path ", "<path stroke=\"#000\" stroke-linejoin=\"round\" stroke-width=\"" +
                                      QByteArray::number(outlineWidth) + "\" ");
    }
    return picture;
}

/// A line from the upper left to the lower right, with a gap on both sides that parts it from what it crosses.
void paintSlash(QPainter& painter, double extraLineWidth) {
    constexpr double lineUnits = 1.3;
    constexpr double gapUnits = 1.4;
    const QLineF line(1.5, 1.5, 14.5, 14.5);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setPen(QPen(Qt::black, lineUnits + extraLineWidth + 2 * gapUnits, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(line);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(Qt::black, lineUnits + extraLineWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(line);
}

QPixmap draw(const Drawing& drawing, const SymbolStyle& style) {
    const double side = std::max(1.0, std::round(style.pointSize * HEIGHT_PER_POINT));
    const int pixels = static_cast<int>(std::ceil(side * style.devicePixelRatio));
    const double extraLineWidth = boldness(style.weight);

    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(0, 0, pixels, pixels);
    QSvgRenderer(drawing.lines != nullptr ? drawnByPen(drawing.lines, LINE_UNITS + extraLineWidth)
                                          : svg(drawing, extraLineWidth, Filling::Whole))
        .render(&painter, box);
    if (extraLineWidth < 0 && drawing.lines == nullptr) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        QSvgRenderer(svg(drawing, -extraLineWidth, Filling::OutlineOnly)).render(&painter, box);
    }
    if (drawing.slash == Slash::Across) {
        const double scale = pixels / (BOX_UNITS + 2 * MARGIN_UNITS);
        painter.scale(scale, scale);
        painter.translate(MARGIN_UNITS, MARGIN_UNITS);
        paintSlash(painter, extraLineWidth);
        painter.resetTransform();
    }
    // Coloured as a whole at the end: overlapping strokes of a translucent colour would show through each other.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), style.color);
    painter.end();

    QPixmap pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(style.devicePixelRatio);
    return pixmap;
}

} // namespace

QPixmap BootstrapSymbols::pixmap(const QString& name, const SymbolStyle& style) const {
    const Drawing* drawing = drawingFor(name);
    if (drawing == nullptr) {
        return {};
    }
    const QString key = u"%1|%2|%3|%4|%5"_s.arg(name)
                            .arg(style.pointSize)
                            .arg(static_cast<int>(style.weight))
                            .arg(style.color.rgba(), 0, 16)
                            .arg(style.devicePixelRatio);
    if (const auto kept = m_drawn.constFind(key); kept != m_drawn.constEnd()) {
        return *kept;
    }
    if (m_drawn.size() >= MOST_KEPT) {
        m_drawn.clear();
    }
    return *m_drawn.insert(key, draw(*drawing, style));
}

} // namespace zamber::freedesktop
