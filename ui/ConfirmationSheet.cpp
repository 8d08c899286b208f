// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/ConfirmationSheet.h"

#include "ui/AccessibleRoles.h"
#include "ui/BorderedButton.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"

#include <QAccessible>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace zamber::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int CARD_WIDTH = 256;
constexpr int CARD_PADDING = 18;
constexpr double CARD_RADIUS = 12;
constexpr double DIM_OPACITY_LIGHT = 0.22;
constexpr double DIM_OPACITY_DARK = 0.45;

TextLabel* centredLabel(const QString& text, const QFont& font, QWidget* parent) {
    auto* label = new TextLabel(text, font, parent);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

ConfirmationSheet::ConfirmationSheet(const Confirmation& confirmation, QWidget* covered)
    : QWidget(covered)
    , m_card(new QWidget(this))
    , m_title(centredLabel(confirmation.title, textFont(13, QFont::Bold), m_card))
    , m_message(centredLabel(confirmation.message, textFont(11), m_card))
    , m_confirm(new BorderedButton(confirmation.destructiveButton,
                                   {.prominence = ButtonStyle::Prominence::Destructive, .size = ControlSize::Large},
                                   m_card))
    , m_cancel(new BorderedButton(u"Cancel"_s, {.size = ControlSize::Large}, m_card)) {
    installAccessibleRoles();
    setAccessibleName(confirmation.title);
    setAccessibleDescription(confirmation.message);
    m_card->setFixedWidth(CARD_WIDTH);

    auto* column = new QVBoxLayout(m_card);
    column->setContentsMargins(CARD_PADDING, CARD_PADDING, CARD_PADDING, CARD_PADDING - 2);
    column->setSpacing(6);
    column->addWidget(m_title);
    column->addWidget(m_message);
    column->addSpacing(8);
    column->addWidget(m_confirm);
    column->addWidget(m_cancel);
    auto* centre = new QVBoxLayout(this);
    centre->addWidget(m_card, 0, Qt::AlignCenter);

    connect(m_confirm, &BorderedButton::clicked, this, &ConfirmationSheet::confirmed);
    connect(m_confirm, &BorderedButton::clicked, this, &ConfirmationSheet::dismissed);
    connect(m_cancel, &BorderedButton::clicked, this, &ConfirmationSheet::dismissed);
    covered->installEventFilter(this);
    setGeometry(covered->rect());
    hide();
}

void ConfirmationSheet::setColors(const Palette& palette) {
    m_palette = palette;
    m_title->setColor(palette.primary);
    m_message->setColor(palette.secondary);
    m_confirm->setColors(palette);
    m_cancel->setColors(palette);
    update();
}

void ConfirmationSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), faded(Qt::black, m_palette.isDark ? DIM_OPACITY_DARK : DIM_OPACITY_LIGHT));

    const QRectF card = m_card->geometry();
    painter.setPen(Qt::NoPen);
    constexpr int shadowSteps = 10;
    for (int step = shadowSteps; step > 0; --step) {
        painter.setBrush(faded(Qt::black, 0.014));
        painter.drawRoundedRect(card.adjusted(-step, -step + 3, step, step + 3), CARD_RADIUS + step,
                                CARD_RADIUS + step);
    }
    painter.setBrush(m_palette.isDark ? m_palette.barMaterial : m_palette.ultraThinMaterial);
    painter.setPen(m_palette.windowBorder);
    painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), CARD_RADIUS, CARD_RADIUS);
}

void ConfirmationSheet::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // No button is to look as if Return pressed it, which belongs to what lies under the sheet. Tab comes to the
    // harmless one first.
    setFocus(Qt::OtherFocusReason);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool ConfirmationSheet::focusNextPrevChild(bool) {
    // The focus moves between the two buttons and not to the view under the sheet.
    (m_cancel->hasFocus() ? m_confirm : m_cancel)->setFocus(Qt::TabFocusReason);
    return true;
}

void ConfirmationSheet::mousePressEvent(QMouseEvent* event) {
    event->accept(); // a press must not reach the view under the sheet
}

bool ConfirmationSheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return false;
}

} // namespace zamber::ui
