// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/MenuColors.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QVariant>

namespace zamber::ui {

namespace {

/// Set on the menus whose colours come from here.
constexpr auto PROPERTY = "zamberMenuColors";

} // namespace

MenuColors::MenuColors() {
    QCoreApplication::instance()->installEventFilter(this);
}

void MenuColors::set(const QPalette& palette) {
    m_palette = palette;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        auto* const menu = qobject_cast<QMenu*>(window);
        if (menu != nullptr && menu->isVisible()) {
            color(*menu);
        }
    }
}

bool MenuColors::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && m_palette) {
        if (auto* const menu = qobject_cast<QMenu*>(watched)) {
            color(*menu);
        }
    }
    return false;
}

void MenuColors::color(QMenu& menu) const {
    if (!menu.testAttribute(Qt::WA_SetPalette) || menu.property(PROPERTY).isValid()) {
        menu.setProperty(PROPERTY, true);
        menu.setPalette(*m_palette);
    }
}

} // namespace zamber::ui
