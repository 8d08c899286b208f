// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <cstdint>
#include <optional>

namespace zamber::x11 {

/// The programs that are connected to the server, as far as it tells (X-Resource extension).
class Clients final {
public:
    explicit Clients(Connection& connection);

    /// The process that a window belongs to, or belonged to before it was destroyed, as the server knows it. Nothing
    /// when that program is no longer connected, runs on another machine, or when the server does not tell.
    std::optional<std::uint32_t> processOf(xcb_window_t window) const;

private:
    Connection& m_connection;
    bool m_isSupported = false;
};

} // namespace zamber::x11
