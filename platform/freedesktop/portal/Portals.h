// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SingleShotTimer.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariant>

#include <chrono>
#include <functional>
#include <vector>

class QDBusMessage;

namespace zamber::freedesktop::portal {

/// The desktop's portals, the service `org.freedesktop.portal.Desktop`. Nothing here waits for it.
///
/// Portals want to know which program asks. One that does not run in a sandbox says so by registering with the id of
/// its desktop entry, which has to be the first call on its connection; so portals are given one that is used for
/// nothing else. Older ones, which cannot be registered with, are asked all the same.
class Portals final : public QObject {
    Q_OBJECT

public:
    static const QString SERVICE;
    static const QString PATH;

    /// A connection to the session's message bus that nobody else uses.
    static QDBusConnection ownConnection();

    Portals(QString applicationId, const QDBusConnection& bus, Scheduler& scheduler);

    const QDBusConnection& bus() const { return m_bus; }

    /// Calls back when the program has been registered, or could not be; never after the context has gone.
    void whenRegistered(QObject* context, std::function<void()> done);

    /// Asks an interface for one of its properties. Calls back with an invalid value where it cannot be had; never
    /// after the context has gone.
    void readProperty(const QString& interface, const QString& name, QObject* context,
                      std::function<void(const QVariant& value)> done);

Q_SIGNALS:
    /// The service has ended, and with it every session and request.
    void ended();

    /// After its end, the service is there again, or may be called again, which starts it.
    void returned();

private:
    enum class Registration { NotTried, UnderWay, Done };

    void registerProgram();
    void followOwner(const QString& oldOwner, const QString& newOwner);
    void announceReturn();

    QString m_applicationId;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    Registration m_registration = Registration::NotTried;
    int m_attempt = 0; // of registering: an answer to an older one, from a service that has ended, is ignored
    std::vector<std::function<void()>> m_waiting;
    bool m_isAway = false;
    int m_callsAgain = 0;
    SingleShotTimer m_callAgain;
};

} // namespace zamber::freedesktop::portal
