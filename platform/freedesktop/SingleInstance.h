// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace zamber {

/// One running program a session, by its name on the session bus. The one that runs answers
/// `org.freedesktop.Application` (freedesktop.org's D-Bus activation), which is how another start asks for it.
///
/// Without a session bus every start is the only one.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    /// Takes the application id on the bus. The object is there before the name is, so that nobody who finds the name
    /// finds nothing behind it.
    explicit SingleInstance(const QString& applicationId, const QDBusConnection& bus = QDBusConnection::sessionBus());

    bool isOnlyOne() const { return m_isOnlyOne; }

    /// Asks the one that runs to show itself, and waits until it has heard.
    void askOtherToShow() const;

signals:
    /// Another start, or the desktop, asks for this program.
    void showRequested();

private:
    QString m_applicationId;
    QString m_path;
    QDBusConnection m_bus;
    bool m_isOnlyOne = true;
};

/// The part of the bus interface that a program without documents needs.
class ApplicationInterface final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationInterface(SingleInstance* instance)
        : QDBusAbstractAdaptor(instance)
        , m_instance(instance) {}

public slots:
    void Activate(const QVariantMap& /*platformData*/) { emit m_instance->showRequested(); }
    void Open(const QStringList& /*addresses*/, const QVariantMap& /*platformData*/) {
        emit m_instance->showRequested();
    }
    void ActivateAction(const QString& /*action*/, const QVariantList& /*parameter*/,
                        const QVariantMap& /*platformData*/) {}

private:
    SingleInstance* m_instance;
};

} // namespace zamber
