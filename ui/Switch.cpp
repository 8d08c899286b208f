// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/Switch.h"

#include "ui/FocusRing.h"
#include "ui/Typography.h"
#include "ui/WholeAreaStyle.h"

#include <QFontMetrics>
#include <QPainter>
#include <QVariantAnimation>

#include <algorithm>
#include <chrono>

namespace zamber::ui {

namespace {

constexpr int LABEL_POINTS = 13;
constexpr QSize TRACK{38, 22};
constexpr int FOCUS_RING = 3; ///< room around the track
constexpr int LABEL_GAP = 12;
constexpr double KNOB_INSET = 2;
constexpr std::chrono::milliseconds SLIDING{150};

QColor mixed(const QColor& from, const QColor& to, double share) {
    return composed(faded(to, share), from);
}

} // namespace

Switch::Switch(const QString& label, QWidget* parent)
    : QCheckBox(label, parent)
    , m_palette(Palette::light(Qt::blue))
    , m_sliding(new QVariantAnimation(this)) {
    new WholeAreaStyle(this);
    setFont(textFont(LABEL_POINTS));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_sliding->setDuration(static_cast<int>(SLIDING.count()));
    m_sliding->setEasingCurve(QEasingCurve::InOutQuad);
    connect(m_sliding, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_position = value.toDouble();
        update();
    });
}

void Switch::setColors(const Palette& palette) {
    m_palette = palette;
    update();
}

QSize Switch::sizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(text()) + LABEL_GAP + TRACK.width() + FOCUS_RING,
            std::max(metrics.height(), TRACK.height())};
}

QRectF Switch::track() const {
    return {QPointF(width() - TRACK.width(), (height() - TRACK.height()) / 2.0), TRACK};
}

bool Switch::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void Switch::nextCheckState() {
    QCheckBox::nextCheckState();
    slide();
}

void Switch::checkStateSet() {
    QCheckBox::checkStateSet();
    slide();
}

void Switch::slide() {
    const double target = isChecked() ? 1 : 0;
    m_sliding->stop();
    if (m_motion == Motion::Reduced || !isVisible()) {
        m_position = target;
        update();
        return;
    }
    m_sliding->setStartValue(m_position);
    m_sliding->setEndValue(target);
    m_sliding->start();
}

void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_palette.primary);
    painter.setFont(font());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, text());

    const QRectF ground = track();
    const double radius = ground.height() / 2;
    const QColor off = composed(faded(m_palette.primary, underMouse() ? 0.26 : 0.20), m_palette.ultraThinMaterial);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(off, m_palette.accentFill, m_position));
    painter.drawRoundedRect(ground, radius, radius);

    const double side = ground.height() - 2 * KNOB_INSET;
    const double left = ground.left() + KNOB_INSET + m_position * (ground.width() - 2 * KNOB_INSET - side);
    const QRectF knob(left, ground.top() + KNOB_INSET, side, side);
    painter.setBrush(faded(Qt::black, 0.18));
    painter.drawEllipse(knob.translated(0, 0.6));
    painter.setBrush(isDown() ? QColor(0xEC, 0xEC, 0xEE) : QColor(Qt::white));
    painter.drawEllipse(knob);

    if (hasFocus()) {
        paintFocusRing(painter, ground, radius, m_palette);
    }
}

} // namespace zamber::ui
