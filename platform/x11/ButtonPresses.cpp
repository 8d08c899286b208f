// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/ButtonPresses.h"

#include <QCursor>

#include <xcb/xinput.h>

namespace zamber::x11 {

namespace {

/// The button of a press; none for the wheel's turns, which come as presses of buttons 4 to 7.
Qt::MouseButton buttonOf(std::uint32_t detail) {
    constexpr std::uint32_t FIRST_OF_WHEEL = 4;
    constexpr std::uint32_t LAST_OF_WHEEL = 7;
    if (detail >= FIRST_OF_WHEEL && detail <= LAST_OF_WHEEL) {
        return Qt::NoButton;
    }
    return detail == XCB_BUTTON_INDEX_1   ? Qt::LeftButton
           : detail == XCB_BUTTON_INDEX_2 ? Qt::MiddleButton
           : detail == XCB_BUTTON_INDEX_3 ? Qt::RightButton
                                          : Qt::ExtraButton1;
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
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handle(event); });
}

void ButtonPresses::handle(const xcb_generic_event_t& event) {
    if (codeOf(event) != XCB_GE_GENERIC || as<xcb_ge_generic_event_t>(event).extension != m_opcode) {
        return;
    }
    const auto& raw = as<xcb_input_raw_button_press_event_t>(event); // a release has the same fields
    const Qt::MouseButton button = buttonOf(raw.detail);
    if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS && button != Qt::NoButton) {
        Q_EMIT pressed(button, QCursor::pos());
    } else if (raw.event_type == XCB_INPUT_RAW_BUTTON_RELEASE && button != Qt::NoButton) {
        Q_EMIT released();
    }
}

void ButtonPresses::setListening(Listening listening) {
    if (m_opcode == 0) {
        return;
    }
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{.head = {.deviceid = XCB_INPUT_DEVICE_ALL_MASTER, .mask_len = 1},
                .mask = listening == Listening::On ? std::uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
                                                                   XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE}
                                                   : 0U};
    xcb_input_xi_select_events(m_connection.raw(), m_connection.root(), 1, &selection.head);
    m_connection.flush();
}

void ButtonPresses::catchUp() {
    m_connection.catchUp();
}

} // namespace zamber::x11
