// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/OwnFocus.h"

#include "platform/Scheduler.h"
#include "platform/wayland/Toplevels.h"

#include <QPointer>

#include <utility>

namespace zamber::wayland {

OwnFocus::OwnFocus(Toplevels& toplevels, QString applicationId, Scheduler& scheduler)
    : m_toplevels(toplevels)
    , m_applicationId(std::move(applicationId))
    , m_scheduler(scheduler) {
    connect(&m_toplevels, &Toplevels::activeChanged, this, &OwnFocus::follow);
}

void OwnFocus::follow() {
    const auto active = m_toplevels.active();
    if (active && active->applicationId == m_applicationId) {
        m_focused = active->handle;
    } else if (m_focused) {
        // In the next turn of the loop it is known whether the window has been closed, which is no loss.
        m_scheduler.soon([later = QPointer(this)] {
            if (later) {
                later->report();
            }
        });
    }
}

void OwnFocus::report() {
    if (!m_focused) {
        return;
    }
    // On a busy machine it may be told later that the window has gone, and the next one be shown by then.
    m_toplevels.catchUp();
    const auto active = m_toplevels.active();
    const bool isOursAgain = active && active->applicationId == m_applicationId;
    if (m_focused && !isOursAgain && m_toplevels.isOpen(*std::exchange(m_focused, std::nullopt))) {
        Q_EMIT lost();
    }
}

} // namespace zamber::wayland
