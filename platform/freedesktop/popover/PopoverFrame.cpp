// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/PopoverFrame.h"

#include <QHideEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace zamber::freedesktop::popover {

using namespace Qt::StringLiterals;

namespace {

constexpr int CORNER_RADIUS = 12;
constexpr int SHADOW_BLUR = 26;
constexpr int SHADOW_DROP = 8;
constexpr double SHADOW_OPACITY = 0.36;
/// From the shadow's outer corner to where it runs straight.
constexpr int SHADOW_CORNER = 2 * SHADOW_BLUR + CORNER_RADIUS;

constexpr int LINE_WIDTH = 1;
/// Qt hands translucent areas of more rows to other threads and waits for them.
constexpr int MOST_ROWS_AT_ONCE = 64;

std::array<QRect, 4> cornersOf(const QRect& rectangle) {
    const QSize size(CORNER_RADIUS, CORNER_RADIUS);
    const int right = rectangle.right() + 1 - CORNER_RADIUS;
    const int bottom = rectangle.bottom() + 1 - CORNER_RADIUS;
    return {QRect(rectangle.topLeft(), size), QRect(QPoint(right, rectangle.top()), size),
            QRect(QPoint(rectangle.left(), bottom), size), QRect(QPoint(right, bottom), size)};
}

/// How far a point lies outside a rounded square around the origin; negative inside.
double distanceFromRoundedSquare(double x, double y, double halfSide, double radius) {
    const double beyondX = std::abs(x) - (halfSide - radius);
    const double beyondY = std::abs(y) - (halfSide - radius);
    const double outside = std::hypot(std::max(beyondX, 0.0), std::max(beyondY, 0.0));
    return outside + std::min(std::max(beyondX, beyondY), 0.0) - radius;
}

/// The smallest shadow there is: four corners and one point between them, to be stretched to any size.
QPixmap drawShadowTile(double devicePixelRatio) {
    const int points = 2 * SHADOW_CORNER + 1;
    const int pixels = static_cast<int>(std::ceil(points * devicePixelRatio));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < pixels; ++row) {
        for (int column = 0; column < pixels; ++column) {
            const double x = (column + 0.5) / devicePixelRatio - points / 2.0;
            const double y = (row + 0.5) / devicePixelRatio - points / 2.0;
            const double distance = distanceFromRoundedSquare(x, y, points / 2.0 - SHADOW_BLUR, CORNER_RADIUS);
            const double part = std::clamp((distance + SHADOW_BLUR) / (2.0 * SHADOW_BLUR), 0.0, 1.0);
            const double falloff = 1 - part * part * (3 - 2 * part);
            image.setPixel(column, row, qRgba(0, 0, 0, static_cast<int>(std::lround(255 * SHADOW_OPACITY * falloff))));
        }
    }
    QPixmap tile = QPixmap::fromImage(std::move(image));
    tile.setDevicePixelRatio(devicePixelRatio);
    return tile;
}

/// Draws the tile with its corners as they are and its middle stretched.
void drawStretched(QPainter& painter, const QRectF& target, const QPixmap& tile, double corner) {
    const double scale = tile.devicePixelRatio();
    const double side = tile.width();
    const double targetX[] = {target.left(), target.left() + corner, target.right() - corner, target.right()};
    const double targetY[] = {target.top(), target.top() + corner, target.bottom() - corner, target.bottom()};
    const double source[] = {0, corner * scale, side - corner * scale, side};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            painter.drawPixmap(
                QRectF(QPointF(targetX[column], targetY[row]), QPointF(targetX[column + 1], targetY[row + 1])), tile,
                QRectF(QPointF(source[column], source[row]), QPointF(source[column + 1], source[row + 1])));
        }
    }
}

} // namespace

class PopoverFrame::Rim final : public QWidget {
public:
    explicit Rim(PopoverFrame* frame)
        : QWidget(frame)
        , m_frame(frame) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.translate(-pos());
        m_frame->paintRim(painter);
    }

    void resizeEvent(QResizeEvent*) override {
        // The rim is no larger than what it draws: it is painted anew with every change of the content under it.
        QRegion ring = rect();
        ring -= rect().adjusted(LINE_WIDTH, LINE_WIDTH, -LINE_WIDTH, -LINE_WIDTH);
        for (const QRect& corner : cornersOf(rect())) {
            ring += corner;
        }
        setMask(ring);
    }

private:
    const PopoverFrame* m_frame;
};

PopoverFrame::PopoverFrame()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_rim(new Rim(this)) {
    setWindowTitle(u"Zamber"_s);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
}

