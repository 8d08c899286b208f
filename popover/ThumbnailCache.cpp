// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ThumbnailCache.h"

#include <QMetaObject>

#include <cmath>

namespace zamber::popover {

ThumbnailCache::ThumbnailCache() {
    // One after the other: decoders of large images take much memory each.
    m_decoders.setMaxThreadCount(1);
}

ThumbnailCache::~ThumbnailCache() {
    m_decoders.clear();
}

const Thumbnail& ThumbnailCache::thumbnail(const clipboard::ClipboardItem& item, double devicePixelRatio) {
    static const Thumbnail nothing{ThumbnailState::Undecodable};
    if (!item.content.isImage()) {
        return nothing;
    }
    const QSize pixels = (QSizeF(ClipboardRowView::THUMBNAIL_SIZE) * devicePixelRatio).toSize();
    Entry& entry = m_entries[item.id];
    if (entry.pixels != pixels) {
        entry.pixels = pixels;
        m_decoders.start([this, id = item.id, content = item.content, pixels] {
            const QImage image = content.thumbnail(pixels);
            QMetaObject::invokeMethod(this, [this, id, pixels, image] {
                const auto waiting = m_entries.find(id);
                if (waiting != m_entries.end() && waiting->pixels == pixels) {
                    const auto state = image.isNull() ? ThumbnailState::Undecodable : ThumbnailState::Ready;
                    waiting->thumbnail = {state, image};
                    emit loaded(id);
                }
            });
        });
    }
    return entry.thumbnail;
}

void ThumbnailCache::keepOnly(const QList<clipboard::ClipboardItem>& items) {
    if (m_entries.isEmpty()) {
        return;
    }
    QSet<QUuid> kept;
    for (const clipboard::ClipboardItem& item : items) {
        kept.insert(item.id);
    }
    m_entries.removeIf([&kept](const auto& entry) { return !kept.contains(entry.key()); });
}

} // namespace zamber::popover
