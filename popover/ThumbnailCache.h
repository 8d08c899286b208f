// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/ClipboardRowView.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QThreadPool>

namespace zamber::popover {

/// The small pictures of image entries, decoded on another thread when first asked for and kept as long as the
/// entry is in the list.
class ThumbnailCache final : public QObject {
    Q_OBJECT

public:
    ThumbnailCache();
    ~ThumbnailCache() override;

    /// What is known now; `loaded` follows when more is. Nothing to show for a text.
    const Thumbnail& thumbnail(const clipboard::ClipboardItem& item, double devicePixelRatio);

    /// Forgets the pictures of all other entries.
    void keepOnly(const QList<clipboard::ClipboardItem>& items);

signals:
    void loaded(const QUuid& item);

private:
    struct Entry {
        QSize pixels;
        Thumbnail thumbnail;
    };

    QHash<QUuid, Entry> m_entries;
    /// Last, so that nothing decodes any more when the rest goes.
    QThreadPool m_decoders;
};

} // namespace zamber::popover
