// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/KeyHandlers.h"

#include <algorithm>

namespace zamber::macos {

KeyMonitor::Token KeyHandlers::add(KeyMonitor::Handler handler) {
    m_handlers.emplace_back(++m_lastId, std::move(handler));
    return {m_lastId};
}

void KeyHandlers::remove(KeyMonitor::Token token) {
    std::erase_if(m_handlers, [token](const Entry& entry) { return entry.first == token.id; });
}

KeyDisposition KeyHandlers::ask(HardwareKey key) const {
    const std::vector<Entry> handlers = m_handlers;
    for (const auto& [id, handler] : handlers) {
        const bool isStillThere = std::ranges::find(m_handlers, id, &Entry::first) != m_handlers.end();
        if (isStillThere && handler(key) == KeyDisposition::Swallow) {
            return KeyDisposition::Swallow;
        }
    }
    return KeyDisposition::PassOn;
}

} // namespace zamber::macos
