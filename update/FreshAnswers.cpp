// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "update/FreshAnswers.h"

#include <QBuffer>
#include <QDateTime>
#include <QLocale>

#include <algorithm>

namespace zamber::update {

using namespace Qt::StringLiterals;

namespace {

/// All of that name, separated by commas; empty when there is none.
QByteArray headerOf(const QNetworkCacheMetaData& metaData, const QByteArray& wanted) {
    QByteArrayList values;
    for (const auto& [name, value] : metaData.rawHeaders()) {
        if (name.compare(wanted, Qt::CaseInsensitive) == 0) {
            values.append(value);
        }
    }
    return values.join(", ");
}

/// It depends on more than what the request says, so that no other request is answered by it.
bool isForOneRequest(const QNetworkCacheMetaData& metaData) {
    return headerOf(metaData, "Vary").contains('*');
}

/// Only by what the service said: without a word of it, an answer is not used again.
bool isFresh(const QNetworkCacheMetaData& metaData) {
    return metaData.isValid() && metaData.expirationDate() > QDateTime::currentDateTimeUtc();
}

/// How long ago it was made, by the clock of who made it; 0 when that can't be read.
qint64 secondsSince(const QByteArray& httpDate) {
    QDateTime date =
        QLocale::c().toDateTime(QString::fromLatin1(httpDate).trimmed(), u"ddd, dd MMM yyyy HH:mm:ss 'GMT'"_s);
    date.setTimeSpec(Qt::UTC);
    return date.isValid() ? date.secsTo(QDateTime::currentDateTimeUtc()) : 0;
}

/// The library takes an answer to be new when it comes, however long others had stored it. A date by which it expires
/// needs no correction by the one when it was made.
QNetworkCacheMetaData withAge(QNetworkCacheMetaData metaData) {
    const QByteArray lifetime = headerOf(metaData, "Cache-Control").toLower();
    const qint64 sinceMade = lifetime.contains("max-age") ? secondsSince(headerOf(metaData, "Date")) : 0;
    const qint64 age = std::max(headerOf(metaData, "Age").trimmed().toLongLong(), sinceMade);
    metaData.setExpirationDate(metaData.expirationDate().addSecs(-std::max<qint64>(age, 0)));
    return metaData;
}

QNetworkCacheMetaData withoutValidators(QNetworkCacheMetaData metaData) {
    metaData.setLastModified(QDateTime());
    QNetworkCacheMetaData::RawHeaderList headers = metaData.rawHeaders();
    headers.removeIf([](const QNetworkCacheMetaData::RawHeader& header) {
        return header.first.compare("ETag", Qt::CaseInsensitive) == 0 ||
               header.first.compare("Last-Modified", Qt::CaseInsensitive) == 0;
    });
    metaData.setRawHeaders(headers);
    return metaData;
}

} // namespace

FreshAnswers::FreshAnswers() = default;
FreshAnswers::~FreshAnswers() = default;

QNetworkCacheMetaData FreshAnswers::metaData(const QUrl& url) {
    return m_metaData.url() == url && isFresh(m_metaData) ? m_metaData : QNetworkCacheMetaData();
}

void FreshAnswers::updateMetaData(const QNetworkCacheMetaData& metaData) {
    if (metaData.url() == m_metaData.url()) {
        m_metaData = withoutValidators(metaData);
    }
}

QIODevice* FreshAnswers::data(const QUrl& url) {
    if (!metaData(url).isValid()) {
        return nullptr;
    }
    auto buffer = std::make_unique<QBuffer>(); // the caller's
    buffer->setData(m_bytes);
    buffer->open(QIODevice::ReadOnly);
    return buffer.release();
}

bool FreshAnswers::remove(const QUrl& url) {
    if (m_arriving && m_arrivingMetaData.url() == url) {
        m_arriving.reset();
    }
    if (m_metaData.url() != url) {
        return false;
    }
    clear();
    return true;
}

qint64 FreshAnswers::cacheSize() const {
    return m_bytes.size();
}

QIODevice* FreshAnswers::prepare(const QNetworkCacheMetaData& metaData) {
    const QNetworkCacheMetaData arriving = withoutValidators(withAge(metaData));
    if (!arriving.saveToDisk() || !isFresh(arriving) || isForOneRequest(arriving)) {
        return nullptr;
    }
    m_arrivingMetaData = arriving;
    m_arriving = std::make_unique<QBuffer>();
    m_arriving->open(QIODevice::ReadWrite);
    return m_arriving.get();
}

void FreshAnswers::insert(QIODevice* device) {
    if (device == m_arriving.get() && m_arriving) {
        m_metaData = m_arrivingMetaData;
        m_bytes = m_arriving->data();
        // The library still holds the device while it calls.
        m_arriving.release()->deleteLater();
    }
}

void FreshAnswers::clear() {
    m_metaData = QNetworkCacheMetaData();
    m_bytes.clear();
}

} // namespace zamber::update
