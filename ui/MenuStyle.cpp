// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/MenuStyle.h"

#include "ui/Palette.h"

#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace zamber::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int MENU_SHADOW = 16;
constexpr int MENU_INSET = 5;
constexpr double MENU_RADIUS = 10;
constexpr double LINE_RADIUS = MENU_RADIUS - MENU_INSET;
constexpr int LINE_HEIGHT = 26;
constexpr int LINE_PADDING = 10;
constexpr int SEPARATOR_HEIGHT = 11;
constexpr int KEYS_GAP = 28; ///< between the longest title and the keys
constexpr int LEAST_MENU_WIDTH = 150;

constexpr int TOOL_TIP_SHADOW = 10;
constexpr int TOOL_TIP_PADDING = 4;
constexpr double TOOL_TIP_RADIUS = 6;

constexpr int SHADOW_DROP = 3;
constexpr double SHADOW_OPACITY = 0.022; ///< of each of its layers, of which there is one a point
constexpr double EDGE_OPACITY = 0.15;
constexpr double SEPARATOR_OPACITY = 0.13;
constexpr double KEYS_OPACITY = 0.66;
constexpr double DISABLED_OPACITY = 0.38;

constexpr auto DESTRUCTIVE = "zamberDestructive";

bool isDestructive(const QWidget* menu, const QRect& line) {
    const auto* const owner = qobject_cast<const QMenu*>(menu);
    const QAction* const action = owner == nullptr ? nullptr : owner->actionAt(line.center());
    return action != nullptr && action->property(DESTRUCTIVE).toBool();
}

} // namespace

void setDestructive(QAction& action) {
    action.setProperty(DESTRUCTIVE, true);
}

MenuStyle::MenuStyle()
    : QProxyStyle(QStyleFactory::create(u"fusion"_s)) {}

int MenuStyle::menuShadow() const {
    return m_shape == Shape::RoundedWithShadow ? MENU_SHADOW : 0;
}

int MenuStyle::toolTipShadow() const {
    return m_shape == Shape::RoundedWithShadow ? TOOL_TIP_SHADOW : 0;
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return menuShadow();
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MENU_INSET;
    case PM_MenuDesktopFrameWidth:
        return 0;
    case PM_ToolTipLabelFrameWidth:
        return toolTipShadow() + TOOL_TIP_PADDING;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    switch (hint) {
    case SH_Menu_Mask:
    case SH_ToolTip_Mask:
    case SH_Menu_FlashTriggeredItem:
    case SH_Menu_FadeOutOnHide:
        return 0;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_Menu_MouseTracking:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                  const QWidget* widget) const {
    const auto* const line = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || line == nullptr) {
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    if (line->menuItemType == QStyleOptionMenuItem::Separator) {
        return {LEAST_MENU_WIDTH, SEPARATOR_HEIGHT};
    }
    const int keys = line->reservedShortcutWidth > 0 ? KEYS_GAP : 0;
    return {std::max(LEAST_MENU_WIDTH, contents.width() + 2 * LINE_PADDING + keys), LINE_HEIGHT};
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
    case PE_PanelMenu:
        drawCard(*painter, *option, menuShadow(), MENU_RADIUS);
        break;
    case PE_PanelTipLabel:
        drawCard(*painter, *option, toolTipShadow(), TOOL_TIP_RADIUS);
        break;
    case PE_FrameMenu:
        break; // the card has its edge
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_MenuItem) {
        drawLine(*painter, *option, widget);
    } else if (element != CE_MenuEmptyArea) { // which is the card
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void MenuStyle::drawCard(QPainter& painter, const QStyleOption& option, int shadow, double radius) const {
    const QColor text = option.palette.color(QPalette::WindowText);
    const QColor ground = option.palette.color(QPalette::Window);
    QColor edge = text;
    edge.setAlphaF(static_cast<float>(EDGE_OPACITY));
    painter.save();
    if (m_shape == Shape::Square) {
        painter.fillRect(option.rect, ground);
        painter.setPen(composed(edge, ground));
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
        painter.restore();
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF card = QRectF(option.rect).adjusted(shadow, shadow, -shadow, -shadow);
    painter.setPen(Qt::NoPen);
    for (int step = shadow - SHADOW_DROP; step > 0; --step) {
        painter.setBrush(faded(Qt::black, SHADOW_OPACITY));
        painter.drawRoundedRect(card.adjusted(-step, -step + SHADOW_DROP, step, step + SHADOW_DROP), radius + step,
                                radius + step);
    }
    painter.setBrush(ground);
    painter.drawRoundedRect(card, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(edge, 1));
    painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    painter.restore();
}

void MenuStyle::drawLine(QPainter& painter, const QStyleOption& option, const QWidget* menu) const {
    const auto* const line = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    if (line == nullptr) {
        return;
    }
    const QPalette& palette = line->palette;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (line->menuItemType == QStyleOptionMenuItem::Separator) {
        const QRect middle(line->rect.left() + LINE_PADDING, line->rect.center().y(),
                           line->rect.width() - 2 * LINE_PADDING, 1);
        painter.fillRect(middle, faded(palette.color(QPalette::WindowText), SEPARATOR_OPACITY));
        painter.restore();
        return;
    }
    const bool isEnabled = line->state.testFlag(State_Enabled);
    const bool isChosen = isEnabled && line->state.testFlag(State_Selected);
    const bool isRed = isDestructive(menu, line->rect);
    QColor text = palette.color(isRed ? QPalette::BrightText : QPalette::WindowText);
    if (isChosen) {
        const QColor ground = isRed ? text : palette.color(QPalette::Highlight);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(line->rect, LINE_RADIUS, LINE_RADIUS);
        text = palette.color(QPalette::HighlightedText);
        if (isRed) {
            text = contrastRatio(Qt::white, ground) > contrastRatio(Qt::black, ground) ? Qt::white : Qt::black;
        }
    } else if (!isEnabled) {
        text = faded(palette.color(QPalette::Active, QPalette::WindowText), DISABLED_OPACITY);
    }
    const QRect area = line->rect.adjusted(LINE_PADDING, 0, -LINE_PADDING, 0);
    painter.setFont(line->font);
    painter.setPen(text);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic, line->text.section(u'\t', 0, 0));
    const QString keys = line->text.section(u'\t', 1);
    if (!keys.isEmpty()) {
        painter.setPen(isChosen || !isEnabled ? text : faded(palette.color(QPalette::WindowText), KEYS_OPACITY));
        painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, keys);
    }
    painter.restore();
}

} // namespace zamber::ui
