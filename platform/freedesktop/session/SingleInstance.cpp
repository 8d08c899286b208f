// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/SingleInstance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

constexpr int LONGEST_ANSWER_MS = 5000;

} // namespace

SingleInstance::SingleInstance(const QString& applicationId, const QDBusConnection& bus)
    : m_applicationId(applicationId)
    , m_path(u'/' + QString(applicationId).replace(u'.', u'/'))
    , m_bus(bus) {
    // The object is there before the name, so that a program that finds the name can call the object.
    new ApplicationInterface(this);
    m_bus.registerObject(m_path, this);
}

SingleInstance::Start SingleInstance::start() {
    if (takeName()) {
        return Start::OnlyOne;
    }
    if (askOtherToShow()) {
        return Start::OtherShown;
    }
    return takeName() ? Start::OnlyOne : Start::OtherHangs;
}

bool SingleInstance::takeName() {
    if (!m_bus.isConnected()) {
        return true;
    }
    const auto reply = m_bus.interface()->registerService(m_applicationId, QDBusConnectionInterface::DontQueueService,
                                                          QDBusConnectionInterface::DontAllowReplacement);
    return !reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

bool SingleInstance::askOtherToShow() const {
    QDBusMessage call =
        QDBusMessage::createMethodCall(m_applicationId, m_path, u"org.freedesktop.Application"_s, u"Activate"_s);
    call << QVariantMap();
    // The bus is not to start yet another one when the one that runs has just ended.
    call.setAutoStartService(false);
    return m_bus.call(call, QDBus::Block, LONGEST_ANSWER_MS).type() == QDBusMessage::ReplyMessage;
}

} // namespace zamber::freedesktop::session
