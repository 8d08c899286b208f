// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <optional>

namespace zamber::freedesktop::tray {

/// Follows whether status notifier items are shown: whether a watcher is on the session bus, and a host with it
/// (freedesktop.org, StatusNotifierItem).
class NotifierHosts final : public QObject {
    Q_OBJECT

public:
    explicit NotifierHosts(const QDBusConnection& bus);

    /// Emits the signals below for the present state and for each change from now on.
    void start();

    /// Asks the watcher to take the item in that this process has under that bus name.
    void registerItem(const QString& service) const;

signals:
    /// A host is there; emitted again when another watcher has taken over, which knows no items yet.
    void appeared();
    /// No host is there, or none any more.
    void disappeared();

private slots:
    void ask();

private:
    void settle(bool isThere);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    std::optional<bool> m_isThere; // not known before the first answer
};

} // namespace zamber::freedesktop::tray
