// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/x11/Connection.h"

#include <vector>

namespace zamber::x11 {

class Keyboard;

/// Hot keys as passive grabs on the root window, by key code, so that no layout moves them, and once for every
/// combination of the lock modifiers, which are part of what the server compares.
class X11HotKeyCenter final : public QObject, public HotKeyCenter {
    Q_OBJECT

public:
    X11HotKeyCenter(Connection& connection, Keyboard& keyboard);

    QString commandKeyHint() const override;
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override;
    void setPressedHandler(PressedHandler handler) override;

private:
    struct Registration {
        xcb_keycode_t key;
        HotKeyModifiers modifiers;
        std::uint32_t id;
        std::uint16_t grabbedMask = 0;
        std::vector<std::uint16_t> grabbedLocks;
    };

    enum class Outcome { Grabbed, Taken };

    Outcome grab(Registration& registration) const;
    void release(Registration& registration) const;
    void grabAgain();
    std::uint16_t maskOf(HotKeyModifiers modifiers) const;
    void handleEvent(const xcb_generic_event_t& event);
    bool isRepeat(const xcb_key_press_event_t& press);

    Connection& m_connection;
    Keyboard& m_keyboard;
    std::vector<Registration> m_registrations;
    PressedHandler m_handler;
    xcb_keycode_t m_downKey = 0;
    xcb_timestamp_t m_downTime = XCB_CURRENT_TIME;
};

} // namespace zamber::x11
