// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/OwnWindows.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace zamber::wayland::ownwindows {

QWindow* find(WId id) {
    const QWidget* const widget = QWidget::find(id);
    return widget != nullptr ? widget->windowHandle() : nullptr;
}

void moveToScreen(QWindow& window, QPoint place) {
    QScreen* const screen = QGuiApplication::screenAt(place);
    if (screen == nullptr) {
        return;
    }
    window.setScreen(screen);
    if (window.devicePixelRatio() != screen->devicePixelRatio()) {
        window.destroy();
        window.create();
    }
}

void useActivationToken(const QString& token) {
    if (!token.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8()); // where Qt looks for it when a window asks for the focus
    }
}

void bringToFront(WId id) {
    QWidget* const widget = QWidget::find(id);
    if (widget == nullptr || widget->windowHandle() == nullptr || widget->isActiveWindow()) {
        return;
    }
    if (widget->windowHandle()->isExposed() && !widget->isModal()) { // a dialog would end by being hidden
        widget->hide();
        widget->show();
    }
    widget->activateWindow();
}

} // namespace zamber::wayland::ownwindows
