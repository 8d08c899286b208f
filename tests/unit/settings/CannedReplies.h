// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <algorithm>
#include <optional>

namespace zamber::settings {

/// An answer that is there at once, or never comes.
class CannedReply final : public QNetworkReply {
public:
    CannedReply(const QNetworkRequest& request, const std::optional<QByteArray>& body, QObject* parent)
        : QNetworkReply(parent)
        , m_body(body.value_or(QByteArray())) {
        setRequest(request);
        setUrl(request.url());
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        if (body) {
            QMetaObject::invokeMethod(
                this,
                [this] {
                    setFinished(true);
                    Q_EMIT readyRead();
                    Q_EMIT finished();
                },
                Qt::QueuedConnection);
        }
    }

    void abort() override {}
    qint64 bytesAvailable() const override { return m_body.size() + QIODevice::bytesAvailable(); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 size) override {
        const qint64 length = std::min<qint64>(size, m_body.size());
        std::copy_n(m_body.constData(), length, data);
        m_body.remove(0, length);
        return length;
    }

private:
    QByteArray m_body;
};

/// A network on which every request gets the answer of the moment.
class CannedReplies final : public QNetworkAccessManager {
public:
    CannedReplies(const std::optional<QByteArray>& answer, int& requests)
        : m_answer(answer)
        , m_requests(requests) {}

protected:
    QNetworkReply* createRequest(Operation, const QNetworkRequest& request, QIODevice*) override {
        ++m_requests;
        return new CannedReply(request, m_answer, this);
    }

private:
    const std::optional<QByteArray>& m_answer;
    int& m_requests;
};

} // namespace zamber::settings
