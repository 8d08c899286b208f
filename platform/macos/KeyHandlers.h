// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyMonitor.h"

#include <utility>
#include <vector>

namespace zamber::macos {

/// The handlers of a key monitor, in the order in which they were added.
class KeyHandlers {
public:
    KeyMonitor::Token add(KeyMonitor::Handler handler);
    void remove(KeyMonitor::Token token);
    bool isEmpty() const { return m_handlers.empty(); }

    /// Calls one handler after the other until one swallows the key. Handlers may remove themselves and each other.
    KeyDisposition ask(HardwareKey key) const;

private:
    using Entry = std::pair<std::uint64_t, KeyMonitor::Handler>;

    std::vector<Entry> m_handlers;
    std::uint64_t m_lastId = 0;
};

} // namespace zamber::macos
