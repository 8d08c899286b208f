// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/WindowSystem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace zamber::freedesktop::popover {

std::optional<QPoint> WindowSystem::pointer() const {
    return QCursor::pos();
}

const QScreen& WindowSystem::currentScreen() const {
    const std::optional<QPoint> place = pointer();
    const QScreen* const screen = place ? QGuiApplication::screenAt(*place) : nullptr;
    return screen != nullptr ? *screen : *QGuiApplication::primaryScreen();
}

} // namespace zamber::freedesktop::popover
