// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/ListedToplevels.h"
#include "platform/wayland/Proxy.h"

namespace zamber::wayland {

/// The windows by wlr-foreign-toplevel-management-unstable-v1.
class WlrToplevels final : public ListedToplevels {
public:
    /// Null where the compositor lacks the protocol, or a seat.
    static std::unique_ptr<Toplevels> create(Connection& connection);

private:
    class WlrWindow;

    WlrToplevels(Connection& connection, zwlr_foreign_toplevel_manager_v1* manager);

    wl_seat* m_seat;
    Proxy<zwlr_foreign_toplevel_manager_v1> m_manager;
};

} // namespace zamber::wayland
