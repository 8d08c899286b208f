// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ClipboardRowView.h"

#include "text/Characters.h"

#include "popover/ExpandedText.h"
#include "popover/RelativeTime.h"
#include "popover/RowMetrics.h"
#include "popover/TextLines.h"
#include "ui/Typography.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zamber::popover {

using namespace Qt::StringLiterals;
using namespace rowmetrics;

namespace {

constexpr std::size_t MORE_THAN_A_GLANCE = 60; // characters
constexpr std::size_t MORE_THAN_THE_HOST = 10; // characters

bool hasMoreCharacters(const QByteArray& utf8, std::size_t than) {
    const std::string_view text(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    return text::countCharacters(text, than + 1).count > than;
}

QFont previewFont() {
    return ui::textFont(12);
}

QFont hostFont() {
    return ui::textFont(12, QFont::Medium);
}

QFont countsFont() {
    return ui::textFont(9, QFont::Medium);
}

} // namespace

ClipboardRowView::ClipboardRowView(const clipboard::ClipboardItem& item, bool isHovered,
                                   const RowPreferences& preferences, Thumbnail thumbnail,
                                   std::optional<QUrl> detectedUrl, TextState textState)
    : m_item(item)
    , m_isHovered(isHovered)
    , m_preferences(preferences)
    , m_thumbnail(std::move(thumbnail))
    , m_detectedUrl(std::move(detectedUrl))
    , m_textState(textState) {}

ClipboardRowView::TypeIcon ClipboardRowView::typeIcon() const {
    if (m_preferences.hideSensitive && m_textState == TextState::Measured && m_item.content.isSensitive()) {
        return {u"lock.fill"_s, &ui::Palette::red, u"sensitive"_s};
    }
    if (m_detectedUrl) {
        return {u"link"_s, &ui::Palette::blue, u"link"_s};
    }
    if (m_item.content.isImage()) {
        return {u"photo"_s, &ui::Palette::purple, u"image"_s};
    }
    return {u"doc.text"_s, &ui::Palette::secondary, {}};
}

bool ClipboardRowView::isExpandable() const {
    return !m_item.content.isImage() && !m_detectedUrl && hasMoreCharacters(m_item.content.bytes(), MORE_THAN_A_GLANCE);
}

QStringList ClipboardRowView::counts() const {
    if (showsThumbnail() || m_detectedUrl || m_textState == TextState::Pending || m_item.content.lineCount() < 2) {
        return {};
    }
    QStringList parts;
    if (m_preferences.showLineCount) {
        parts.append(u"%1 lines"_s.arg(m_item.content.lineCount()));
    }
    if (m_preferences.showLineCount && m_preferences.showCharCount) {
        parts.append(u"·"_s);
    }
    if (m_preferences.showCharCount) {
        parts.append(u"%1 chars"_s.arg(m_item.content.charCount()));
    }
    return parts;
}

QString ClipboardRowView::linkTitle() const {
    const QString host = m_detectedUrl->host();
    return host.isEmpty() ? m_detectedUrl->toString() : host;
}

QString ClipboardRowView::preview() const {
    const bool mayBeSecret = m_preferences.hideSensitive && m_textState == TextState::Pending;
    return mayBeSecret ? QString() : m_item.content.preview();
}

QList<RowAction> ClipboardRowView::actions() const {
    return m_detectedUrl ? QList{RowAction::OpenLink, RowAction::Pin, RowAction::Delete}
                         : QList{RowAction::Pin, RowAction::Delete};
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

QList<PreparedLine> ClipboardRowView::previewLines(int width) const {
    const bool hasFewLines = m_textState == TextState::Measured && m_item.content.lineCount() < 2;
    const int mostLines = m_detectedUrl || hasFewLines ? 2 : 3;
    return preparedLines(preview(), previewFont(), width, mostLines);
}

int ClipboardRowView::contentWidth(int rowWidth) const {
    int taken = rowmetrics::PADDING_HORIZONTAL + rowmetrics::ICON_WIDTH + rowmetrics::SPACING + rowmetrics::SPACING +
                rowmetrics::SPACING + rowmetrics::AGE_WIDTH + rowmetrics::PADDING_HORIZONTAL;
    if (m_isHovered) {
        taken += actionsWidth() + rowmetrics::SPACING;
    } else if (m_item.isPinned) {
        taken += rowmetrics::PIN_WIDTH + rowmetrics::SPACING;
    }
    return std::max(0, rowWidth - taken);
}

int ClipboardRowView::contentHeight(int width) const {
    if (showsThumbnail()) {
        return THUMBNAIL_SIZE.height();
    }
    if (showsHost()) {
        return lineHeight(hostFont()) +
               (hasLinkPreview() ? rowmetrics::LINK_SPACING + lineHeight(ui::textFont(10)) : 0);
    }
    const int lines = std::max(1, static_cast<int>(previewLines(contentWidth(width)).size()));
    return lines * lineHeight(previewFont()) + countsHeight();
}

bool ClipboardRowView::hasLinkPreview() const {
    const QByteArray host = m_detectedUrl->host().toUtf8();
    const std::string_view text(host.constData(), static_cast<std::size_t>(host.size()));
    return hasMoreCharacters(m_item.content.bytes(), text::countCharacters(text).count + MORE_THAN_THE_HOST);
}

int ClipboardRowView::countsHeight() const {
    return counts().isEmpty() ? 0 : rowmetrics::COUNTS_SPACING + lineHeight(countsFont());
}

int ClipboardRowView::actionsWidth() const {
    const int count = static_cast<int>(actions().size());
    return count * rowmetrics::ACTION_SIZE + (count - 1) * rowmetrics::ACTION_SPACING;
}

int ClipboardRowView::compactHeight(int width) const {
    return contentHeight(width) + 2 * rowmetrics::PADDING_VERTICAL;
}

int ClipboardRowView::expandedHeight(double textHeight) const {
    const int text = static_cast<int>(std::ceil(std::min<double>(textHeight, ExpandedText::MOST_SHOWN_HEIGHT)));
    return std::max(lineHeight(previewFont()), text) + countsHeight() + 2 * rowmetrics::PADDING_VERTICAL;
}

QRect ClipboardRowView::contentArea(const QRect& row) const {
    const int left = row.left() + rowmetrics::PADDING_HORIZONTAL + rowmetrics::ICON_WIDTH + rowmetrics::SPACING;
    return {left, row.top() + rowmetrics::PADDING_VERTICAL, contentWidth(row.width()),
            row.height() - 2 * rowmetrics::PADDING_VERTICAL};
}

QRect ClipboardRowView::textArea(const QRect& row) const {
    return contentArea(row).adjusted(0, 0, 0, -countsHeight());
}

QRect ClipboardRowView::actionArea(const QRect& row, RowAction action) const {
    const int right = row.right() + 1 - rowmetrics::PADDING_HORIZONTAL - rowmetrics::AGE_WIDTH - rowmetrics::SPACING;
    const int position = static_cast<int>(actions().indexOf(action));
    const int left = right - actionsWidth() + position * (rowmetrics::ACTION_SIZE + rowmetrics::ACTION_SPACING);
    return {left, row.top() + (row.height() - rowmetrics::ACTION_SIZE) / 2, rowmetrics::ACTION_SIZE,
            rowmetrics::ACTION_SIZE};
}

std::optional<RowAction> ClipboardRowView::actionAt(const QRect& row, QPoint point) const {
    if (m_isHovered) {
        for (const RowAction action : actions()) {
            if (actionArea(row, action).contains(point)) {
                return action;
            }
        }
    }
    return std::nullopt;
}

} // namespace zamber::popover
