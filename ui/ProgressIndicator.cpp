// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/ProgressIndicator.h"

#include <QPainter>

#include <chrono>

namespace zamber::ui {

namespace {

constexpr int SIDE = 16;
constexpr int SPOKES = 8;
constexpr double INNER_RADIUS = 3.2;
constexpr double OUTER_RADIUS = 6.6;
constexpr double SPOKE_WIDTH = 1.8;
constexpr double FAINTEST = 0.15;
constexpr std::chrono::milliseconds STEP{100};

} // namespace

ProgressIndicator::ProgressIndicator(const QString& name, QWidget* parent)
    : QWidget(parent)
    , m_palette(Palette::light(Qt::blue)) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_turning.setInterval(STEP);
    connect(&m_turning, &QTimer::timeout, this, [this] {
        m_step = (m_step + 1) % SPOKES;
        update();
    });
}

void ProgressIndicator::setColors(const Palette& palette) {
    m_palette = palette;
    update();
}

QSize ProgressIndicator::sizeHint() const {
    return {SIDE, SIDE};
}

void ProgressIndicator::showEvent(QShowEvent*) {
    m_turning.start();
}

void ProgressIndicator::hideEvent(QHideEvent*) {
    m_turning.stop();
}

void ProgressIndicator::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    for (int spoke = 0; spoke < SPOKES; ++spoke) {
        const int age = (m_step - spoke + SPOKES) % SPOKES;
        const double strength = 1.0 - (1.0 - FAINTEST) * age / (SPOKES - 1);
        painter.setPen(QPen(faded(m_palette.secondary, strength), SPOKE_WIDTH, Qt::SolidLine, Qt::RoundCap));
        painter.save();
        painter.rotate(360.0 * spoke / SPOKES);
        painter.drawLine(QPointF(0, -INNER_RADIUS), QPointF(0, -OUTER_RADIUS));
        painter.restore();
    }
}

} // namespace zamber::ui
