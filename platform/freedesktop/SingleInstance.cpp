// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SingleInstance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace zamber {

namespace {

constexpr int LONGEST_ANSWER_MS = 5000;

} // namespace

SingleInstance::SingleInstance(const QString& applicationId, const QDBusConnection& bus)
    : m_applicationId(applicationId)
    , m_path(QLatin1Char('/') + QString(applicationId).replace(QLatin1Char('.'), QLatin1Char('/')))
    , m_bus(bus) {
    if (!m_bus.isConnected()) {
        return;
    }
    new ApplicationInterface(this);
    m_bus.registerObject(m_path, this);
    const auto reply = m_bus.interface()->registerService(applicationId, QDBusConnectionInterface::DontQueueService,
                                                          QDBusConnectionInterface::DontAllowReplacement);
    m_isOnlyOne = !reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

void SingleInstance::askOtherToShow() const {
    QDBusMessage call = QDBusMessage::createMethodCall(
        m_applicationId, m_path, QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    call << QVariantMap();
    m_bus.call(call, QDBus::Block, LONGEST_ANSWER_MS);
}

} // namespace zamber
