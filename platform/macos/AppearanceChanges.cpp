// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/AppearanceChanges.h"

#include <utility>

namespace zamber::macos {

void AppearanceChanges::addHandler(std::function<void()> handler) {
    m_handlers.push_back(std::move(handler));
}

void AppearanceChanges::take(const AppearanceValues& values) {
    if (values == m_last) {
        return;
    }
    m_last = values;
    const auto handlers = m_handlers; // a handler that is called may add another one
    for (const auto& handler : handlers) {
        handler();
    }
}

} // namespace zamber::macos
