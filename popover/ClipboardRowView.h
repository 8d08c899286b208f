// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"
#include "popover/RowStyle.h"
#include "ui/Palette.h"

#include <QPoint>
#include <QRect>
#include <QStringList>
#include <QUrl>

#include <optional>

class QPainter;

namespace zamber::popover {

class ExpandedText;
class PreparedLine;

/// One entry of the history as the list shows it. A value: everything is computed from the constructor's arguments, and
/// the list hands in all that moves or changes.
class ClipboardRowView {
public:
    /// The item must outlive the row.
    ClipboardRowView(const clipboard::ClipboardItem& item, bool isHovered, const RowPreferences& preferences,
                     Thumbnail thumbnail = {}, std::optional<QUrl> detectedUrl = {},
                     TextState textState = TextState::Measured);

    /// The symbol at the row's start, by its name and colour.
    struct TypeIcon {
        QString symbol;
        QColor ui::Palette::* color;
        QString meaning; ///< in words, for assistive technology; empty for a plain text
    };
    TypeIcon typeIcon() const;

    /// Is there more to show than the preview while the row is highlighted?
    bool isExpandable() const;
    bool isExpanded() const { return m_isHovered && isExpandable(); }
    /// The line under the preview, if there is one: counts, and a dot between two of them.
    QStringList counts() const;
    /// The address's host, or all of it where there is no host; only for a row with a link.
    QString linkTitle() const;
    /// The text for the row; empty while it is not known whether it must be masked.
    QString preview() const;
    /// The small buttons of a highlighted row, from left to right.
    QList<RowAction> actions() const;
    QString age(double now) const;

    /// The row's height (points) at that width, not expanded.
    int compactHeight(int width) const;
    /// The row's height with so much of the whole text shown (points).
    int expandedHeight(double textHeight) const;
    /// The width of the preview or text in a row of the width.
    int contentWidth(int rowWidth) const;

    void paint(QPainter& painter, const QRect& row, const RowStyle& style, ExpandedText* expandedText) const;

    /// Where the whole text lies in an expanded row, and where the small buttons lie in a highlighted one.
    QRect textArea(const QRect& row) const;
    QRect actionArea(const QRect& row, RowAction action) const;
    /// The small button at the point, if the row shows them.
    std::optional<RowAction> actionAt(const QRect& row, QPoint point) const;

    static constexpr QSize THUMBNAIL_SIZE{40, 30};

private:
    bool showsThumbnail() const;
    bool showsHost() const;
    bool hasLinkPreview() const;
    int countsHeight() const;
    int actionsWidth() const;
    QList<PreparedLine> previewLines(int width) const;
    int contentHeight(int width) const;
    QRect contentArea(const QRect& row) const;

    struct ActionSymbol {
        QString name;
        QColor color;
    };
    ActionSymbol symbolOf(RowAction action, const ui::Palette& palette, bool isUnderPointer) const;

    void paintGround(QPainter& painter, const QRect& row, const RowStyle& style) const;
    void paintContent(QPainter& painter, const QRect& row, const RowStyle& style, ExpandedText* text) const;
    void paintThumbnail(QPainter& painter, const QRect& area, const RowStyle& style) const;
    void paintLink(QPainter& painter, const QRect& area, const RowStyle& style) const;
    void paintText(QPainter& painter, const QRect& area, const RowStyle& style, ExpandedText* text) const;
    void paintCounts(QPainter& painter, QPointF topLeft, const RowStyle& style) const;
    void paintTrailing(QPainter& painter, const QRect& row, const RowStyle& style) const;
    void paintAction(QPainter& painter, const QRect& row, RowAction action, const RowStyle& style) const;

    const clipboard::ClipboardItem& m_item;
    bool m_isHovered;
    RowPreferences m_preferences;
    Thumbnail m_thumbnail;
    std::optional<QUrl> m_detectedUrl;
    TextState m_textState;
};

} // namespace zamber::popover
