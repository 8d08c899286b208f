// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/SelectionContent.h"

#include <deque>
#include <optional>

namespace zamber::freedesktop::selection {

/// What this program has written to the clipboard since another one copied, by change count: pastes that wait for
/// their turn insert what was written for them, not what was written last. The bytes are shared, not copied.
class OwnWrites final {
public:
    /// More than anybody chooses within the seconds that a paste may wait.
    static constexpr std::size_t MOST_KEPT = 64;

    void note(int changeCount, const SelectionContent& content);
    void forget() { m_writes.clear(); }

    /// Nothing when it was not written, or forgotten.
    const SelectionContent* find(int changeCount) const;

    /// The change count of the last write, where there is one.
    std::optional<int> last() const;

    /// The change count of the newest write with that content; nothing for an empty one.
    std::optional<int> newestEqualTo(const SelectionContent& content) const;

private:
    struct Write {
        int changeCount = 0;
        SelectionContent content;
    };

    std::deque<Write> m_writes; // the newest last
};

} // namespace zamber::freedesktop::selection
