// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/Portals.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QPointer>

#include <utility>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;

namespace {

/// A service that has ended is called again after this time, which starts it; but not for ever, as it may be the call
/// that ends it.
constexpr std::chrono::milliseconds CALL_AGAIN_DELAY{3000};
constexpr int MOST_CALLS_AGAIN = 5;

/// The longest that an answer is waited for which no user has to give. The service may have to be started first.
constexpr int LONGEST_ANSWER_MS = 10'000;

} // namespace

const QString Portals::SERVICE = u"org.freedesktop.portal.Desktop"_s;
const QString Portals::PATH = u"/org/freedesktop/portal/desktop"_s;

QDBusConnection Portals::ownConnection() {
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"zamber portals"_s);
}

Portals::Portals(QString applicationId, const QDBusConnection& bus, Scheduler& scheduler)
    : m_applicationId(std::move(applicationId))
    , m_bus(bus)
    , m_watcher(SERVICE, bus, QDBusServiceWatcher::WatchForOwnerChange)
    , m_callAgain(scheduler, CALL_AGAIN_DELAY, [this] { announceReturn(); }) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*service*/, const QString& oldOwner, const QString& newOwner) {
                followOwner(oldOwner, newOwner);
            });
}

void Portals::followOwner(const QString& oldOwner, const QString& newOwner) {
    if (!oldOwner.isEmpty()) {
        m_registration = Registration::NotTried;
        m_waiting.clear();
        m_isAway = true;
        Q_EMIT ended();
        if (m_callsAgain < MOST_CALLS_AGAIN) {
            ++m_callsAgain;
            m_callAgain.start();
        }
    }
    if (!newOwner.isEmpty()) {
        announceReturn();
    }
}

void Portals::announceReturn() {
    m_callAgain.stop();
    if (std::exchange(m_isAway, false)) {
        Q_EMIT returned();
    }
}

void Portals::whenRegistered(QObject* context, std::function<void()> done) {
    if (m_registration == Registration::Done) {
        done();
        return;
    }
    m_waiting.emplace_back([guard = QPointer<QObject>(context), done = std::move(done)] {
        if (guard) {
            done();
        }
    });
    if (m_registration == Registration::NotTried) {
        registerProgram();
    }
}

void Portals::registerProgram() {
    m_registration = Registration::UnderWay;
    QDBusMessage call =
        QDBusMessage::createMethodCall(SERVICE, PATH, u"org.freedesktop.host.portal.Registry"_s, u"Register"_s);
    call << m_applicationId << QVariantMap();
    auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call, LONGEST_ANSWER_MS), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, attempt = ++m_attempt](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (attempt != m_attempt || m_registration != Registration::UnderWay) {
                    return;
                }
                // Whatever the answer is: portals that cannot be registered with know programs by other means.
                m_registration = Registration::Done;
                for (const auto& done : std::exchange(m_waiting, {})) {
                    done();
                }
            });
}

void Portals::readProperty(const QString& interface, const QString& name, QObject* context,
                           std::function<void(const QVariant&)> done) {
    whenRegistered(context, [this, interface, name, context, done = std::move(done)] {
        QDBusMessage call =
            QDBusMessage::createMethodCall(SERVICE, PATH, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
        call << interface << name;
        auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call, LONGEST_ANSWER_MS), this);
        connect(answer, &QDBusPendingCallWatcher::finished, context, [done](QDBusPendingCallWatcher* finished) {
            const QDBusPendingReply<QDBusVariant> reply = *finished;
            finished->deleteLater();
            done(reply.isValid() ? reply.value().variant() : QVariant());
        });
    });
}

} // namespace zamber::freedesktop::portal
