// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/HistoryListWidget.h"

#include "HistoryListExpansion.h"

#include "platform/Appearance.h"
#include "popover/HistoryListAccessible.h"
#include "ui/Typography.h"

#include <QAccessible>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zamber::popover {

namespace {

constexpr int PADDING_VERTICAL = 4;
constexpr int PADDING_HORIZONTAL = 8;
constexpr int ROW_GAP = 6;
constexpr int GUESSED_ROW_HEIGHT = 36;
constexpr int HEADER_PADDING_TOP = 8;
constexpr int HEADER_PADDING_BOTTOM = 2;
/// Measuring rows moves others into view, which are then measured in turn; it settles at once but for odd lists.
constexpr int MOST_MEASURING_ROUNDS = 8;

} // namespace

HistoryListWidget::HistoryListWidget(const Symbols& symbols, const Appearance& appearance, const Scheduler& clock,
                                     LinkDetector* linkDetector, QWidget* parent)
    : QWidget(parent)
    , m_symbols(symbols)
    , m_appearance(appearance)
    , m_clock(clock)
    , m_stack(PADDING_VERTICAL, ROW_GAP)
    , m_links(linkDetector) {
    HistoryListAccessible::install();
    setAccessibleName(QStringLiteral("Clipboard history"));
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);

    connect(&m_glide, &GlidingScroll::advanced, this, &HistoryListWidget::glide);
    connect(&m_highlights, &RowHighlights::advanced, this, &HistoryListWidget::highlightsAdvanced);
    connect(&m_thumbnails, &ThumbnailCache::loaded, this, &HistoryListWidget::remeasure);
    connect(&m_largeTexts, &LargeTexts::measured, this, &HistoryListWidget::remeasure);
}

HistoryListWidget::~HistoryListWidget() = default;

void HistoryListWidget::setItems(const QList<clipboard::ClipboardItem>& items) {
    m_items = items;
    const auto firstRecent = std::ranges::partition_point(m_items, &clipboard::ClipboardItem::isPinned);
    m_sections = {static_cast<int>(m_items.size()), static_cast<int>(firstRecent - m_items.begin())};
    const bool wasHovered = std::exchange(m_hovered, std::nullopt).has_value();
    std::erase_if(m_expansions, [this](const auto& entry) { return !rowOf(entry.first); });
    invalidateHeights();
    if (wasHovered && m_pointer) {
        m_hovered = targetAt(*m_pointer); // the pointer stays where it is, the rows have moved
    }
    updateHighlights(Motion::Immediate);

    QAccessibleEvent reordered(this, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&reordered);
}

std::optional<int> HistoryListWidget::rowOf(const QUuid& id) const {
    // The few rows that are looked for are near the top nearly always; an index of all would have to be made anew at
    // every key press in the search field.
    const auto found = std::ranges::find(m_items, id, &clipboard::ClipboardItem::id);
    return found == m_items.end() ? std::nullopt : std::optional(static_cast<int>(found - m_items.begin()));
}

void HistoryListWidget::forgetOthersThan(const QList<clipboard::ClipboardItem>& items) {
    m_thumbnails.keepOnly(items);
    m_links.keepOnly(items);
    m_largeTexts.keepOnly(items);
}

void HistoryListWidget::remeasure(const QUuid& id) {
    if (const auto row = rowOf(id)) {
        keepingPlace([&] { measure(m_sections.elementOfRow(*row)); });
    }
}

void HistoryListWidget::setPreferences(const RowPreferences& preferences) {
    m_preferences = preferences;
    invalidateHeights();
}

void HistoryListWidget::setColors(const ui::Palette& palette) {
    m_palette = palette;
    update();
}

void HistoryListWidget::setSelectedIndex(int index) {
    m_selectedIndex = index;
    updateHighlights(motion());
}

Motion HistoryListWidget::motion() const {
    return m_appearance.reducedMotion() || !isVisible() ? Motion::Immediate : Motion::Animated;
}

ClipboardRowView HistoryListWidget::rowView(int row) {
    const clipboard::ClipboardItem& entry = item(row);
    return {entry,
            isHovered(row),
            m_preferences,
            m_thumbnails.thumbnail(entry, devicePixelRatioF()),
            m_links.in(entry),
            m_largeTexts.isMeasured(entry) ? TextState::Measured : TextState::Pending};
}

int HistoryListWidget::rowWidth() const {
    return width() - 2 * PADDING_HORIZONTAL;
}

QRect HistoryListWidget::rowRectangle(int index) const {
    const int element = m_sections.elementOfRow(index);
    const int top = m_stack.top(element) - static_cast<int>(std::lround(m_scrollOffset));
    return {PADDING_HORIZONTAL, top, rowWidth(), m_stack.height(element)};
}

bool HistoryListWidget::isHovered(int index) const {
    return index == m_selectedIndex || (m_hovered && m_hovered->row == item(index).id);
}

void HistoryListWidget::invalidateHeights() {
    m_stack.reset(m_sections.elementCount(), GUESSED_ROW_HEIGHT);
    measureVisible();
    update();
}

void HistoryListWidget::measure(int element) {
    if (const auto row = m_sections.rowOfElement(element)) {
        m_stack.setHeight(element, currentHeight(*row));
    } else {
        m_stack.setHeight(element,
                          HEADER_PADDING_TOP + lineHeight(ui::textFont(10, QFont::DemiBold)) + HEADER_PADDING_BOTTOM);
    }
}

