// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/OwnerProcess.h"

#include <utility>

namespace zamber::x11 {

OwnerProcess::OwnerProcess(Connection& connection)
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

OwnerProcess::~OwnerProcess() {
    forgetQuestion();
}

void OwnerProcess::note(xcb_window_t owner) {
    forgetQuestion();
    m_window = owner;
    m_process.reset();
    if (m_isSupported) {
        m_question = ask();
    }
}

bool OwnerProcess::isRunning() const {
    if (m_question) {
        m_process = answer(*std::exchange(m_question, std::nullopt));
    }
    // Without an answer about the owner when it was one, there is no telling that it has gone.
    return !m_process || answer(ask()) == m_process;
}

xcb_res_query_client_ids_cookie_t OwnerProcess::ask() const {
    const xcb_res_client_id_spec_t question{.client = m_window, .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    return xcb_res_query_client_ids(m_connection.raw(), 1, &question);
}

std::optional<std::uint32_t> OwnerProcess::answer(xcb_res_query_client_ids_cookie_t question) const {
    const Owned<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(m_connection.raw(), question, nullptr));
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

void OwnerProcess::forgetQuestion() {
    if (const auto question = std::exchange(m_question, std::nullopt)) {
        xcb_discard_reply(m_connection.raw(), question->sequence);
    }
}

} // namespace zamber::x11
