// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtApplication.h"

#include <QApplication>
#include <QSessionManager>
#include <QWidget>

#include <ranges>
#include <utility>

namespace zamber::freedesktop {

namespace {

/// The window that a person would say is in front: a question first, then the window that was shown last.
QWidget* frontWindow() {
    if (QWidget* const question = QApplication::activeModalWidget()) {
        return question;
    }
    QWidget* front = nullptr;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        const bool isOrdinary = window->windowType() == Qt::Window || window->windowType() == Qt::Dialog ||
                                window->windowType() == Qt::Tool;
        const bool isManaged = !window->windowFlags().testFlag(Qt::BypassWindowManagerHint); // a tray icon is not
        if (window->isVisible() && isOrdinary && isManaged && (front == nullptr || window->windowType() == Qt::Tool)) {
            front = window;
        }
    }
    return front;
}

} // namespace

QtApplication::QtApplication(std::function<void(WId)> activateWindow)
    : m_activateWindow(std::move(activateWindow)) {
    // Whether the program starts with the session is the login item's business alone.
    const auto declineRestart = [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); };
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, qApp, declineRestart, Qt::DirectConnection);
    QObject::connect(qApp, &QGuiApplication::saveStateRequest, qApp, declineRestart, Qt::DirectConnection);
}

void QtApplication::setAccessoryPolicy() {
    // The windows keep out of the taskbar themselves; beyond that, the program must not end with the last of them.
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

void QtApplication::activate() {
    if (const QWidget* const window = frontWindow()) {
        m_activateWindow(window->winId());
    }
}

void QtApplication::terminate() {
    QCoreApplication::quit();
}

void QtApplication::setResponder(const QString& action, std::function<void()> responder) {
    m_responders[action] = std::move(responder);
}

void QtApplication::addObserver(const QString& notification, std::function<void()> observer) {
    m_observers.emplace(notification, std::move(observer));
}

bool QtApplication::sendAction(const QString& name) {
    const auto found = m_responders.find(name);
    if (found == m_responders.end()) {
        return false;
    }
    found->second();
    return true;
}

void QtApplication::postNotification(const QString& name) {
    const auto [first, last] = m_observers.equal_range(name);
    for (const auto& [notification, observer] : std::ranges::subrange(first, last)) {
        observer();
    }
}

void QtApplication::setShowRequestedHandler(std::function<void()> handler) {
    m_showRequested = std::move(handler);
}

void QtApplication::requestShow() const {
    if (m_showRequested) {
        m_showRequested();
    }
}

} // namespace zamber::freedesktop
