// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace zamber::x11 {

/// The windows of the desktop, by the conventions of window managers (EWMH), or by the X server alone where there is
/// no window manager.
class Windows final : public QObject {
    Q_OBJECT

public:
    explicit Windows(Connection& connection);

    /// The window that has the keyboard: `_NET_ACTIVE_WINDOW`, or the top-level window with the input focus where the
    /// window manager does not tell. Nothing on an empty desktop.
    std::optional<xcb_window_t> activeWindow() const;

    /// `_NET_WM_PID`; nothing where the program does not tell, or runs on another machine (`WM_CLIENT_MACHINE`).
    std::optional<std::int64_t> processId(xcb_window_t window) const;

    /// The class of `WM_CLASS` (its second word), or empty.
    QString windowClass(xcb_window_t window) const;

    /// Asks for the window to come to the front with the keyboard, as a pager does (EWMH, `_NET_ACTIVE_WINDOW`).
    void activate(xcb_window_t window) const;

    /// Asks for the window to come to the desktop that the user is on (EWMH, `_NET_WM_DESKTOP`), unless the user has it
    /// on all of them.
    void moveToCurrentDesktop(xcb_window_t window) const;

    /// Asks for a window of ours, which is shown, to stay out of the taskbar and the pager (EWMH, `_NET_WM_STATE`).
    void keepOutOfTaskbar(xcb_window_t window) const;

    /// Whether the input focus is at that window or at one inside it.
    bool hasFocus(xcb_window_t window) const;

    /// Whether the input focus is at a window of that process, whatever the window manager says (`_NET_WM_PID`).
    bool isFocusOf(std::int64_t processId) const;

    /// Whether the window exists and is not hidden.
    bool isMapped(xcb_window_t window) const;

Q_SIGNALS:
    void activeWindowChanged();

private:
    void tellWindowManager(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5>& data) const;
    bool hasWindowManager() const;
    Owned<xcb_get_window_attributes_reply_t> attributesOf(xcb_window_t window) const;
    bool canBeActive(xcb_window_t window) const;
    xcb_window_t focusWindow() const;
    xcb_window_t parentOf(xcb_window_t window) const;
    std::optional<xcb_window_t> focusedTopLevel() const;

    Connection& m_connection;
};

} // namespace zamber::x11
