// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/PopupStyler.h"

#include "ui/Typography.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QVariant>

#include <cstdlib>

namespace zamber::ui {

namespace {

/// Marks the menus and tool tips that have their colours from here.
constexpr auto PROPERTY = "zamberColors";

constexpr int MENU_POINTS = 13;
constexpr int TOOL_TIP_POINTS = 11;
constexpr int TOOL_TIP_MARGIN = 4; ///< at the sides, besides its padding
/// Qt opens a menu on the other side of the pointer where there is no room, this far from it at most.
constexpr int NEAR_POINTER = 3;

bool isToolTip(const QObject* object) {
    return object->inherits("QTipLabel");
}

/// The widget's or the nearest one above it that has colours of its own, in whatever window.
const QWidget* coloredOwner(const QWidget& popup) {
    const QWidget* owner = popup.parentWidget();
    while (owner != nullptr && !owner->testAttribute(Qt::WA_SetPalette)) {
        owner = owner->parentWidget();
    }
    return owner;
}

} // namespace

PopupStyler::PopupStyler(std::function<bool()> isComposited)
    : m_isComposited(std::move(isComposited)) {
    QCoreApplication::instance()->installEventFilter(this);
}

PopupStyler::~PopupStyler() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (window->style() == &m_style) {
            window->setStyle(nullptr);
        }
    }
}

void PopupStyler::setColors(const QPalette& palette) {
    m_palette = palette;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (window->isVisible() && (qobject_cast<QMenu*>(window) != nullptr || isToolTip(window))) {
            color(*window);
        }
    }
}

bool PopupStyler::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PolishRequest && qobject_cast<QMenu*>(watched) != nullptr) {
        // Qt posts this request for every new widget. A menu is polished once more as it opens; earlier the request
        // would have the tray's menu look for its font, which takes longer than all else before the icon appears.
        return true;
    }
    const bool isOpening = event->type() == QEvent::Polish || event->type() == QEvent::Show;
    if (!isOpening && event->type() != QEvent::MouseButtonPress) {
        return false;
    }
    auto* const menu = qobject_cast<QMenu*>(watched);
    if (!isOpening) {
        return menu != nullptr && closeOnShadow(*menu, *event);
    }
    if (menu != nullptr || isToolTip(watched)) {
        auto& popup = *static_cast<QWidget*>(watched);
        if (event->type() == QEvent::Polish) {
            prepare(popup);
        } else {
            placeCard(popup);
        }
        color(popup);
    }
    return false;
}

void PopupStyler::prepare(QWidget& popup) {
    updateShape();
    popup.setAttribute(Qt::WA_TranslucentBackground);
    popup.setWindowFlag(Qt::NoDropShadowWindowHint);
    popup.setStyle(&m_style);
    if (isToolTip(&popup)) {
        popup.setFont(textFont(TOOL_TIP_POINTS));
        popup.setContentsMargins(TOOL_TIP_MARGIN, 0, TOOL_TIP_MARGIN, 0);
        return;
    }
    popup.setFont(textFont(MENU_POINTS));
    auto* const menu = qobject_cast<QMenu*>(&popup);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        updateShape();
        QEvent change(QEvent::StyleChange); // or the menu keeps the measures of its last opening
        QCoreApplication::sendEvent(menu, &change);
    });
}

void PopupStyler::updateShape() {
    m_style.setShape(m_isComposited() ? MenuStyle::Shape::RoundedWithShadow : MenuStyle::Shape::Square);
}

void PopupStyler::color(QWidget& popup) const {
    const QWidget* const owner = coloredOwner(popup);
    if (owner == nullptr && !m_palette) {
        return;
    }
    if (!popup.testAttribute(Qt::WA_SetPalette) || popup.property(PROPERTY).isValid() || isToolTip(&popup)) {
        const QPalette palette = owner != nullptr ? owner->palette() : *m_palette;
        popup.setProperty(PROPERTY, true);
        popup.setPalette(palette);
    }
}

void PopupStyler::placeCard(QWidget& popup) const {
    // Qt has placed the window, whose shadow is not to count: the card belongs where the window was meant to be.
    const int shadow = isToolTip(&popup) ? m_style.toolTipShadow() : m_style.menuShadow();
    const QPoint pointer = QCursor::pos();
    const QRect screen = popup.screen()->availableGeometry();
    const auto shift = [shadow](int end, int pointerPlace, int screenEnd) {
        if (std::abs(pointerPlace - end) <= NEAR_POINTER) {
            return shadow;
        }
        return end >= screenEnd ? 0 : -shadow;
    };
    popup.move(popup.pos() + QPoint(shift(popup.x() + popup.width(), pointer.x(), screen.right() + 1),
                                    shift(popup.y() + popup.height(), pointer.y(), screen.bottom() + 1)));
}

bool PopupStyler::closeOnShadow(QMenu& menu, const QEvent& press) const {
    const int shadow = m_style.menuShadow();
    const QRect card = menu.rect().adjusted(shadow, shadow, -shadow, -shadow);
    const QPoint place = static_cast<const QMouseEvent&>(press).position().toPoint();
    if (card.contains(place) || !menu.rect().contains(place)) {
        return false; // which Qt knows what to do about
    }
    menu.close();
    return true;
}

} // namespace zamber::ui
