// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/ButtonPresses.h"

#include <xcb/xinput.h>

namespace zamber::x11 {

namespace {

/// The wheel comes as presses of buttons 4 to 7.
bool isWheel(std::uint32_t button) {
    return button >= 4 && button <= 7;
}

} // namespace

ButtonPresses::ButtonPresses(Connection& connection)
    : m_connection(connection) {
    const auto* const extension = xcb_get_extension_data(connection.raw(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0) {
        return;
    }
    m_opcode = extension->major_opcode;
    xcb_discard_reply(connection.raw(), xcb_input_xi_query_version(connection.raw(), 2, 2).sequence);
    connection.addEventHandler([this](const xcb_generic_event_t& event) {
        if (codeOf(event) != XCB_GE_GENERIC) {
            return;
        }
        const auto& generic = as<xcb_ge_generic_event_t>(event);
        if (generic.extension == m_opcode && generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
            !isWheel(as<xcb_input_raw_button_press_event_t>(event).detail)) {
            Q_EMIT pressed();
        }
    });
}

void ButtonPresses::setListening(Listening listening) {
    if (m_opcode == 0) {
        return;
    }
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{.head = {.deviceid = XCB_INPUT_DEVICE_ALL_MASTER, .mask_len = 1},
                .mask = listening == Listening::On ? std::uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS} : 0U};
    xcb_input_xi_select_events(m_connection.raw(), m_connection.root(), 1, &selection.head);
    m_connection.flush();
}

} // namespace zamber::x11
