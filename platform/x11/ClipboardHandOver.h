// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/AtomNames.h"

#include <chrono>
#include <vector>

namespace zamber::x11 {

/// Hands what this program serves to the session's clipboard manager when the program ends (freedesktop.org's clipboard
/// manager protocol, the side of the owner).
class ClipboardHandOver final {
public:
    /// The user, who has quit the program, is not kept waiting longer than this.
    static constexpr std::chrono::seconds LONGEST{3};

    ClipboardHandOver(Connection& connection, AtomNames& names);
    ~ClipboardHandOver();
    ClipboardHandOver(const ClipboardHandOver&) = delete;
    ClipboardHandOver& operator=(const ClipboardHandOver&) = delete;

    /// Asks the manager, which owns the window, to save these types of the clipboard. Waits in place, answering the
    /// requests for the clipboard and nothing else, until the manager is done, refuses, or has gone, or time is up.
    void run(xcb_window_t manager, const std::vector<QByteArray>& types);

private:
    void handleEvent(const xcb_generic_event_t& event);

    Connection& m_connection;
    AtomNames& m_names;
    xcb_window_t m_window;
    xcb_window_t m_manager = XCB_WINDOW_NONE; // while it is asked
};

} // namespace zamber::x11
