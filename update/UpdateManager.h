// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"
#include "platform/WebClient.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

namespace zamber {
class AppBundle;
class UserDefaults;
class Workspace;
} // namespace zamber

namespace zamber::update {

/// Asks the update service whether there is a newer release, shortly after the start and every four hours, and tells
/// what it said. It neither downloads nor installs. Which version is newer is the service's business.
///
/// Lives on the main thread and never blocks it. Its timers hold it weakly.
class UpdateManager final : public QObject, public std::enable_shared_from_this<UpdateManager> {
    Q_OBJECT

public:
    /// The ports must outlive the manager. The base address is the build's unless a test has a service of its own.
    static std::shared_ptr<UpdateManager> create(Scheduler& scheduler, UserDefaults& defaults, AppBundle& bundle,
                                                 Workspace& workspace, WebClient& web,
                                                 QString apiBase = defaultApiBase());
    ~UpdateManager() override;

    /// The manager of the process. The entry point sets it, or a test.
    static UpdateManager& shared();
    static void setShared(std::shared_ptr<UpdateManager> manager);

    static QString defaultApiBase();

    /// The last answer said that there is a newer release: its version, its address, its notes and whether the service
    /// calls it mandatory. An answer without one leaves the last four as they were.
    bool updateAvailable() const { return m_updateAvailable; }
    const QString& latestVersion() const { return m_latestVersion; }
    const QString& downloadUrl() const { return m_downloadUrl; }
    const QString& releaseNotes() const { return m_releaseNotes; }
    bool isMandatory() const { return m_isMandatory; }

    bool isChecking() const { return m_request != nullptr; }

    /// When the last answer or failure came, in seconds since 1970-01-01 00:00:00 UTC.
    std::optional<double> lastChecked() const { return m_lastChecked; }

    /// The bundle's; "1.0.0" where it has no version, and 1 where it has no build that is a whole decimal number.
    QString currentVersion() const;
    qint64 currentBuild() const;

    /// Whether the latest version is the skipped one. True also while there is neither: both texts are empty then.
    bool isVersionSkipped() const;

    /// Meant to be called once: a second call adds a second timer.
    void startPeriodicChecks();
    void stopPeriodicChecks();

    /// Does nothing while a check is under way.
    void checkForUpdates();

    /// Opens the address of the release. Nothing happens when it is none.
    void downloadUpdate();
    void skipVersion();

signals:
    /// Any of the above has changed.
    void changed();

private:
    UpdateManager(Scheduler& scheduler, UserDefaults& defaults, AppBundle& bundle, Workspace& workspace, WebClient& web,
                  QString apiBase);

    void handleFailure(const QString& reason);
    void handleBody(const QByteArray& body);

    Scheduler& m_scheduler;
    UserDefaults& m_defaults;
    AppBundle& m_bundle;
    Workspace& m_workspace;
    WebClient& m_web;
    const QString m_apiBase;
    std::unique_ptr<WebClient::Request> m_request;
    std::optional<Scheduler::Token> m_timer;
    bool m_updateAvailable = false;
    QString m_latestVersion;
    QString m_downloadUrl;
    QString m_releaseNotes;
    bool m_isMandatory = false;
    std::optional<double> m_lastChecked;
};

} // namespace zamber::update
