// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WebClient.h"

#include <functional>
#include <memory>

class QNetworkAccessManager;

namespace zamber {
class Scheduler;
}

namespace zamber::web {

/// The web by Qt's network library, in this process.
class QtWebClient final : public WebClient {
public:
    /// Makes the network access that requests go out by, at the first of them.
    using AccessFactory = std::function<std::unique_ptr<QNetworkAccessManager>()>;

    explicit QtWebClient(Scheduler& scheduler, AccessFactory makeAccess = {});
    ~QtWebClient() override;

    /// Has a worker load the TLS library after a while. That takes longer than a frame, which the first request would
    /// take from the main loop.
    void loadTlsSoon();

    std::unique_ptr<Request> get(const QUrl& address, Done done) override;

private:
    Scheduler& m_scheduler;
    const AccessFactory m_makeAccess;
    std::unique_ptr<QNetworkAccessManager> m_access;
};

} // namespace zamber::web
