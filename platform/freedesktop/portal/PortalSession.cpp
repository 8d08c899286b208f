// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalSession.h"

#include "platform/freedesktop/session/BusSignals.h"

#include <QDBusMessage>

#include <utility>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;

namespace {

const auto SESSION = u"org.freedesktop.portal.Session"_s;

} // namespace

PortalSession::PortalSession(Portals& portals, const QString& interface, std::function<void(bool)> done)
    : m_portals(portals) {
    const QString token = PortalRequest::newToken();
    m_path = PortalRequest::pathOf(portals, u"session"_s, token);
    session::subscribe(portals.bus(),
                       {.service = Portals::SERVICE, .path = m_path, .interface = SESSION, .name = u"Closed"_s}, this,
                       SLOT(handleClosed()));
    m_request = std::make_unique<PortalRequest>(
        portals,
        PortalRequest::Call{.interface = interface,
                            .method = u"CreateSession"_s,
                            .arguments = {},
                            .options = {{u"session_handle_token"_s, token}}},
        [this, done = std::move(done)](PortalRequest::Outcome outcome, const QVariantMap& /*results*/) {
            m_isOver = outcome != PortalRequest::Outcome::Granted;
            done(!m_isOver);
        });
}

PortalSession::~PortalSession() {
    QDBusConnection bus = m_portals.bus();
    bus.disconnect(Portals::SERVICE, m_path, SESSION, u"Closed"_s, this, SLOT(handleClosed()));
    if (!m_isOver) {
        QDBusMessage close = QDBusMessage::createMethodCall(Portals::SERVICE, m_path, SESSION, u"Close"_s);
        close.setAutoStartService(false);
        bus.send(close);
    }
}

void PortalSession::handleClosed() {
    if (!std::exchange(m_isOver, true)) {
        Q_EMIT closed();
    }
}

} // namespace zamber::freedesktop::portal
