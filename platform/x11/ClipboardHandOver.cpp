// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/ClipboardHandOver.h"

#include <utility>

namespace zamber::x11 {

ClipboardHandOver::ClipboardHandOver(Connection& connection, AtomNames& names)
    : m_connection(connection)
    , m_names(names)
    , m_window(connection.createWindow(XCB_EVENT_MASK_NO_EVENT)) {
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handleEvent(event); });
}

ClipboardHandOver::~ClipboardHandOver() {
    xcb_destroy_window(m_connection.raw(), m_window);
}

void ClipboardHandOver::run(xcb_window_t manager, const std::vector<QByteArray>& types) {
    m_manager = manager;
    m_connection.watch(manager, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    // Without a list managers ask for all that is offered, and would have an image converted into every format.
    const std::vector<xcb_atom_t> targets = m_names.atomsOf(types);
    xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, m_window, m_connection.atom(Atom::ZamberAnswer),
                        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(targets.size()), targets.data());
    xcb_convert_selection(m_connection.raw(), m_window, m_connection.atom(Atom::ClipboardManager),
                          m_connection.atom(Atom::SaveTargets), m_connection.atom(Atom::ZamberAnswer),
                          m_connection.lastTimestamp());
    m_connection.serveInPlace([this] { return m_manager == XCB_WINDOW_NONE; }, LONGEST);
    m_manager = XCB_WINDOW_NONE;
}

void ClipboardHandOver::handleEvent(const xcb_generic_event_t& event) {
    const bool isAnswer = codeOf(event) == XCB_SELECTION_NOTIFY &&
                          as<xcb_selection_notify_event_t>(event).requestor == m_window &&
                          as<xcb_selection_notify_event_t>(event).target == m_connection.atom(Atom::SaveTargets);
    const bool hasGone =
        codeOf(event) == XCB_DESTROY_NOTIFY && as<xcb_destroy_notify_event_t>(event).window == m_manager;
    if (isAnswer || hasGone) {
        m_manager = XCB_WINDOW_NONE;
    }
}

} // namespace zamber::x11
