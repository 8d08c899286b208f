// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Scheduler.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

#include <expected>
#include <functional>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;
class QUrl;

namespace zamber::update {

/// One GET with nothing in it but its address, bounded in time and size: 10 s without a byte, 60 s in all, 1 MB.
/// It goes where it is sent on to (RFC 9110, section 15.4), but not out of TLS. No answer is kept for the next one.
class UpdateRequest final : public QObject {
    Q_OBJECT

public:
    /// The body, whatever the status that came with it, or why there is none, in words for people.
    using Answer = std::expected<QByteArray, QString>;
    using Done = std::function<void(const Answer& answer)>;

    /// Calls back once, from the event loop, unless it is destroyed before; it may be destroyed in the call.
    UpdateRequest(QNetworkAccessManager& access, Scheduler& scheduler, const QUrl& address, Done done);
    ~UpdateRequest() override;

private:
    void send(const QUrl& address);
    bool followRedirection();
    void takeData();
    void giveUp(const QString& reason);
    void finish();

    QNetworkAccessManager& m_access;
    Scheduler& m_scheduler;
    const Done m_done;
    int m_redirections = 0;
    QPointer<QNetworkReply> m_reply;
    QByteArray m_body;
    std::optional<QString> m_failure;
    const Scheduler::Token m_totalTimer;
};

} // namespace zamber::update
