// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpsServer.h"

#include "platform/web/QtWebClient.h"
#include "tests/fakes/FakeAppBundle.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Waiting.h"
#include "update/UpdateManager.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>

namespace zamber::update {

/// What the access manager of a test sees, and what it changes.
struct WatchedAccess {
    int arrivals = 0;
    std::chrono::milliseconds transferTimeout{0};
    /// Instead of the one that is asked for, so that no test waits for it.
    std::optional<std::chrono::milliseconds> usedTransferTimeout;
};

/// Sends requests as any other, but trusts the tests' authority; tells of the bytes that arrive.
class TrustingAccess final : public QNetworkAccessManager {
public:
    TrustingAccess(QSslCertificate authority, WatchedAccess& watched)
        : m_authority(std::move(authority))
        , m_watched(watched) {}

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& original, QIODevice* data) override {
        QNetworkRequest request(original);
        QSslConfiguration configuration = request.sslConfiguration();
        configuration.addCaCertificate(m_authority);
        request.setSslConfiguration(configuration);
        m_watched.transferTimeout = std::chrono::milliseconds(request.transferTimeout());
        if (m_watched.usedTransferTimeout) {
            request.setTransferTimeout(static_cast<int>(m_watched.usedTransferTimeout->count()));
        }
        QNetworkReply* const reply = QNetworkAccessManager::createRequest(operation, request, data);
        connect(reply, &QNetworkReply::readyRead, this, [this] { ++m_watched.arrivals; });
        return reply;
    }

private:
    const QSslCertificate m_authority;
    WatchedAccess& m_watched;
};

/// A manager, a service on the loopback interface, and a clock that stands still.
class UpdateFixture : public testing::Test {
protected:
    std::shared_ptr<UpdateManager> managerFor(const QString& apiBase) {
        return UpdateManager::create(scheduler, defaults, bundle, workspace, webClient, apiBase);
    }

    /// A whole check; the service's side of it is in `service`.
    void check() {
        manager->checkForUpdates();
        ASSERT_TRUE(waitUntil([this] { return !manager->isChecking(); })) << "the check does not end";
    }

    void checkWith(const QByteArray& body) {
        service.answer = HttpsServer::reply(body);
        check();
    }

    LogCapture log;
    static constexpr auto GOOD_REPLY =
        R"({"updateAvailable": true, "latestVersion": "3.0", "downloadUrl": "https://zamber.example/get",)"
        R"( "releaseNotes": "Fine things", "mandatory": true})";

    Journal journal;
    FakeScheduler scheduler;
    FakeUserDefaults defaults;
    FakeAppBundle bundle;
    FakeWorkspace workspace{journal};
    WatchedAccess access;
    Authorities authorities;
    web::QtWebClient webClient{scheduler,
                               [this] { return std::make_unique<TrustingAccess>(authorities.trusted(), access); }};
    HttpsServer service{authorities.server(Authorities::Issuer::Trusted, "DNS:localhost,IP:127.0.0.1")};
    std::shared_ptr<UpdateManager> manager = managerFor(service.apiBase());
};

} // namespace zamber::update
