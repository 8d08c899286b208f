// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QVariant>

#include <functional>

namespace zamber {

/// What the settings portal sends for a colour.
struct PortalColor {
    double red = 0;
    double green = 0;
    double blue = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalColor& color);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalColor& color);

/// A settings portal on a message bus of its own.
class PortalRig final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    PortalRig();
    ~PortalRig() override;

    /// The connection of the program that asks.
    QDBusConnection client() const { return m_client; }

    /// Has the value from now on, without a word to anybody.
    void set(const QString& group, const QString& key, const QVariant& value);

    /// The user changes the setting. Returns when those who listen have heard of it.
    void change(const QString& group, const QString& key, const QVariant& value);
    void changeAccent(double red, double green, double blue);

    static bool waitUntil(const std::function<bool()>& condition);

public slots:
    Q_SCRIPTABLE QDBusVariant Read(const QString& group, const QString& key, const QDBusMessage& message);

signals:
    Q_SCRIPTABLE void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private slots:
    void heard() { ++m_heard; }

private:
    QTemporaryDir m_folder; // of the bus
    QProcess m_daemon;
    QDBusConnection m_service;
    QDBusConnection m_client;
    QHash<QString, QVariant> m_values;
    int m_said = 0;
    int m_heard = 0;
};

} // namespace zamber

Q_DECLARE_METATYPE(zamber::PortalColor)
