// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ListGeometry.h"

#include <algorithm>
#include <cmath>

namespace zamber::popover {

namespace {

constexpr int LIST_PADDING_VERTICAL = 4;
constexpr int ROW_GAP = 6;
constexpr int GUESSED_ROW_HEIGHT = 36;
/// Measuring rows moves others into view, which are then measured in turn. Hardly any list takes more than two rounds.
constexpr int MOST_MEASURING_ROUNDS = 8;

} // namespace

ListGeometry::ListGeometry(MeasureRow measureRow, int headerHeight)
    : m_measureRow(std::move(measureRow))
    , m_headerHeight(headerHeight)
    , m_stack(LIST_PADDING_VERTICAL, ROW_GAP) {}

void ListGeometry::setRows(const RowSections& sections, const KnownHeight& knownHeight) {
    m_sections = sections;
    m_stack.reset(sections.elementCount(), GUESSED_ROW_HEIGHT);
    for (int element = 0; element < m_stack.count(); ++element) {
        const auto row = sections.rowOfElement(element);
        if (const auto height = row ? knownHeight(*row) : m_headerHeight) {
            m_stack.setHeight(element, *height);
        }
    }
}

ListGeometry::Span ListGeometry::elementSpan(int element) const {
    return {m_stack.top(element) - static_cast<int>(std::lround(m_offset)), m_stack.height(element)};
}

bool ListGeometry::isInView(int row) const {
    const Span span = rowSpan(row);
    return span.top < m_viewHeight && span.top + span.height > 0;
}

double ListGeometry::endOffset() const {
    return std::max(0.0, static_cast<double>(m_stack.totalHeight() - m_viewHeight));
}

void ListGeometry::measure(int element) {
    const auto row = m_sections.rowOfElement(element);
    m_stack.setHeight(element, row ? m_measureRow(*row) : m_headerHeight);
}

void ListGeometry::measureAgain(int row) {
    measure(m_sections.elementOfRow(row));
}

void ListGeometry::measureAround(int row) {
    const int element = m_sections.elementOfRow(row);
    const int rowsInView = m_viewHeight / GUESSED_ROW_HEIGHT + 1;
    const int first = std::max(0, element - rowsInView);
    const int last = std::min(m_stack.count() - 1, element + rowsInView);
    for (int around = first; around <= last; ++around) {
        if (!m_stack.isMeasured(around)) {
            measure(around);
        }
    }
}

bool ListGeometry::measureView() {
    bool hasMeasured = false;
    const auto [first, last] = elementsInView();
    for (int element = first; element <= last; ++element) {
        if (!m_stack.isMeasured(element)) {
            measure(element);
            hasMeasured = true;
        }
    }
    return hasMeasured;
}

template <class Offset>
void ListGeometry::settle(Offset offset) {
    if (isEmpty()) {
        m_offset = 0;
        return;
    }
    int round = 0;
    do {
        m_offset = offset();
    } while (measureView() && ++round < MOST_MEASURING_ROUNDS);
}

ListGeometry::Hold ListGeometry::hold(int row) const {
    const int element = m_sections.elementOfRow(row);
    const double top = m_stack.top(element) - m_offset;
    return {.row = row, .top = top, .bottom = top + m_stack.height(element)};
}

std::optional<ListGeometry::Hold> ListGeometry::holdView() const {
    if (isEmpty()) {
        return std::nullopt;
    }
    const int element = elementAt(0);
    const auto row = m_sections.rowOfElement(element);
    Hold held = hold(row ? *row : *m_sections.rowOfElement(element + 1)); // a header has rows below it
    held.isCutOff = held.top < 0;
    return held;
}

void ListGeometry::keep(const Hold& hold, RoomBelow room) {
    settle([&] {
        const int element = m_sections.elementOfRow(hold.row);
        const double top = hold.isCutOff ? std::min(0.0, hold.bottom - m_stack.height(element)) : hold.top;
        const double offset = std::max(0.0, m_stack.top(element) - top);
        // Room is left below so that rows can stay where they are. Without a row in view none is left.
        const bool leavesRoom = room == RoomBelow::Leave && offset < m_stack.totalHeight() - LIST_PADDING_VERTICAL;
        return leavesRoom ? offset : std::min(offset, endOffset());
    });
}

void ListGeometry::scrollBy(double distance) {
    if (isEmpty()) {
        return;
    }
    const double roomBelow = std::max(0.0, m_offset - endOffset());
    const int element = elementAt(0);
    const double offsetInElement = m_offset - m_stack.top(element);
    settle([&] { return std::clamp(m_stack.top(element) + offsetInElement + distance, 0.0, endOffset() + roomBelow); });
}

void ListGeometry::scrollTo(double offset) {
    settle([&] { return std::clamp(offset, 0.0, endOffset()); });
}

double ListGeometry::centredOffset(int row) const {
    const int element = m_sections.elementOfRow(row);
    const double offset = m_stack.top(element) + m_stack.height(element) / 2.0 - m_viewHeight / 2.0;
    return std::clamp(offset, 0.0, endOffset());
}

} // namespace zamber::popover
