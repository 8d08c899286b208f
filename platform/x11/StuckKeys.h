// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/x11/Connection.h"

#include <QTimer>

#include <vector>

namespace zamber::x11 {

class Keyboard;

/// Keys of hot keys that the compositor keeps to itself. When a window of XWayland gets the focus meanwhile, as the
/// popover does, XWayland is told that the key is down, and with some compositors never that it has come up: it would
/// type the key into the window without end. It is let go here.
class StuckKeys final : public QObject {
    Q_OBJECT

public:
    StuckKeys(Connection& connection, Keyboard& keyboard);

    /// The user has pressed the hot key with that key, or has let go of it.
    void notePress(PhysicalKey key);
    void noteRelease(PhysicalKey key);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void letGo();

    Connection& m_connection;
    Keyboard& m_keyboard;
    std::vector<xcb_keycode_t> m_held;     // by the user: what it types is no typing
    std::vector<xcb_keycode_t> m_released; // by the user a moment ago
    int m_looksLeft = 0;
    QTimer m_look;
};

} // namespace zamber::x11
