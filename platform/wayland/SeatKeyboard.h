// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/KeymapLookup.h"
#include "platform/wayland/Proxy.h"

#include <QObject>

#include <memory>

namespace zamber::wayland {

class Connection;

/// The user's keyboard, as far as a program without the focus learns of it: its keymap, with all of the user's layouts.
class SeatKeyboard final : public QObject {
    Q_OBJECT

public:
    /// Null where the compositor has no seat.
    static std::unique_ptr<SeatKeyboard> create(Connection& connection);
    ~SeatKeyboard() override;

    /// Null as long as the seat has no keyboard.
    xkb_keymap* keymap() const { return m_keymap.get(); }

Q_SIGNALS:
    /// Keys have new meanings, since the user has changed the layouts or has plugged in another keyboard.
    void keymapChanged();

private:
    explicit SeatKeyboard(wl_seat* seat);
    void handleCapabilities(std::uint32_t capabilities);
    void handleKeymap(std::uint32_t format, int descriptor, std::uint32_t size);

    Proxy<wl_seat> m_seat;
    Proxy<wl_keyboard> m_keyboard;
    KeymapContext m_context;
    Keymap m_keymap;
};

} // namespace zamber::wayland
