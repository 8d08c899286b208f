// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/Clients.h"

#include <xcb/res.h>

namespace zamber::x11 {

Clients::Clients(Connection& connection)
    : m_connection(connection) {
    xcb_prefetch_extension_data(connection.raw(), &xcb_res_id);
    const auto* const extension = xcb_get_extension_data(connection.raw(), &xcb_res_id);
    if (extension == nullptr || extension->present == 0) {
        return;
    }
    const auto cookie = xcb_res_query_version(connection.raw(), 1, 2);
    const Owned<xcb_res_query_version_reply_t> version(xcb_res_query_version_reply(connection.raw(), cookie, nullptr));
    m_isSupported = version && (version->server_major > 1 || version->server_minor >= 2);
}

std::optional<std::uint32_t> Clients::processOf(xcb_window_t window) const {
    if (!m_isSupported) {
        return std::nullopt;
    }
    const xcb_res_client_id_spec_t question{.client = window, .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto cookie = xcb_res_query_client_ids(m_connection.raw(), 1, &question);
    const Owned<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(m_connection.raw(), cookie, nullptr));
    if (!reply) {
        return std::nullopt;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
            xcb_res_client_id_value_value_length(ids.data) > 0) {
            return *xcb_res_client_id_value_value(ids.data);
        }
    }
    return std::nullopt;
}

} // namespace zamber::x11