PopoverFrame::~PopoverFrame() {
    setContent(nullptr);
}

void PopoverFrame::setContent(QWidget* content) {
    if (m_content != nullptr) {
        m_content->hide();
        m_content->setParent(nullptr);
    }
    m_content = content;
    setFocusProxy(content);
    if (content != nullptr) {
        content->setParent(this);
        content->show();
        m_rim->raise();
        arrange();
    }
}

void PopoverFrame::setShape(FrameShape shape) {
    if (shape != m_shape) {
        const QRect rectangle = contentGeometry();
        m_shape = shape;
        setContentGeometry(rectangle);
        update();
    }
}

void PopoverFrame::setColorScheme(ColorScheme colorScheme) {
    m_colorScheme = colorScheme;
    m_rim->update();
}

void PopoverFrame::setContentGeometry(const QRect& rectangle) {
    const QRect window = rectangle.marginsAdded(shadowMargins());
    setFixedSize(window.size()); // nobody resizes a popover, and tiling compositors let windows of a fixed size float
    setGeometry(window);
    arrange();
}

QRect PopoverFrame::contentGeometry() const {
    return geometry().marginsRemoved(shadowMargins());
}

QMargins PopoverFrame::shadowMargins() const {
    if (m_shape == FrameShape::Square) {
        return {};
    }
    return {SHADOW_BLUR, SHADOW_BLUR - SHADOW_DROP, SHADOW_BLUR, SHADOW_BLUR + SHADOW_DROP};
}

void PopoverFrame::arrange() {
    const QRect inner = rect().marginsRemoved(shadowMargins());
    if (m_content != nullptr) {
        m_content->setGeometry(inner);
    }
    m_rim->setGeometry(inner);
}

void PopoverFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (m_shape == FrameShape::RoundedWithShadow) {
        paintShadow(painter);
    }
}

void PopoverFrame::paintShadow(QPainter& painter) const {
    if (m_shadowTile.isNull() || m_shadowTile.devicePixelRatio() != devicePixelRatioF()) {
        m_shadowTile = drawShadowTile(devicePixelRatioF());
    }
    drawStretched(painter, rect(), m_shadowTile, SHADOW_CORNER);
}

void PopoverFrame::paintRim(QPainter& painter) const {
    const QRect inner = rect().marginsRemoved(shadowMargins());
    const QColor color = m_colorScheme == ColorScheme::Dark ? QColor(255, 255, 255, 46) : QColor(0, 0, 0, 40);
    const int inset = m_shape == FrameShape::RoundedWithShadow ? CORNER_RADIUS : 0;
    const int length = inner.width() - 2 * inset;
    painter.fillRect(inner.left() + inset, inner.top(), length, LINE_WIDTH, color);
    painter.fillRect(inner.left() + inset, inner.bottom(), length, LINE_WIDTH, color);
    const int bottom = inner.bottom() + 1 - std::max(inset, LINE_WIDTH);
    for (int top = inner.top() + std::max(inset, LINE_WIDTH); top < bottom; top += MOST_ROWS_AT_ONCE) {
        const int height = std::min(MOST_ROWS_AT_ONCE, bottom - top);
        painter.fillRect(inner.left(), top, LINE_WIDTH, height, color);
        painter.fillRect(inner.right(), top, LINE_WIDTH, height, color);
    }
    if (m_shape == FrameShape::RoundedWithShadow) {
        for (const QRect& corner : cornersOf(inner)) {
            paintCorner(painter, corner, color);
        }
    }
}

void PopoverFrame::paintCorner(QPainter& painter, const QRect& corner, const QColor& color) const {
    const QRectF inner = rect().marginsRemoved(shadowMargins());
    painter.save();
    painter.setClipRect(corner);
    painter.setRenderHint(QPainter::Antialiasing);
    // The content is square. Its corners are taken away from the picture, with soft edges, and the shadow below them is
    // put back.
    QPainterPath outside;
    outside.addRect(inner);
    outside.addRoundedRect(inner, CORNER_RADIUS, CORNER_RADIUS);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outside, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    paintShadow(painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(color, LINE_WIDTH));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(inner.adjusted(0.5, 0.5, -0.5, -0.5), CORNER_RADIUS - 0.5, CORNER_RADIUS - 0.5);
    painter.restore();
}

void PopoverFrame::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void PopoverFrame::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        emit hidden();
    }
}

bool PopoverFrame::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) {
        emit deactivated();
    }
    return QWidget::event(event);
}

} // namespace zamber::freedesktop::popover
