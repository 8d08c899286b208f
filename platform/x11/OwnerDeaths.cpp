// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/OwnerDeaths.h"

#include <xcb/xfixes.h>

namespace zamber::x11 {

OwnerDeaths::OwnerDeaths(Connection& connection) {
    xcb_connection_t* const raw = connection.raw();
    const auto* const xfixes = xcb_get_extension_data(raw, &xcb_xfixes_id);
    if (xfixes == nullptr || xfixes->present == 0) {
        return;
    }
    xcb_discard_reply(raw, xcb_xfixes_query_version(raw, 5, 0).sequence);
    xcb_xfixes_select_selection_input(raw, connection.root(), connection.atom(Atom::Clipboard),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    connection.flush();
    connection.addEventHandler([this, event = xfixes->first_event + XCB_XFIXES_SELECTION_NOTIFY,
                                clipboard = connection.atom(Atom::Clipboard)](const xcb_generic_event_t& received) {
        if (codeOf(received) == event && as<xcb_xfixes_selection_notify_event_t>(received).selection == clipboard) {
            Q_EMIT ownerDied();
        }
    });
}

} // namespace zamber::x11
