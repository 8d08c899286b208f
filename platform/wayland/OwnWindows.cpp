// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/OwnWindows.h"

#include "platform/wayland/AppearanceWatch.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace zamber::wayland::ownwindows {

QWindow* find(WId id) {
    const QWidget* const widget = QWidget::find(id);
    return widget != nullptr ? widget->windowHandle() : nullptr;
}

void moveToScreen(QWindow& window, const QRect& rectangle) {
    QScreen* const screen = QGuiApplication::screenAt(rectangle.center());
    if (screen == nullptr || (screen == window.screen() && screen->devicePixelRatio() == window.devicePixelRatio())) {
        return;
    }
    window.destroy();
    window.setScreen(screen);
    window.setGeometry(rectangle);
    window.create();
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
    // A question would end by being hidden, and so would the popover.
    const bool mayBeHidden = widget->windowType() == Qt::Window && !widget->isModal();
    if (AppearanceWatch::of(*widget->windowHandle()).hasAppeared() && mayBeHidden) {
        widget->hide();
        widget->show();
    }
    widget->activateWindow();
}

} // namespace zamber::wayland::ownwindows
