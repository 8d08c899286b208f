// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtScheduler.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace zamber::freedesktop {

QtScheduler::QtScheduler() = default;
QtScheduler::~QtScheduler() = default;

Scheduler::Token QtScheduler::after(std::chrono::milliseconds delay, Action action) {
    return start(delay, Repeat::Once, std::move(action));
}

Scheduler::Token QtScheduler::every(std::chrono::milliseconds interval, Action action) {
    return start(interval, Repeat::Forever, std::move(action));
}

Scheduler::Token QtScheduler::start(std::chrono::milliseconds interval, Repeat repeat, Action action) {
    const Token token{++m_lastId};
    auto* timer = new QTimer(&m_context);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(std::max(interval, std::chrono::milliseconds::zero()));
    timer->setSingleShot(repeat == Repeat::Once);
    // The action may end its own timer, and with it this function object: both stay until the timer's event is over.
    QObject::connect(timer, &QTimer::timeout, &m_context, [this, token, repeat, run = std::move(action)] {
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
    QMetaObject::invokeMethod(&m_context, std::move(action), Qt::QueuedConnection);
}

double QtScheduler::now() const {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

} // namespace zamber::freedesktop
