// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalRequest.h"

#include "platform/freedesktop/session/BusSignals.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QRandomGenerator>

#include <utility>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;

namespace {

const auto REQUEST = u"org.freedesktop.portal.Request"_s;

} // namespace

QString PortalRequest::newToken() {
    return u"zamber%1"_s.arg(QRandomGenerator::global()->generate64());
}

QString PortalRequest::pathOf(const Portals& portals, const QString& kind, const QString& token) {
    const QString sender = portals.bus().baseService().mid(1).replace(u'.', u'_');
    return Portals::PATH + u'/' + kind + u'/' + sender + u'/' + token;
}

PortalRequest::PortalRequest(Portals& portals, Call call, Done done)
    : m_portals(portals)
    , m_token(newToken())
    , m_path(pathOf(portals, u"request"_s, m_token))
    , m_done(std::move(done)) {
    // Before the call: an answer that needs no dialog comes at once.
    session::subscribe(portals.bus(),
                       {.service = Portals::SERVICE, .path = m_path, .interface = REQUEST, .name = u"Response"_s}, this,
                       SLOT(handleResponse(QDBusMessage)));
    portals.whenRegistered(this, [this, call = std::move(call)] { send(call); });
}

PortalRequest::~PortalRequest() {
    QDBusConnection bus = m_portals.bus();
    bus.disconnect(Portals::SERVICE, m_path, REQUEST, u"Response"_s, this, SLOT(handleResponse(QDBusMessage)));
    if (m_isSent && m_done) {
        QDBusMessage close = QDBusMessage::createMethodCall(Portals::SERVICE, m_path, REQUEST, u"Close"_s);
        close.setAutoStartService(false);
        bus.send(close);
    }
}

void PortalRequest::send(const Call& call) {
    QVariantMap options = call.options;
    options.insert(u"handle_token"_s, m_token);
    QDBusMessage message = QDBusMessage::createMethodCall(Portals::SERVICE, Portals::PATH, call.interface, call.method);
    message.setArguments(QVariantList(call.arguments) << options);
    m_isSent = true;
    // Not a child of the request, which may be destroyed by what its failure leads to.
    auto* const reply = new QDBusPendingCallWatcher(m_portals.bus().asyncCall(message), &m_portals);
    connect(reply, &QDBusPendingCallWatcher::finished, reply, &QObject::deleteLater);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        if (finished->isError()) {
            finish(Outcome::Failed, {});
        }
    });
}

void PortalRequest::handleResponse(const QDBusMessage& message) {
    if (message.signature() != "ua{sv}"_L1) {
        finish(Outcome::Failed, {});
        return;
    }
    const auto results = qdbus_cast<QVariantMap>(message.arguments().at(1));
    switch (message.arguments().at(0).toUInt()) {
    case 0:
        finish(Outcome::Granted, results);
        break;
    case 1:
        finish(Outcome::Refused, results);
        break;
    default:
        finish(Outcome::Failed, results);
        break;
    }
}

void PortalRequest::finish(Outcome outcome, const QVariantMap& results) {
    if (const Done done = std::exchange(m_done, nullptr)) {
        done(outcome, results);
    }
}

} // namespace zamber::freedesktop::portal
