// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zamber {

/// The calls of several fakes, in the order in which they happened.
class Journal {
public:
    void note(std::string entry) {
        m_entries.push_back(std::move(entry));
        if (onNote) {
            onNote();
        }
    }

    const std::vector<std::string>& entries() const { return m_entries; }
    void clear() { m_entries.clear(); }

    /// Called after each note, for looking at state that no port is told of. It may note something itself.
    std::function<void()> onNote;

private:
    std::vector<std::string> m_entries;
};

} // namespace zamber
