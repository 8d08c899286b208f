// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/LookChanges.h"

#include <utility>

namespace zamber::macos {

void LookChanges::addHandler(std::function<void()> handler) {
    m_handlers.push_back(std::move(handler));
}

void LookChanges::take(const Look& look) {
    if (look == m_last) {
        return;
    }
    m_last = look;
    const auto handlers = m_handlers; // one that is told may add another
    for (const auto& handler : handlers) {
        handler();
    }
}

} // namespace zamber::macos
