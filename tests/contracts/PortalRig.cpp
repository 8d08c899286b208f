// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/PortalRig.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcessEnvironment>

#include <signal.h>
#include <sys/types.h>

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

PortalRig::PortalRig()
    : PortalRig(QStringLiteral(ZAMBER_SETTINGS_PORTAL)) {}

PortalRig::PortalRig(const QString& script)
    : m_script(script) {
    m_daemon.start(u"dbus-daemon"_s,
                   {u"--session"_s, u"--nofork"_s, u"--print-address"_s, u"--address=unix:dir="_s + m_folder.path()});
    m_address = QString::fromUtf8(nextLine(m_daemon));
    start();
    m_client = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(m_address, uniqueName()));
}

PortalRig::~PortalRig() {
    QDBusConnection::disconnectFromBus(m_client->name());
    for (QProcess* const process : {&m_portal, &m_daemon}) {
        process->kill();
        process->waitForFinished();
    }
}

void PortalRig::start() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_address);
    m_portal.setProcessEnvironment(environment);
    m_portal.start(u"/usr/bin/python3"_s, {m_script});
    nextLine(m_portal);
}

void PortalRig::kill() {
    m_portal.kill();
    m_portal.waitForFinished();
}

void PortalRig::suspend() {
    ::kill(static_cast<pid_t>(m_portal.processId()), SIGSTOP);
}

void PortalRig::resume() {
    ::kill(static_cast<pid_t>(m_portal.processId()), SIGCONT);
}

QByteArray PortalRig::tell(const QJsonArray& words) {
    m_portal.write(QJsonDocument(words).toJson(QJsonDocument::Compact) + '\n');
    const QByteArray answer = nextLine(m_portal);
    deliverSignals();
    return answer;
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
