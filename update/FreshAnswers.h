// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNetworkCache>

#include <memory>

class QBuffer;

namespace zamber::update {

/// A cache in memory for one answer (RFC 9111), used while it is fresh by what the service itself said and not asked
/// to be validated: a validator would be a mark by which the service could tell one user from the next.
class FreshAnswers final : public QAbstractNetworkCache {
    Q_OBJECT

public:
    FreshAnswers();
    ~FreshAnswers() override;

    QNetworkCacheMetaData metaData(const QUrl& url) override;
    void updateMetaData(const QNetworkCacheMetaData& metaData) override;
    QIODevice* data(const QUrl& url) override;
    bool remove(const QUrl& url) override;
    qint64 cacheSize() const override;
    QIODevice* prepare(const QNetworkCacheMetaData& metaData) override;
    void insert(QIODevice* device) override;
    void clear() override;

private:
    QNetworkCacheMetaData m_metaData;
    QByteArray m_bytes;
    QNetworkCacheMetaData m_arrivingMetaData;
    std::unique_ptr<QBuffer> m_arriving;
};

} // namespace zamber::update
