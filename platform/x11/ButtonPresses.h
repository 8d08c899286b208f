// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

namespace zamber::x11 {

/// Sees the presses of mouse buttons anywhere on the screen, in other programs' windows too, without taking them away
/// (X Input 2, raw events of the root window). Nothing is asked of the server while nobody listens.
class ButtonPresses final : public QObject {
    Q_OBJECT

public:
    explicit ButtonPresses(Connection& connection);

    enum class Listening { Off, On };
    void setListening(Listening listening);

Q_SIGNALS:
    void pressed();

private:
    Connection& m_connection;
    std::uint8_t m_opcode = 0;
};

} // namespace zamber::x11
