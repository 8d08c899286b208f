// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/NotifierHosts.h"

#include "platform/freedesktop/session/BusSignals.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace zamber::freedesktop::tray {

using namespace Qt::StringLiterals;

namespace {

const QString SERVICE = u"org.kde.StatusNotifierWatcher"_s;
const QString PATH = u"/StatusNotifierWatcher"_s;
const QString INTERFACE = u"org.kde.StatusNotifierWatcher"_s;

} // namespace

NotifierHosts::NotifierHosts(const QDBusConnection& bus)
    : m_bus(bus)
    , m_watcher(SERVICE, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString& before, const QString& after) {
                if (!before.isEmpty()) {
                    settle(false);
                }
                if (!after.isEmpty()) {
                    ask();
                }
            });
    for (const QString& change : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
        session::subscribe(m_bus, {.service = SERVICE, .path = PATH, .interface = INTERFACE, .name = change}, this,
                           SLOT(ask()));
    }
}

void NotifierHosts::start() {
    if (m_bus.isConnected()) {
        ask();
    } else {
        settle(false);
    }
}

void NotifierHosts::registerItem(const QString& service) const {
    QDBusMessage call = QDBusMessage::createMethodCall(SERVICE, PATH, INTERFACE, u"RegisterStatusNotifierItem"_s);
    call << service;
    m_bus.send(call);
}

void NotifierHosts::ask() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(SERVICE, PATH, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << INTERFACE << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        answer->deleteLater();
        settle(reply.isValid() && reply.value().variant().toBool());
    });
}

void NotifierHosts::settle(bool isThere) {
    if (m_isThere == isThere) {
        return;
    }
    m_isThere = isThere;
    if (isThere) {
        emit appeared();
    } else {
        emit disappeared();
    }
}

} // namespace zamber::freedesktop::tray
