// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/OverlayScrollBar.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <chrono>

namespace zamber::ui {

namespace {

constexpr int WIDTH = 12;
constexpr double THIN = 5;
constexpr double WIDE = 7; // under the pointer
constexpr double EDGE_GAP = 3;
constexpr double SHORTEST_THUMB = 24;
constexpr std::chrono::milliseconds REST{1200};
constexpr std::chrono::milliseconds FADING{300};

} // namespace

OverlayScrollBar::OverlayScrollBar(QAbstractScrollArea* area)
    : QWidget(area)
    , m_area(area)
    , m_hidden(area->verticalScrollBar())
    , m_palette(Palette::light(Qt::blue)) {
    setAttribute(Qt::WA_Hover);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->installEventFilter(this);
    connect(m_hidden, &QScrollBar::rangeChanged, this, &OverlayScrollBar::adjustToArea);
    connect(m_hidden, &QScrollBar::valueChanged, this, &OverlayScrollBar::reveal);
    m_rest.setSingleShot(true);
    m_rest.setInterval(REST);
    connect(&m_rest, &QTimer::timeout, this, &OverlayScrollBar::fade);
    m_fading.setDuration(static_cast<int>(FADING.count()));
    m_fading.setStartValue(1.0);
    m_fading.setEndValue(0.0);
    connect(&m_fading, &QVariantAnimation::valueChanged, this, [this](const QVariant& strength) {
        m_strength = strength.toDouble();
        update();
    });
    adjustToArea();
}

void OverlayScrollBar::setColors(const Palette& palette) {
    m_palette = palette;
    update();
}

void OverlayScrollBar::adjustToArea() {
    setGeometry(m_area->width() - WIDTH, 0, WIDTH, m_area->height());
    setVisible(m_hidden->maximum() > m_hidden->minimum());
    raise();
    update();
}

void OverlayScrollBar::reveal() {
    m_fading.stop();
    m_strength = 1;
    m_rest.start();
    update();
}

void OverlayScrollBar::fade() {
    if (underMouse() || m_isDragging) {
        return;
    }
    if (m_motion == Motion::Reduced) {
        m_strength = 0;
        update();
    } else {
        m_fading.start();
    }
}

void OverlayScrollBar::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    reveal(); // so that people see that there is more
}

void OverlayScrollBar::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    reveal();
}

void OverlayScrollBar::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    reveal();
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        adjustToArea();
    }
    return QWidget::eventFilter(watched, event);
}

QRectF OverlayScrollBar::thumb() const {
    const double track = height() - 2 * EDGE_GAP;
    const double range = m_hidden->maximum() - m_hidden->minimum();
    const double whole = range + m_hidden->pageStep();
    const double length = std::max(SHORTEST_THUMB, track * m_hidden->pageStep() / std::max(1.0, whole));
    const double share = (m_hidden->value() - m_hidden->minimum()) / std::max(1.0, range);
    const double thickness = underMouse() || m_isDragging ? WIDE : THIN;
    return {width() - EDGE_GAP - thickness, EDGE_GAP + share * (track - length), thickness, length};
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(m_palette.primary, m_strength * (underMouse() || m_isDragging ? 0.5 : 0.28)));
    const QRectF place = thumb();
    painter.drawRoundedRect(place, place.width() / 2, place.width() / 2);
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    const QRectF place = thumb();
    const double y = event->position().y();
    // A press beside the thumb brings its middle to the pointer.
    m_grabbedAt = y >= place.top() && y <= place.bottom() ? y - place.top() : place.height() / 2;
    m_isDragging = true;
    mouseMoveEvent(event);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (!m_isDragging) {
        return;
    }
    const double free = height() - 2 * EDGE_GAP - thumb().height();
    const double share = free <= 0 ? 0 : std::clamp((event->position().y() - m_grabbedAt - EDGE_GAP) / free, 0.0, 1.0);
    m_hidden->setValue(m_hidden->minimum() + qRound(share * (m_hidden->maximum() - m_hidden->minimum())));
    update();
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    m_isDragging = false;
    reveal();
}

} // namespace zamber::ui
