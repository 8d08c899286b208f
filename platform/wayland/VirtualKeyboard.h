// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/PasteKeyboard.h"
#include "platform/wayland/Proxy.h"

#include <memory>

namespace zamber::wayland {

class Connection;

/// A second keyboard beside the user's, by virtual-keyboard-unstable-v1. It has its own layout, so that its keys mean
/// the same in every layout of the user's, and its own modifiers, so that those that the user holds do not count.
class VirtualKeyboard final : public PasteKeyboard {
public:
    /// Null where the compositor lets no program be a keyboard.
    static std::unique_ptr<VirtualKeyboard> create(Connection& connection);
    ~VirtualKeyboard() override;

    bool type(PasteKeystroke keystroke) override;

private:
    VirtualKeyboard(Connection& connection, zwp_virtual_keyboard_v1* keyboard);
    bool sendKeymap();
    void send(std::uint32_t key, std::uint32_t state);

    Connection& m_connection;
    Proxy<zwp_virtual_keyboard_v1> m_keyboard;
};

} // namespace zamber::wayland
