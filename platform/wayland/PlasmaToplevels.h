// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/ListedToplevels.h"
#include "platform/wayland/Proxy.h"

namespace zamber::wayland {

/// The windows by plasma-window-management, which KWin offers to programs whose desktop entry asks for it.
class PlasmaToplevels final : public ListedToplevels {
public:
    /// Null where the compositor does not offer the protocol to this program.
    static std::unique_ptr<Toplevels> create(Connection& connection);

private:
    class PlasmaWindow;

    PlasmaToplevels(Connection& connection, org_kde_plasma_window_management* manager);

    Proxy<org_kde_plasma_window_management> m_manager;
};

} // namespace zamber::wayland
