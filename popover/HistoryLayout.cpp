// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/HistoryLayout.h"

#include "popover/KeptRow.h"
#include "popover/RowMetrics.h"
#include "ui/Typography.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zamber::popover {

using RoomBelow = ListGeometry::RoomBelow;

namespace {

constexpr int LIST_PADDING_HORIZONTAL = 8;

int headerHeight() {
    return rowmetrics::HEADER_PADDING_TOP + lineHeight(ui::textFont(10, QFont::DemiBold)) +
           rowmetrics::HEADER_PADDING_BOTTOM;
}

} // namespace

HistoryLayout::HistoryLayout(LinkDetector* linkDetector, std::function<Motion()> motion)
    : m_motion(std::move(motion))
    , m_rows(linkDetector)
    , m_geometry([this](int row) { return measuredHeight(row); }, headerHeight())
    , m_highlights(m_rows) {
    connect(&m_glide, &GlidingScroll::advanced, this, &HistoryLayout::glide);
    connect(&m_highlights, &RowHighlights::advanced, this, &HistoryLayout::measureAgain);
    connect(&m_highlights, &RowHighlights::settled, this, &HistoryLayout::settled);
    connect(&m_rows, &HistoryRows::changed, this, [this](const QUuid& id) { measureAgain({id}); });
}

void HistoryLayout::setItems(const QList<clipboard::ClipboardItem>& items) {
    const auto held = hold();
    std::optional<ListGeometry::Hold> anchor;
    std::optional<QUuid> successor; // of the row that is held: its own entry, or the one that takes its place
    if (held && (m_hovered || m_geometry.offset() > 0)) { // at the top of the list, new entries come into view
        if (const auto kept = nearestKeptRow(held->row, m_items, items)) {
            const bool isAtOrBelow = kept->before >= held->row;
            anchor = isAtOrBelow ? *held : m_geometry.hold(kept->before);
            anchor->isCutOff = anchor->isCutOff && kept->before == held->row;
            anchor->row = kept->after;
            successor = isAtOrBelow ? std::optional(items[kept->after].id) : std::nullopt;
        }
    }
    if (m_hovered && held && m_items[held->row].id == *m_hovered) {
        m_hovered = successor;
    }
    m_items = items;
    const auto firstRecent = std::ranges::partition_point(m_items, &clipboard::ClipboardItem::isPinned);
    m_geometry.setRows({static_cast<int>(m_items.size()), static_cast<int>(firstRecent - m_items.begin())},
                       [this](int row) {
                           const HistoryRow* const known = m_rows.find(m_items[row].id);
                           return known == nullptr ? std::nullopt : known->height;
                       });
    if (anchor) {
        m_geometry.keep(*anchor, m_roomBelow);
    } else {
        m_geometry.scrollTo(m_geometry.offset());
    }
    if (m_hovered && !rowOf(*m_hovered)) {
        m_hovered.reset();
    }
    updateHighlights(Motion::Immediate);
    emit changed();
}

void HistoryLayout::setPreferences(const RowPreferences& preferences) {
    measureAllAgain([&] { m_preferences = preferences; });
}

void HistoryLayout::setView(QSize size, double devicePixelRatio) {
    m_devicePixelRatio = devicePixelRatio;
    if (size == m_size) {
        return;
    }
    measureAllAgain([&] {
        m_size = size;
        m_geometry.setViewHeight(size.height());
    });
}

void HistoryLayout::measureAllAgain(const std::function<void()>& change) {
    const auto held = hold();
    change();
    m_rows.forgetHeights();
    m_geometry.setRows(m_geometry.sections(), [](int) { return std::nullopt; });
    keep(held);
    emit changed();
}

std::optional<int> HistoryLayout::rowOf(const QUuid& id) const {
    // The few rows that are looked for are near the top nearly always; an index of all would have to be made anew at
    // every key press in the search field.
    const auto found = std::ranges::find(m_items, id, &clipboard::ClipboardItem::id);
    return found == m_items.end() ? std::nullopt : std::optional(static_cast<int>(found - m_items.begin()));
}

std::optional<int> HistoryLayout::rowAt(QPoint point) const {
    if (m_geometry.isEmpty() || !QRect(QPoint(), m_size).contains(point)) {
        return std::nullopt;
    }
    const auto row = m_geometry.sections().rowOfElement(m_geometry.elementAt(point.y()));
    return row && rowRectangle(*row).contains(point) ? row : std::nullopt;
}

int HistoryLayout::rowWidth() const {
    return m_size.width() - 2 * LIST_PADDING_HORIZONTAL;
}

QRect HistoryLayout::rowRectangle(int row) const {
    const ListGeometry::Span span = m_geometry.rowSpan(row);
    return {LIST_PADDING_HORIZONTAL, span.top, rowWidth(), span.height};
}

