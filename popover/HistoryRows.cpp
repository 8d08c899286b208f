// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/HistoryRows.h"

#include "popover/ClipboardRowView.h"
#include "popover/DetectedUrl.h"

#include <QMetaObject>
#include <QSet>

namespace zamber::popover {

double HistoryRow::highlight() const {
    return highlightProgress * highlightProgress * (3 - 2 * highlightProgress);
}

HistoryRows::HistoryRows(LinkDetector* linkDetector)
    : m_linkDetector(linkDetector) {
    // One picture and one text after the other: each may take much memory.
    m_decoders.setMaxThreadCount(1);
    m_measurers.setMaxThreadCount(1);
}

HistoryRows::~HistoryRows() {
    m_decoders.clear();
    m_measurers.clear();
}

HistoryRow* HistoryRows::find(const QUuid& id) {
    const auto found = m_rows.find(id);
    return found == m_rows.end() ? nullptr : &found->second;
}

void HistoryRows::keepOnly(const QList<clipboard::ClipboardItem>& items) {
    QSet<QUuid> kept;
    for (const clipboard::ClipboardItem& item : items) {
        if (m_rows.contains(item.id)) {
            kept.insert(item.id);
        }
    }
    std::erase_if(m_rows, [&kept](const auto& row) { return !kept.contains(row.first); });
}

void HistoryRows::forgetHeights() {
    for (auto& [id, row] : m_rows) {
        row.height.reset();
    }
}

const Thumbnail& HistoryRows::thumbnail(const clipboard::ClipboardItem& item, double devicePixelRatio) {
    HistoryRow& row = of(item.id);
    const QSize pixels = (QSizeF(ClipboardRowView::THUMBNAIL_SIZE) * devicePixelRatio).toSize();
    if (!item.content.isImage() || row.thumbnailPixels == pixels) {
        return row.thumbnail;
    }
    if (row.thumbnailPixels.isEmpty()) {
        row.thumbnail.state = ThumbnailState::Pending;
    }
    row.thumbnailPixels = pixels;
    m_decoders.start([this, id = item.id, content = item.content, pixels] {
        const QImage image = content.thumbnail(pixels);
        QMetaObject::invokeMethod(this, [this, id, pixels, image] {
            HistoryRow* const waiting = find(id);
            if (waiting != nullptr && waiting->thumbnailPixels == pixels) {
                waiting->thumbnail = {image.isNull() ? ThumbnailState::Undecodable : ThumbnailState::Ready, image};
                emit changed(id);
            }
        });
    });
    return row.thumbnail;
}

std::optional<QUrl> HistoryRows::link(const clipboard::ClipboardItem& item) {
    if (m_linkDetector == nullptr || item.content.isImage()) {
        return std::nullopt;
    }
    HistoryRow& row = of(item.id);
    if (!row.link) {
        row.link = detectedUrl(item.content, *m_linkDetector);
    }
    return *row.link;
}

TextState HistoryRows::textState(const clipboard::ClipboardItem& item) {
    if (item.content.isImage() || item.content.bytes().size() < LARGE_BYTES) {
        return TextState::Measured;
    }
    HistoryRow& row = of(item.id);
    if (!row.textState && item.content.isMeasured()) {
        row.textState = TextState::Measured;
    }
    if (!row.textState) {
        row.textState = TextState::Pending;
        m_measurers.start([this, id = item.id, content = item.content] {
            content.measure();
            QMetaObject::invokeMethod(this, [this, id] {
                if (HistoryRow* const waiting = find(id)) {
                    waiting->textState = TextState::Measured;
                    emit changed(id);
                }
            });
        });
    }
    return *row.textState;
}

} // namespace zamber::popover
