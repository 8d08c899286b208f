// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/PortalRig.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcessEnvironment>

#include <stdexcept>

namespace zamber {

using namespace Qt::StringLiterals;

namespace {

constexpr int PATIENCE_MS = 10'000;

QByteArray nextLine(QProcess& process) {
    while (!process.canReadLine()) {
        if (!process.waitForReadyRead(PATIENCE_MS)) {
            throw std::runtime_error(process.program().toStdString() +
                                     " does not answer: " + process.readAllStandardError().toStdString());
        }
    }
    return process.readLine().trimmed();
}

QString uniqueName() {
    static int number = 0;
    return u"portal client %1"_s.arg(++number);
}

} // namespace

PortalRig::PortalRig() {
    m_daemon.start(u"dbus-daemon"_s,
                   {u"--session"_s, u"--nofork"_s, u"--print-address"_s, u"--address=unix:dir="_s + m_folder.path()});
    const QString address = QString::fromUtf8(nextLine(m_daemon));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    m_portal.setProcessEnvironment(environment);
    m_portal.start(u"/usr/bin/python3"_s, {QStringLiteral(ZAMBER_SETTINGS_PORTAL)});
    nextLine(m_portal);
    m_client = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address, uniqueName()));
}

PortalRig::~PortalRig() {
    QDBusConnection::disconnectFromBus(m_client->name());
    for (QProcess* const process : {&m_portal, &m_daemon}) {
        process->kill();
        process->waitForFinished();
    }
}

void PortalRig::set(const QString& group, const QString& key, const QString& value) {
    command({u"set"_s, group, key, value});
}

void PortalRig::change(const QString& group, const QString& key, const QString& value) {
    command({u"change"_s, group, key, value});
    deliverSignals();
}

void PortalRig::emitSignal(const QString& signature, const QString& arguments) {
    command({u"emit"_s, signature, arguments});
    deliverSignals();
}

void PortalRig::command(const QStringList& words) {
    m_portal.write(QJsonDocument(QJsonArray::fromStringList(words)).toJson(QJsonDocument::Compact) + '\n');
    nextLine(m_portal);
}

void PortalRig::deliverSignals() const {
    // The answer comes behind the signals that the bus has passed on before it.
    m_client->call(
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
    QCoreApplication::processEvents();
}

} // namespace zamber
