// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"
#include "popover/ExpandedText.h"
#include "popover/RowStyle.h"

#include <QList>
#include <QObject>
#include <QThreadPool>
#include <QUrl>
#include <QUuid>

#include <memory>
#include <optional>
#include <unordered_map>

namespace zamber {
class LinkDetector;
}

namespace zamber::popover {

/// The list's record of an entry: measures, highlight, picture.
struct HistoryRow {
    std::optional<int> height; ///< in points, as last measured

    bool isHighlighted = false;
    double highlightProgress = 0; ///< how far the highlight has faded in, 0 to 1, evenly
    double highlight() const;     ///< the same, eased in and out

    std::unique_ptr<ExpandedText> expandedText; ///< only while the row is highlighted

    std::optional<std::optional<QUrl>> link; ///< absent until it has been looked for
    std::optional<TextState> textState;      ///< absent until it is needed
    QSize thumbnailPixels;                   ///< of the thumbnail last asked for
    Thumbnail thumbnail{ThumbnailState::Undecodable};
};

/// A record for each entry whose row was in view, kept as long as the entry is in the history. Pictures are
/// decoded and large texts are measured on other threads when first asked for.
class HistoryRows final : public QObject {
    Q_OBJECT

public:
    /// Without a link detector no text is a link.
    explicit HistoryRows(LinkDetector* linkDetector);
    ~HistoryRows() override;

    /// The entry's record, which stays where it is in memory until it is dropped.
    HistoryRow& of(const QUuid& id) { return m_rows[id]; }
    /// The same, or null when the entry has none yet.
    HistoryRow* find(const QUuid& id);
    auto begin() { return m_rows.begin(); }
    auto end() { return m_rows.end(); }

    /// Drops the records of all other entries.
    void keepOnly(const QList<clipboard::ClipboardItem>& items);
    void forgetHeights();

    /// The picture for the row; `changed` follows when it is still being decoded. Nothing to show for a text.
    const Thumbnail& thumbnail(const clipboard::ClipboardItem& item, double devicePixelRatio);
    std::optional<QUrl> link(const clipboard::ClipboardItem& item);
    /// Whether the entry's counts and preview are at hand without waiting. If not, `changed` follows.
    TextState textState(const clipboard::ClipboardItem& item);

    /// Texts from this size on are counted, and searched for secrets, on another thread: with hundreds of megabytes
    /// that takes a second.
    static constexpr qsizetype LARGE_BYTES = qsizetype{256} * 1024;

signals:
    /// More is known about the entry, so that its row may look different.
    void changed(const QUuid& id);

private:
    /// Ids are random: any part of them will do.
    struct IdHash {
        std::size_t operator()(const QUuid& id) const { return id.data1; }
    };

    LinkDetector* m_linkDetector;
    std::unordered_map<QUuid, HistoryRow, IdHash> m_rows;
    /// The last member, so that its work has ended before the others are destroyed.
    QThreadPool m_decoders;
    QThreadPool m_measurers;
};

} // namespace zamber::popover
