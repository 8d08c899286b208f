// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ClipboardRowView.h"

#include "RowMetrics.h"

#include "popover/RelativeTime.h"
#include "popover/TextLines.h"
#include "ui/Typography.h"

#include <algorithm>
#include <cmath>

namespace zamber {

using namespace Qt::StringLiterals;
using namespace rowmetrics;

namespace {

constexpr int MORE_THAN_A_GLANCE = 60; // characters
constexpr int MORE_THAN_THE_HOST = 10; // characters

QFont previewFont() {
    return textFont(12);
}

QFont hostFont() {
    return textFont(12, QFont::Medium);
}

QFont countsFont() {
    return textFont(9, QFont::Medium);
}

} // namespace

ClipboardRowView::ClipboardRowView(const ClipboardItem& item, bool isHovered, const RowPreferences& preferences,
                                   Thumbnail thumbnail, std::optional<QUrl> detectedUrl)
    : m_item(item)
    , m_isHovered(isHovered)
    , m_preferences(preferences)
    , m_thumbnail(std::move(thumbnail))
    , m_detectedUrl(std::move(detectedUrl)) {}

ClipboardRowView::TypeIcon ClipboardRowView::typeIcon() const {
    if (m_preferences.hideSensitive && m_item.content.isSensitive()) {
        return {u"lock.fill"_s, &Palette::red};
    }
    if (m_detectedUrl) {
        return {u"link"_s, &Palette::blue};
    }
    if (m_item.content.isImage()) {
        return {u"photo"_s, &Palette::purple};
    }
    return {u"doc.text"_s, &Palette::secondary};
}

bool ClipboardRowView::isExpandable() const {
    return !m_item.content.isImage() && !m_detectedUrl && m_item.content.charCount() > MORE_THAN_A_GLANCE;
}

QString ClipboardRowView::countsLine() const {
    if (showsThumbnail() || m_detectedUrl || m_item.content.lineCount() < 2) {
        return {};
    }
    QStringList parts;
    if (m_preferences.showLineCount) {
        parts.append(u"%1 lines"_s.arg(m_item.content.lineCount()));
    }
    if (m_preferences.showCharCount) {
        parts.append(u"%1 chars"_s.arg(m_item.content.charCount()));
    }
    return parts.join(u"  ·  "_s);
}

QString ClipboardRowView::age(double now) const {
    return timeAgo(m_item.timestamp, now);
}

bool ClipboardRowView::showsThumbnail() const {
    return m_item.content.isImage() && m_thumbnail.state != ThumbnailState::Undecodable;
}

bool ClipboardRowView::showsHost() const {
    return m_detectedUrl && m_preferences.previewURLs;
}

QStringList ClipboardRowView::previewLines(int width) const {
    const int mostLines = m_detectedUrl || m_item.content.lineCount() < 2 ? 2 : 3;
    return elidedLines(m_item.content.preview(), previewFont(), width, mostLines);
}

int ClipboardRowView::contentWidth(int rowWidth) const {
    int taken = PADDING_HORIZONTAL + ICON_WIDTH + SPACING + SPACING + SPACING + AGE_WIDTH + PADDING_HORIZONTAL;
    if (m_isHovered) {
        taken += ACTIONS_WIDTH + SPACING;
    } else if (m_item.isPinned) {
        taken += PIN_WIDTH + SPACING;
    }
    return std::max(0, rowWidth - taken);
}

int ClipboardRowView::contentHeight(int width) const {
    if (showsThumbnail()) {
        return THUMBNAIL_SIZE.height();
    }
    if (showsHost()) {
        const qsizetype hostLength = m_detectedUrl->host().size();
        const bool hasSecondLine = m_item.content.charCount() > hostLength + MORE_THAN_THE_HOST;
        return lineHeight(hostFont()) + (hasSecondLine ? LINK_SPACING + lineHeight(textFont(10)) : 0);
    }
    const int lines = std::max(1, static_cast<int>(previewLines(contentWidth(width)).size()));
    const int counts = countsLine().isEmpty() ? 0 : COUNTS_SPACING + lineHeight(countsFont());
    return lines * lineHeight(previewFont()) + counts;
}

int ClipboardRowView::compactHeight(int width) const {
    return contentHeight(width) + 2 * PADDING_VERTICAL;
}

int ClipboardRowView::expandedHeight(double textHeight) const {
    const int counts = countsLine().isEmpty() ? 0 : COUNTS_SPACING + lineHeight(countsFont());
    const int text = static_cast<int>(std::ceil(std::min<double>(textHeight, MOST_TEXT_HEIGHT)));
    return std::max(lineHeight(previewFont()), text) + counts + 2 * PADDING_VERTICAL;
}

QRect ClipboardRowView::contentArea(const QRect& row) const {
    const int left = row.left() + PADDING_HORIZONTAL + ICON_WIDTH + SPACING;
    return {left, row.top() + PADDING_VERTICAL, contentWidth(row.width()), row.height() - 2 * PADDING_VERTICAL};
}

QRect ClipboardRowView::textArea(const QRect& row) const {
    const int counts = countsLine().isEmpty() ? 0 : COUNTS_SPACING + lineHeight(countsFont());
    return contentArea(row).adjusted(0, 0, 0, -counts);
}

QRect ClipboardRowView::actionArea(const QRect& row, RowAction action) const {
    const int right = row.right() + 1 - PADDING_HORIZONTAL - AGE_WIDTH - SPACING;
    const int left = right - ACTIONS_WIDTH + (action == RowAction::Delete ? ACTION_SIZE + ACTION_SPACING : 0);
    return {left, row.top() + (row.height() - ACTION_SIZE) / 2, ACTION_SIZE, ACTION_SIZE};
}

std::optional<RowAction> ClipboardRowView::actionAt(const QRect& row, QPoint point) const {
    if (m_isHovered) {
        for (const RowAction action : {RowAction::Pin, RowAction::Delete}) {
            if (actionArea(row, action).contains(point)) {
                return action;
            }
        }
    }
    return std::nullopt;
}

} // namespace zamber
