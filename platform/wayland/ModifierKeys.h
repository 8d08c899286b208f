// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/HeldKeys.h"
#include "platform/wayland/Proxy.h"

#include <cstdint>
#include <memory>
#include <set>

namespace zamber::wayland {

class Connection;

/// Which modifiers the user holds, by org_kde_kwin_keystate, which KWin offers to programs whose desktop entry asks for
/// it.
class ModifierKeys final : public HeldKeys {
public:
    /// Null where the compositor does not tell of modifiers; KWin does since version 6.
    static std::unique_ptr<ModifierKeys> create(Connection& connection);

    bool isAnyHeld() const override { return !m_held.empty(); }

private:
    explicit ModifierKeys(org_kde_kwin_keystate* states);
    void handleState(std::uint32_t key, std::uint32_t state);

    Proxy<org_kde_kwin_keystate> m_states;
    std::set<std::uint32_t> m_held;
};

} // namespace zamber::wayland
