// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/web/QtWebClient.h"

#include "platform/Scheduler.h"
#include "platform/web/WebRequest.h"

#include <QNetworkAccessManager>
#include <QSslSocket>
#include <QThreadPool>
#include <QUrl>

#include <utility>

namespace zamber::web {

namespace {

constexpr std::chrono::seconds TLS_LOADING_DELAY{4}; // once the start is over

} // namespace

QtWebClient::QtWebClient(Scheduler& scheduler, AccessFactory makeAccess)
    : m_scheduler(scheduler)
    , m_makeAccess(std::move(makeAccess)) {}

QtWebClient::~QtWebClient() = default;

void QtWebClient::loadTlsSoon() {
    m_scheduler.after(TLS_LOADING_DELAY,
                      [] { QThreadPool::globalInstance()->start([] { QSslSocket::supportsSsl(); }); });
}

std::unique_ptr<WebClient::Request> QtWebClient::get(const QUrl& address, Done done) {
    if (!m_access) {
        m_access = m_makeAccess ? m_makeAccess() : std::make_unique<QNetworkAccessManager>();
    }
    return std::make_unique<WebRequest>(*m_access, m_scheduler, address, std::move(done));
}

} // namespace zamber::web
