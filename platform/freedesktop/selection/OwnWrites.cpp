// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/OwnWrites.h"

#include <algorithm>
#include <ranges>

namespace zamber::freedesktop::selection {

void OwnWrites::note(int changeCount, const SelectionContent& content) {
    if (m_writes.size() == MOST_KEPT) {
        m_writes.pop_front();
    }
    m_writes.push_back({.changeCount = changeCount, .content = content});
}

const SelectionContent* OwnWrites::find(int changeCount) const {
    const auto found = std::ranges::find(m_writes, changeCount, &Write::changeCount);
    return found == m_writes.end() ? nullptr : &found->content;
}

std::optional<int> OwnWrites::last() const {
    return m_writes.empty() ? std::nullopt : std::optional(m_writes.back().changeCount);
}

std::optional<int> OwnWrites::newestEqualTo(const SelectionContent& content) const {
    if (content.isEmpty()) {
        return std::nullopt;
    }
    for (const Write& write : m_writes | std::views::reverse) {
        if (write.content.text == content.text && write.content.image == content.image) {
            return write.changeCount;
        }
    }
    return std::nullopt;
}

} // namespace zamber::freedesktop::selection