int HistoryListWidget::currentHeight(int row) {
    const ClipboardRowView view = rowView(row);
    const int compact = view.compactHeight(rowWidth());
    const double highlight = m_highlights.value(item(row).id);
    if (highlight <= 0 || !view.isExpandable()) {
        return compact;
    }
    const int expanded = view.expandedHeight(expansion(row).layout.height(ClipboardRowView::MOST_TEXT_HEIGHT));
    return compact + static_cast<int>(std::lround((expanded - compact) * highlight));
}

HistoryListWidget::Expansion& HistoryListWidget::expansion(int row) {
    const clipboard::ClipboardItem& entry = item(row);
    const ClipboardRowView view(entry, true, m_preferences, {}, m_links.in(entry));
    const int textWidth = view.contentWidth(rowWidth());
    auto found = m_expansions.find(entry.id);
    if (found == m_expansions.end() || found->second.layout.width() != textWidth) {
        m_expansions.erase(entry.id);
        LazyTextLayout layout(entry.content.bytes(), ui::textFont(12), textWidth);
        found = m_expansions.emplace(entry.id, Expansion{std::move(layout)}).first;
    }
    return found->second;
}

void HistoryListWidget::measureVisible() {
    for (int round = 0; round < MOST_MEASURING_ROUNDS && m_stack.count() > 0; ++round) {
        scrollTo(m_scrollOffset);
        bool isSettled = true;
        const int last = m_stack.indexAt(m_scrollOffset + height());
        for (int element = m_stack.indexAt(m_scrollOffset); element <= last; ++element) {
            if (!m_stack.isMeasured(element)) {
                measure(element);
                isSettled = false;
            }
        }
        if (isSettled) {
            return;
        }
    }
}

void HistoryListWidget::measureAround(int row) {
    const int element = m_sections.elementOfRow(row);
    const int rowsInView = height() / GUESSED_ROW_HEIGHT + 1;
    const int first = std::max(0, element - rowsInView);
    const int last = std::min(m_stack.count() - 1, element + rowsInView);
    for (int around = first; around <= last; ++around) {
        if (!m_stack.isMeasured(around)) {
            measure(around);
        }
    }
}

template <class Change>
void HistoryListWidget::keepingPlace(Change change) {
    if (m_stack.count() == 0) {
        return;
    }
    // The row under the pointer is the one to keep still; else the first that is seen.
    int anchor = m_stack.indexAt(m_scrollOffset);
    if (m_hovered) {
        anchor = m_sections.elementOfRow(rowOf(m_hovered->row).value_or(0));
    }
    const int before = m_stack.top(anchor);
    change();
    scrollTo(m_scrollOffset + m_stack.top(anchor) - before);
    measureVisible();
    update();
}

void HistoryListWidget::updateHighlights(Motion motion) {
    QSet<QUuid> highlighted;
    if (m_hovered) {
        highlighted.insert(m_hovered->row);
    }
    if (m_selectedIndex >= 0 && m_selectedIndex < m_items.size()) {
        highlighted.insert(item(m_selectedIndex).id);
    }
    m_highlights.setHighlighted(highlighted, motion);
    highlightsAdvanced();
}

void HistoryListWidget::highlightsAdvanced() {
    // Those whose light has just gone out change their height for the last time.
    const QList<QUuid> lit = m_highlights.lit();
    const QList<QUuid> affected = lit + std::exchange(m_litBefore, lit);
    keepingPlace([&] {
        for (const QUuid& id : affected) {
            const auto row = rowOf(id);
            if (row && m_sections.elementOfRow(*row) < m_stack.count()) {
                measure(m_sections.elementOfRow(*row));
            }
        }
    });
    std::erase_if(m_expansions, [this](const auto& entry) { return m_highlights.value(entry.first) <= 0; });
}

void HistoryListWidget::scrollTo(double offset) {
    m_scrollOffset = std::clamp(offset, 0.0, std::max(0.0, static_cast<double>(m_stack.totalHeight() - height())));
}

void HistoryListWidget::startAtTop() {
    m_glide.stop();
    m_selectedIndex = 0;
    updateHighlights(Motion::Immediate);
    scrollTo(0);
    measureVisible();
    update();
}

double HistoryListWidget::centredOffset(int row) const {
    const int element = m_sections.elementOfRow(row);
    const double offset = m_stack.top(element) + m_stack.height(element) / 2.0 - height() / 2.0;
    return std::clamp(offset, 0.0, std::max(0.0, static_cast<double>(m_stack.totalHeight() - height())));
}

void HistoryListWidget::centreOn(int index) {
    measureAround(index);
    m_glideTarget = item(index).id;
    if (motion() == Motion::Animated) {
        m_glide.start(m_scrollOffset - centredOffset(index));
        return;
    }
    scrollTo(centredOffset(index));
    measureVisible();
    forgetHoverThatMovedAway();
    update();
}

void HistoryListWidget::glide() {
    const auto row = rowOf(m_glideTarget);
    if (!row) {
        m_glide.stop();
        return;
    }
    // The goal is looked up anew each time: rows grow and shrink on the way.
    scrollTo(centredOffset(*row) + m_glide.remaining());
    measureVisible();
    forgetHoverThatMovedAway();
    update();
}

} // namespace zamber::popover
