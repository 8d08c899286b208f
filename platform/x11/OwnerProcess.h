// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <xcb/res.h>

#include <cstdint>
#include <optional>

namespace zamber::x11 {

/// The program that has owned a selection last, and whether it is still connected to the server (X-Resource extension).
class OwnerProcess final {
public:
    explicit OwnerProcess(Connection& connection);
    ~OwnerProcess();
    OwnerProcess(const OwnerProcess&) = delete;
    OwnerProcess& operator=(const OwnerProcess&) = delete;

    /// This window owns the selection now. The server is asked whose it is, and not waited for.
    void note(xcb_window_t owner);

    /// Whether the owner's window still belongs to the program that it belonged to when it was noted, even though it
    /// may have been destroyed. True also when that program runs on another machine or the server does not tell. Waits
    /// for the server.
    bool isRunning() const;

private:
    /// Nothing when no local program that the server knows has the window.
    std::optional<std::uint32_t> answer(xcb_res_query_client_ids_cookie_t question) const;
    xcb_res_query_client_ids_cookie_t ask() const;
    void forgetQuestion();

    Connection& m_connection;
    bool m_isSupported = false;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    mutable std::optional<xcb_res_query_client_ids_cookie_t> m_question; ///< until its answer has been needed
    mutable std::optional<std::uint32_t> m_process;
};

} // namespace zamber::x11
