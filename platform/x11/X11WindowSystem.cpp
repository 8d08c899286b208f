// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11WindowSystem.h"

#include "platform/x11/Windows.h"

#include <unistd.h>
#include <xcb/xfixes.h>

#include <array>
#include <string>

namespace zamber::x11 {

X11WindowSystem::X11WindowSystem(Connection& connection, const Windows& windows)
    : m_connection(connection)
    , m_windows(windows)
    , m_panels(connection)
    , m_compositor(connection.intern("_NET_WM_CM_S" + std::to_string(connection.screenNumber())))
    , m_shadow(connection.intern("_GTK_FRAME_EXTENTS")) {
    watchCompositor();
}

void X11WindowSystem::watchCompositor() {
    xcb_connection_t* const raw = m_connection.raw();
    const auto* const xfixes = xcb_get_extension_data(raw, &xcb_xfixes_id);
    if (xfixes == nullptr || xfixes->present == 0) {
        return;
    }
    xcb_discard_reply(raw, xcb_xfixes_query_version(raw, 5, 0).sequence);
    xcb_xfixes_select_selection_input(raw, m_connection.root(), m_compositor,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const auto ownerChange = static_cast<std::uint8_t>(xfixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    m_connection.addEventHandler([this, ownerChange](const xcb_generic_event_t& event) {
        if (codeOf(event) == ownerChange && as<xcb_xfixes_selection_notify_event_t>(event).selection == m_compositor) {
            Q_EMIT compositedChanged();
        }
    });
}

bool X11WindowSystem::isComposited() const {
    return m_connection.selectionOwner(m_compositor) != XCB_WINDOW_NONE;
}

void X11WindowSystem::setShadow(WId window, const QMargins& shadow) {
    // GTK's property, which the window managers that move windows into the work area heed as well.
    const std::array extents{static_cast<std::uint32_t>(shadow.left()), static_cast<std::uint32_t>(shadow.right()),
                             static_cast<std::uint32_t>(shadow.top()), static_cast<std::uint32_t>(shadow.bottom())};
    xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window), m_shadow,
                        XCB_ATOM_CARDINAL, 32, extents.size(), extents.data());
    // Qt shows the window by another connection: the property has to be there first.
    const Owned<xcb_get_input_focus_reply_t> arrived(
        xcb_get_input_focus_reply(m_connection.raw(), xcb_get_input_focus(m_connection.raw()), nullptr));
}

bool X11WindowSystem::hasKeyboardFocus() const {
    return m_windows.isFocusOf(getpid());
}

void X11WindowSystem::presentPopover(WId window) {
    m_windows.keepOutOfTaskbar(static_cast<xcb_window_t>(window));
    m_windows.activate(static_cast<xcb_window_t>(window));
}

void X11WindowSystem::bringToFront(WId window) {
    // Asked to the front alone, the user would be taken to the desktop that the window is on.
    m_windows.moveToCurrentDesktop(static_cast<xcb_window_t>(window));
    m_windows.activate(static_cast<xcb_window_t>(window));
}

} // namespace zamber::x11
