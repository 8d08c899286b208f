// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/PortalRig.h"

#include <QDBusMetaType>

#include <stdexcept>

namespace zamber {

using namespace Qt::StringLiterals;

namespace {

const auto SERVICE = u"org.freedesktop.portal.Desktop"_s;
const auto PATH = u"/org/freedesktop/portal/desktop"_s;
constexpr int PATIENCE_MS = 10'000;

QString startBus(QProcess& daemon, const QString& folder) {
    daemon.start(u"dbus-daemon"_s,
                 {u"--session"_s, u"--nofork"_s, u"--print-address"_s, u"--address=unix:dir="_s + folder});
    if (!daemon.waitForStarted() || !daemon.waitForReadyRead(PATIENCE_MS)) {
        throw std::runtime_error("dbus-daemon does not start");
    }
    return QString::fromUtf8(daemon.readLine()).trimmed();
}

QString uniqueName(const char* what) {
    static int number = 0;
    return QString::fromLatin1(what) + QString::number(++number);
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const PortalColor& color) {
    argument.beginStructure();
    argument << color.red << color.green << color.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalColor& color) {
    argument.beginStructure();
    argument >> color.red >> color.green >> color.blue;
    argument.endStructure();
    return argument;
}

PortalRig::PortalRig()
    : m_service(u"none"_s)
    , m_client(u"none"_s) {
    qRegisterMetaType<QDBusVariant>(); // the signal is taken on with the object, before Qt would do it by itself
    qDBusRegisterMetaType<PortalColor>();
    const QString address = startBus(m_daemon, m_folder.path());
    m_service = QDBusConnection::connectToBus(address, uniqueName("portal"));
    m_client = QDBusConnection::connectToBus(address, uniqueName("client"));
    m_service.registerObject(PATH, this,
                             QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableSignals);
    m_service.registerService(SERVICE);
    m_client.connect(SERVICE, PATH, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s, this, SLOT(heard()));
}

PortalRig::~PortalRig() {
    QDBusConnection::disconnectFromBus(m_client.name());
    QDBusConnection::disconnectFromBus(m_service.name());
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PortalRig::set(const QString& group, const QString& key, const QVariant& value) {
    m_values.insert(group + u'/' + key, value);
}

void PortalRig::change(const QString& group, const QString& key, const QVariant& value) {
    set(group, key, value);
    emit SettingChanged(group, key, QDBusVariant(value));
    ++m_said;
    if (!waitUntil([this] { return m_heard == m_said; })) {
        throw std::runtime_error("nobody has heard of the change");
    }
    QCoreApplication::processEvents();
}

void PortalRig::changeAccent(double red, double green, double blue) {
    change(u"org.freedesktop.appearance"_s, u"accent-color"_s, QVariant::fromValue(PortalColor{red, green, blue}));
}

bool PortalRig::waitUntil(const std::function<bool()>& condition) {
    QElapsedTimer time;
    time.start();
    while (!condition() && time.elapsed() < PATIENCE_MS) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    return condition();
}

QDBusVariant PortalRig::Read(const QString& group, const QString& key, const QDBusMessage& message) {
    const auto found = m_values.constFind(group + u'/' + key);
    if (found == m_values.constEnd()) {
        m_service.send(message.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"no such setting"_s));
        message.setDelayedReply(true);
        return {};
    }
    return QDBusVariant(QVariant::fromValue(QDBusVariant(*found)));
}

} // namespace zamber
