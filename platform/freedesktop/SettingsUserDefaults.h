// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <QFileSystemWatcher>
#include <QHash>
#include <QSettings>
#include <QTimer>
#include <QVariant>

#include <chrono>
#include <map>

namespace zamber::freedesktop {

/// The preferences in an INI file, as QSettings reads and writes it; keys in [General].
///
/// The file does not tell a number from a text, which the getters do not mind, nor true from "true": a text of that
/// kind is stored as QSettings stores bytes. A list (a comma in a text written by hand) counts as absent.
///
/// A program that edits the file in place empties it first, and one that replaces it may remove it first. A file that
/// is found empty or missing is given the rewriting time before its keys count as absent.
class SettingsUserDefaults final : public UserDefaults {
public:
    /// Makes the file's folder where it is missing; the file itself appears with the first setting.
    explicit SettingsUserDefaults(const QString& path = defaultPath(),
                                  std::chrono::milliseconds rewritingTime = std::chrono::milliseconds(100));

    /// Zamber/Zamber.conf in the user's configuration folder.
    static QString defaultPath();

    std::optional<QString> string(const QString& key) const override;
    std::optional<int> integer(const QString& key) const override;
    std::optional<bool> boolean(const QString& key) const override;
    void setString(const QString& key, const QString& value) override;
    void setInteger(const QString& key, int value) override;
    void setBoolean(const QString& key, bool value) override;
    ObserverToken addObserver(const QString& key, Observer observer) override;
    void removeObserver(ObserverToken token) override;

private:
    struct Observation {
        QString key;
        Observer observer;
    };

    void set(const QString& key, const QVariant& value);
    void fileChanged();
    void reload();
    /// Tells the observers of every key whose value is not the one last seen.
    void tellObservers();
    void watch();

    QSettings m_settings;
    QHash<QString, QVariant> m_seen;
    std::map<std::uint64_t, Observation> m_observers;
    std::uint64_t m_lastId = 0;
    QFileSystemWatcher m_watcher;
    QTimer m_rewriting;
};

} // namespace zamber::freedesktop
