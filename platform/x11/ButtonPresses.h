// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/tray/PointerButtons.h"
#include "platform/x11/Connection.h"

namespace zamber::x11 {

/// The pointer's buttons by X Input 2: raw events of the root window.
class ButtonPresses final : public freedesktop::tray::PointerButtons {
public:
    explicit ButtonPresses(Connection& connection);

    void setListening(Listening listening) override;
    void catchUp() override;

private:
    void handle(const xcb_generic_event_t& event);

    Connection& m_connection;
    std::uint8_t m_opcode = 0;
};

} // namespace zamber::x11