ClipboardRowView HistoryLayout::rowView(int row) {
    const clipboard::ClipboardItem& item = m_items[row];
    return {item,
            isHighlighted(row),
            m_preferences,
            m_rows.thumbnail(item, m_devicePixelRatio),
            m_rows.link(item),
            m_rows.textState(item)};
}

int HistoryLayout::measuredHeight(int row) {
    HistoryRow& known = m_rows.of(m_items[row].id);
    const ClipboardRowView view = rowView(row);
    const int compact = view.compactHeight(rowWidth());
    int height = compact;
    if (const double highlight = known.highlight(); highlight > 0 && view.isExpandable()) {
        const int expanded = view.expandedHeight(expandedText(row).shownHeight());
        height += static_cast<int>(std::lround((expanded - compact) * highlight));
    }
    known.height = height;
    return height;
}

ExpandedText& HistoryLayout::expandedText(int row) {
    const clipboard::ClipboardItem& item = m_items[row];
    const ClipboardRowView highlighted(item, true, m_preferences, {}, m_rows.link(item));
    const int width = highlighted.contentWidth(rowWidth());
    auto& text = m_rows.of(item.id).expandedText;
    if (!text || text->width() != width) {
        text = std::make_unique<ExpandedText>(item.content.bytes(), width);
    }
    return *text;
}

bool HistoryLayout::isHighlighted(int row) const {
    return row == m_selectedIndex || m_hovered == m_items[row].id;
}

void HistoryLayout::setSelectedIndex(int index, Motion motion) {
    m_selectedIndex = index;
    updateHighlights(motion);
}

void HistoryLayout::setHovered(std::optional<QUuid> row, Motion motion) {
    if (std::exchange(m_hovered, row) != row) {
        updateHighlights(motion);
    }
}

void HistoryLayout::updateHighlights(Motion motion) {
    QList<QUuid> highlighted;
    if (m_hovered) {
        highlighted.append(*m_hovered);
    }
    if (m_selectedIndex >= 0 && m_selectedIndex < m_items.size()) {
        highlighted.append(m_items[m_selectedIndex].id);
    }
    m_highlights.setHighlighted(highlighted, motion);
}

std::optional<ListGeometry::Hold> HistoryLayout::hold() const {
    const auto hovered = m_hovered ? rowOf(*m_hovered) : std::nullopt;
    return hovered && m_geometry.isInView(*hovered) ? m_geometry.hold(*hovered) : m_geometry.holdView();
}

void HistoryLayout::keep(const std::optional<ListGeometry::Hold>& hold) {
    hold ? m_geometry.keep(*hold, m_roomBelow) : m_geometry.scrollTo(0);
}

void HistoryLayout::measureAgain(const QList<QUuid>& rows) {
    const auto held = hold();
    for (const QUuid& id : rows) {
        HistoryRow& known = m_rows.of(id);
        if (known.highlightProgress <= 0) {
            known.expandedText.reset();
        }
        if (const auto row = rowOf(id)) {
            m_geometry.measureAgain(*row);
        } else {
            known.height.reset();
        }
    }
    keep(held);
    emit changed();
}

void HistoryLayout::setRoomBelow(RoomBelow room) {
    if (std::exchange(m_roomBelow, room) != room && room == RoomBelow::Close) {
        keep(m_geometry.holdView());
        emit changed();
    }
}

void HistoryLayout::scrollBy(double distance) {
    m_glide.stop();
    m_geometry.scrollBy(distance);
    emit changed();
}

void HistoryLayout::centreOn(int row) {
    m_geometry.measureAround(row);
    m_glideTarget = m_items[row].id;
    if (m_motion() == Motion::Animated) {
        m_glide.start(m_geometry.offset() - m_geometry.centredOffset(row));
        return;
    }
    m_glide.stop();
    m_geometry.scrollTo(m_geometry.centredOffset(row));
    emit changed();
    emit glided();
}

void HistoryLayout::glide() {
    const auto row = rowOf(m_glideTarget);
    if (!row) {
        m_glide.stop();
        return;
    }
    // The goal is looked up anew each time: rows grow and shrink on the way.
    m_geometry.scrollTo(m_geometry.centredOffset(*row) + m_glide.remaining());
    emit changed();
    emit glided();
}

void HistoryLayout::showSelection() {
    m_glide.stop();
    const bool isListed = m_selectedIndex >= 0 && m_selectedIndex < m_items.size();
    if (isListed) {
        m_geometry.measureAround(m_selectedIndex);
    }
    m_geometry.scrollTo(isListed ? m_geometry.centredOffset(m_selectedIndex) : 0);
    emit changed();
    emit glided();
}

} // namespace zamber::popover
