// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QJsonArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace zamber {

/// A stand-in portal on a message bus of its own. It runs in another process, as portals do: what the process under
/// test has not registered with Qt's D-Bus itself is not registered by the rig either.
class PortalRig final {
public:
    PortalRig(); ///< the settings portal

    /// The stand-in whose script lies there.
    explicit PortalRig(const QString& script);
    ~PortalRig();
    PortalRig(const PortalRig&) = delete;
    PortalRig& operator=(const PortalRig&) = delete;

    /// The connection of the program that asks.
    QDBusConnection client() const { return *m_client; }

    /// The portal has the value from now on, without sending a signal. Values are written as GVariant's text form:
    /// "uint32 1", "(0.5, 0.25, 0.0)".
    void set(const QString& group, const QString& key, const QString& value);

    /// The user changes the setting. Returns when the connection has received the portal's signal and delivered it.
    void change(const QString& group, const QString& key, const QString& value);

    /// The portal sends its signal with arguments of another kind.
    void emitSignal(const QString& signature, const QString& arguments);

    /// Tells the stand-in what is written at the top of its script, and returns its answer. The signals that it has
    /// sent until then have been delivered.
    QByteArray tell(const QJsonArray& words);

    /// The portal dies, as if it had crashed, or is started again, knowing nothing.
    void kill();
    void start();

    /// The portal hangs, until it is resumed.
    void suspend();
    void resume();

private:
    void command(const QStringList& words);
    void deliverSignals() const;

    QString m_script;
    QString m_address;
    QTemporaryDir m_folder; // of the bus
    QProcess m_daemon;
    QProcess m_portal;
    std::unique_ptr<QDBusConnection> m_client;
};

} // namespace zamber
