// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/Badge.h"

#include "ui/AccessibleRoles.h"
#include "ui/ContinuousCorners.h"
#include "ui/Typography.h"

#include <QFontMetrics>
#include <QPainter>

namespace zamber::ui {

namespace {
constexpr double KEY_CAP_RADIUS = 3;
} // namespace

Badge::Badge(const QFont& font, QSize padding, Corners corners, double radius, QWidget* parent)
    : QWidget(parent)
    , m_padding(padding)
    , m_corners(corners)
    , m_radius(radius) {
    installAccessibleRoles(); // before the name is set: Qt asks for the role then
    setFont(font);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Badge::setText(const QString& text) {
    if (text == m_text) {
        return;
    }
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

void Badge::setColors(const QColor& text, const QColor& ground) {
    m_textColor = text;
    m_groundColor = ground;
    update();
}

QSize Badge::sizeHint() const {
    const QFontMetrics metrics(font());
    return QSize(metrics.horizontalAdvance(m_text), metrics.height()) + 2 * m_padding;
}

void Badge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_groundColor);
    if (m_corners == Corners::Capsule) {
        painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
    } else {
        painter.drawPath(continuousRoundedRect(rect(), m_radius));
    }
    painter.setPen(m_textColor);
    painter.drawText(rect(), Qt::AlignCenter, m_text);
}

CapsuleBadge::CapsuleBadge(QWidget* parent)
    : Badge(monospacedFont(11, QFont::Medium), QSize(7, 3), Corners::Capsule, 0, parent) {}

KeyCap::KeyCap(const QString& key, QWidget* parent)
    : Badge(monospacedFont(9, QFont::DemiBold), QSize(5, 2), Corners::Continuous, KEY_CAP_RADIUS, parent) {
    setText(key);
}

} // namespace zamber::ui
