// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/AppearanceWatch.h"

#include <QEvent>
#include <QWindow>

namespace zamber::wayland {

AppearanceWatch& AppearanceWatch::of(QWindow& window) {
    auto* const watch = window.findChild<AppearanceWatch*>({}, Qt::FindDirectChildrenOnly);
    return watch != nullptr ? *watch : *new AppearanceWatch(window);
}

AppearanceWatch::AppearanceWatch(QWindow& window)
    : QObject(&window)
    , m_window(window)
    , m_hasAppeared(window.isExposed()) {
    window.installEventFilter(this);
}

bool AppearanceWatch::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::Expose) {
        m_hasAppeared = m_hasAppeared || m_window.isExposed();
    } else if (event->type() == QEvent::Hide) {
        m_hasAppeared = false;
    }
    return false;
}

} // namespace zamber::wayland
