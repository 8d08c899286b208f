// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtScheduler.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace zamber::freedesktop {

QtScheduler::QtScheduler()
    : m_context(std::make_unique<QObject>()) {}

QtScheduler::~QtScheduler() {
    stop();
}

void QtScheduler::stop() {
    // An action may own an object whose destructor starts or stops a timer here.
    std::unique_ptr<QObject> context;
    {
        const std::scoped_lock lock(m_contextMutex);
        context = std::move(m_context);
    }
    m_timers.clear();
}

Scheduler::Token QtScheduler::after(std::chrono::milliseconds delay, Action action) {
    return start(delay, Repeat::Once, std::move(action));
}

Scheduler::Token QtScheduler::every(std::chrono::milliseconds interval, Action action) {
    return start(interval, Repeat::Forever, std::move(action));
}

Scheduler::Token QtScheduler::start(std::chrono::milliseconds interval, Repeat repeat, Action action) {
    const Token token{++m_lastId};
    if (!m_context) {
        return token;
    }
    auto* timer = new QTimer(m_context.get());
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(std::max(interval, std::chrono::milliseconds::zero()));
    timer->setSingleShot(repeat == Repeat::Once);
    // The action may end its own timer, and with it this function object: both stay until the timer's event is over.
    QObject::connect(timer, &QTimer::timeout, m_context.get(), [this, token, repeat, run = std::move(action)] {
        if (repeat == Repeat::Once) {
            invalidate(token);
        }
        run();
    });
    m_timers.emplace(token.id, timer);
    timer->start();
    return token;
}

void QtScheduler::invalidate(Token token) {
    const auto found = m_timers.find(token.id);
    if (found == m_timers.end()) {
        return;
    }
    found->second->stop();
    found->second->deleteLater();
    m_timers.erase(found);
}

void QtScheduler::soon(Action action) {
    const std::scoped_lock lock(m_contextMutex);
    if (m_context) {
        QMetaObject::invokeMethod(m_context.get(), std::move(action), Qt::QueuedConnection);
    }
}

double QtScheduler::now() const {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

} // namespace zamber::freedesktop
