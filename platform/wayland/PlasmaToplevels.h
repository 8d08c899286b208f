// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Proxy.h"
#include "platform/wayland/Toplevels.h"

#include <vector>

namespace zamber::wayland {

/// The windows by plasma-window-management, which KWin offers to programs whose desktop entry asks for it.
class PlasmaToplevels final : public Toplevels {
public:
    /// Null where the compositor does not offer the protocol to this program.
    static std::unique_ptr<Toplevels> create(Connection& connection);
    ~PlasmaToplevels() override;

    std::optional<Toplevel> active() const override;
    bool isOpen(std::uint64_t handle) const override;
    void activate(std::uint64_t handle) override;

private:
    struct Window;

    PlasmaToplevels(Connection& connection, org_kde_plasma_window_management* manager);
    void add(const char* uuid);

    Connection& m_connection;
    Proxy<org_kde_plasma_window_management> m_manager;
    std::vector<std::unique_ptr<Window>> m_windows;
    std::uint64_t m_lastHandle = 0;
};

} // namespace zamber::wayland
