// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/web/WebRequest.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <utility>

namespace zamber::web {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 READ_BUFFER_BYTES = 65'536;

constexpr int MOST_REDIRECTIONS = 16;

constexpr int FIRST_ERROR_STATUS = 400;
/// Qt's errors above this one stand for HTTP statuses.
constexpr int LAST_TRANSPORT_ERROR = 99;

QNetworkRequest requestFor(const QUrl& address) {
    QNetworkRequest request(address);
    // Nothing of the user goes out: no cookies, no passwords, and not the language that would be told unasked.
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setRawHeader("Accept-Language", "*");
    // Redirections are followed here: Qt takes one without a target for a failure and throws its body away, but a body
    // counts whatever its status is.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setTransferTimeout(static_cast<int>(std::chrono::milliseconds(WebClient::LONGEST_SILENCE).count()));
    return request;
}

/// A body that came whole is an answer, also with a status that the library calls an error.
bool hasBody(const QNetworkReply& reply) {
    const QNetworkReply::NetworkError error = reply.error();
    if (error == QNetworkReply::NoError) {
        return true;
    }
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return status >= FIRST_ERROR_STATUS && error > LAST_TRANSPORT_ERROR && error != QNetworkReply::ProtocolFailure;
}

bool hasTimedOut(const QNetworkReply& reply) {
    // The transfer timeout cancels, and nothing else does; newer Qt tells it by its own name.
    return reply.error() == QNetworkReply::OperationCanceledError || reply.error() == QNetworkReply::TimeoutError;
}

} // namespace

WebRequest::WebRequest(QNetworkAccessManager& access, Scheduler& scheduler, const QUrl& address, WebClient::Done done)
    : m_access(access)
    , m_scheduler(scheduler)
    , m_done(std::move(done))
    , m_totalTimer(scheduler.after(WebClient::LONGEST_REQUEST, [this] { giveUp(WebClient::timedOut()); })) {
    send(address);
}

void WebRequest::send(const QUrl& address) {
    m_reply = m_access.get(requestFor(address));
    m_reply->setReadBufferSize(READ_BUFFER_BYTES);
    connect(m_reply, &QNetworkReply::readyRead, this, &WebRequest::takeData);
    connect(m_reply, &QNetworkReply::finished, this, &WebRequest::finish);
}

WebRequest::~WebRequest() {
    m_scheduler.invalidate(m_totalTimer);
    if (m_reply) { // else its access manager has gone first
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
    }
}

void WebRequest::takeData() {
    // At most one byte more than fits is read, which tells that the body is too large; the rest is never unpacked.
    QByteArray chunk;
    do {
        chunk = m_reply->read(WebClient::LARGEST_BODY_BYTES + 1 - m_body.size());
        m_body += chunk;
    } while (!chunk.isEmpty());
    if (m_body.size() > WebClient::LARGEST_BODY_BYTES) {
        giveUp(WebClient::tooLarge());
    }
}

void WebRequest::giveUp(const QString& reason) {
    if (!m_failure) {
        m_failure = reason;
        m_reply->abort(); // emits finished()
    }
}

bool WebRequest::followRedirection() {
    const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (m_failure || target.isEmpty() || !target.isValid()) {
        return false;
    }
    const QUrl address = m_reply->url().resolved(target);
    if (address.scheme() != u"https"_s && address.scheme() != m_reply->url().scheme()) {
        m_failure = u"The service sends on to an insecure place."_s;
        return false;
    }
    if (++m_redirections > MOST_REDIRECTIONS) {
        m_failure = u"The service sends on too often."_s;
        return false;
    }
    m_reply->deleteLater();
    m_body.clear();
    send(address);
    return true;
}

void WebRequest::finish() {
    if (followRedirection()) {
        return;
    }
    if (!m_failure && hasBody(*m_reply)) {
        takeData();
    }
    m_scheduler.invalidate(m_totalTimer);
    WebClient::Answer answer = std::move(m_body);
    if (m_failure) {
        answer = std::unexpected(*m_failure);
    } else if (hasTimedOut(*m_reply)) {
        answer = std::unexpected(WebClient::timedOut());
    } else if (!hasBody(*m_reply)) {
        answer = std::unexpected(m_reply->errorString());
    }
    const WebClient::Done done = m_done; // the call may be the end of this object
    done(answer);
}

} // namespace zamber::web
