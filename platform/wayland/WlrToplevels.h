// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Proxy.h"
#include "platform/wayland/Toplevels.h"

#include <vector>

namespace zamber::wayland {

/// The windows by wlr-foreign-toplevel-management-unstable-v1.
class WlrToplevels final : public Toplevels {
public:
    /// Null where the compositor lacks the protocol, or a seat.
    static std::unique_ptr<Toplevels> create(Connection& connection);
    ~WlrToplevels() override;

    std::optional<Toplevel> active() const override;
    bool isOpen(std::uint64_t handle) const override;
    void activate(std::uint64_t handle) override;

private:
    struct Window;

    WlrToplevels(Connection& connection, zwlr_foreign_toplevel_manager_v1* manager);
    void add(zwlr_foreign_toplevel_handle_v1* window);

    Connection& m_connection;
    Proxy<zwlr_foreign_toplevel_manager_v1> m_manager;
    std::vector<std::unique_ptr<Window>> m_windows;
    std::uint64_t m_lastHandle = 0;
};

} // namespace zamber::wayland
