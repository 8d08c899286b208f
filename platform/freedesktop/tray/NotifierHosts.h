// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <optional>

namespace zamber::freedesktop::tray {

/// Follows whether somebody shows status notifier items: a watcher is on the session bus, and a host with it
/// (freedesktop.org, StatusNotifierItem).
class NotifierHosts final : public QObject {
    Q_OBJECT

public:
    explicit NotifierHosts(const QDBusConnection& bus);

    /// Tells what is there, now and at each change.
    void start();

    /// Asks the watcher to take the item in that this process has under that bus name.
    void registerItem(const QString& service) const;

signals:
    /// A host has come; told again when the watcher is another one, which knows no items yet.
    void appeared();
    /// There is none, or none any more.
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
