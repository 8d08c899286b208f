// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyMonitor.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zamber {

/// A keyboard that a test presses.
class FakeKeyMonitor final : public KeyMonitor {
public:
    Token addHandler(Handler handler) override {
        m_handlers.emplace_back(++m_lastId, std::move(handler));
        return {m_lastId};
    }

    void removeHandler(Token token) override {
        std::erase_if(m_handlers, [token](const auto& entry) { return entry.first == token.id; });
    }

    /// Presses a key; what became of it.
    KeyDisposition press(HardwareKey key) {
        const auto handlers = m_handlers; // a handler may remove itself and others
        for (const auto& [id, handler] : handlers) {
            const bool isThere = std::ranges::any_of(m_handlers, [&](const auto& entry) { return entry.first == id; });
            if (isThere && handler(key) == KeyDisposition::Swallow) {
                return KeyDisposition::Swallow;
            }
        }
        return KeyDisposition::PassOn;
    }

    std::size_t handlerCount() const { return m_handlers.size(); }

private:
    std::vector<std::pair<std::uint64_t, Handler>> m_handlers;
    std::uint64_t m_lastId = 0;
};

} // namespace zamber
