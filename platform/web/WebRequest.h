// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"
#include "platform/WebClient.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

#include <optional>

class QNetworkAccessManager;
class QNetworkReply;
class QUrl;

namespace zamber::web {

/// A request by Qt's network library.
class WebRequest final : public QObject, public WebClient::Request {
    Q_OBJECT

public:
    WebRequest(QNetworkAccessManager& access, Scheduler& scheduler, const QUrl& address, WebClient::Done done);
    ~WebRequest() override;

private:
    void send(const QUrl& address);
    bool followRedirection();
    void takeData();
    void giveUp(const QString& reason);
    void finish();

    QNetworkAccessManager& m_access;
    Scheduler& m_scheduler;
    const WebClient::Done m_done;
    int m_redirections = 0;
    QPointer<QNetworkReply> m_reply;
    QByteArray m_body;
    std::optional<QString> m_failure;
    const Scheduler::Token m_totalTimer;
};

} // namespace zamber::web
