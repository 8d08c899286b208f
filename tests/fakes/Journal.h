// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zamber {

/// What several fakes were asked, in the order in which it happened.
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

    /// Called after each note: for looking at what nobody is asked about. It may note something itself.
    std::function<void()> onNote;

private:
    std::vector<std::string> m_entries;
};

} // namespace zamber
