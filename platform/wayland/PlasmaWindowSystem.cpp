// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaWindowSystem.h"

#include "platform/wayland/FreeArea.h"
#include "platform/wayland/OwnWindows.h"
#include "platform/wayland/PlasmaShell.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace zamber::wayland {

PlasmaWindowSystem::PlasmaWindowSystem(Desktop desktop)
    : m_desktop(std::move(desktop))
    , m_shell(PlasmaShell::create(m_qt)) {}

PlasmaWindowSystem::~PlasmaWindowSystem() = default;

std::optional<QRect> PlasmaWindowSystem::freeArea(const QScreen& screen) const {
    if (const auto told = m_desktop.freeArea ? m_desktop.freeArea(screen.name()) : std::nullopt) {
        return plausibleArea(screen.geometry(), *told);
    }
    return m_desktop.freePart ? freeAreaOf(screen.geometry(), screen.virtualGeometry(), m_desktop.freePart())
                              : screen.geometry();
}

const QScreen& PlasmaWindowSystem::currentScreen() const {
    // KWin 6 gives the keyboard back to a window on the screen of the one that has closed, if there is any.
    const auto active = m_desktop.activeWindow ? m_desktop.activeWindow() : std::nullopt;
    const QScreen* const screen = active ? QGuiApplication::screenAt(active->center()) : nullptr;
    return screen != nullptr ? *screen : *QGuiApplication::primaryScreen();
}

void PlasmaWindowSystem::place(WId id, const QRect& rectangle) {
    QWindow* const window = ownwindows::find(id);
    if (!m_shell || window == nullptr) {
        return;
    }
    // Nobody is to resize it, nor is KWin to maximise it.
    window->setMinimumSize(rectangle.size());
    window->setMaximumSize(rectangle.size());
    if (!window->isVisible()) {
        ownwindows::moveToScreen(*window, rectangle);
    }
    if (m_places.insert_or_assign(window, rectangle.topLeft()).second) {
        window->installEventFilter(this);
        connect(window, &QObject::destroyed, this, [this](const QObject* gone) {
            m_places.erase(gone);
            m_shell->forget(gone);
        });
    }
    if (window->isExposed()) {
        m_shell->place(*window, rectangle.topLeft());
    }
}

void PlasmaWindowSystem::bringToFront(WId window) {
    ownwindows::bringToFront(window);
}

void PlasmaWindowSystem::useActivationToken(const QString& token) {
    ownwindows::useActivationToken(token);
}

bool PlasmaWindowSystem::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        m_shell->forget(watched);
    } else if (event->type() == QEvent::Expose) {
        // The window will be painted in answer to this event, so that its first frame is in the right place.
        auto& window = *static_cast<QWindow*>(watched);
        if (const auto found = m_places.find(watched); found != m_places.end() && window.isExposed()) {
            m_shell->place(window, found->second);
        }
    }
    return false;
}

} // namespace zamber::wayland
