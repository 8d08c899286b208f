// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/SingleInstance.h"

#include "platform/freedesktop/session/Programs.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

constexpr int LONGEST_ANSWER_MS = 5000;

const QString ACTIVATION_TOKEN = u"activation-token"_s;

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
    QVariantMap platformData;
    const QString token = startEnvironment().value(u"XDG_ACTIVATION_TOKEN"_s);
    if (!token.isEmpty()) {
        platformData[ACTIVATION_TOKEN] = token;
    }
    call << platformData;
    // The bus is not to start yet another one when the one that runs has just ended.
    call.setAutoStartService(false);
    return m_bus.call(call, QDBus::Block, LONGEST_ANSWER_MS).type() == QDBusMessage::ReplyMessage;
}

void ApplicationInterface::requestShow(const QVariantMap& platformData) {
    emit m_instance->showRequested(platformData.value(ACTIVATION_TOKEN).toString());
}

} // namespace zamber::freedesktop::session
