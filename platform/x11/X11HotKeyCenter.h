// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/x11/Connection.h"

#include <QTimer>

#include <functional>
#include <vector>

namespace zamber::x11 {

class Keyboard;

/// Hot keys as passive grabs on the root window, by key code, so that no layout moves them, and once for every
/// combination of the lock modifiers, which are part of what the server compares.
///
/// An open menu of this program has the whole keyboard, so that no grab of a key becomes active. The press comes to the
/// menu then; it is taken from there, and the menu closes.
class X11HotKeyCenter final : public QObject, public HotKeyCenter {
    Q_OBJECT

public:
    using CloseMenus = std::function<void()>;

    X11HotKeyCenter(Connection& connection, Keyboard& keyboard, CloseMenus closeMenus);

    QString commandKeyHint() const override;
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override;
    void setPressedHandler(PressedHandler handler) override;

    /// The keys of hot keys that are held down. As long as there is one, its grab takes every key event of the
    /// keyboard, those that this program types included.
    std::vector<xcb_keycode_t> heldKeys() const;

    /// Ends the grabs of the keys that are held, so that key events go to the window with the focus again.
    void ungrabKeyboard();

Q_SIGNALS:
    /// The last key of a hot key that was held has come up.
    void keysReleased();

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
    bool eventFilter(QObject* watched, QEvent* event) override;
    const Registration* findRegistration(xcb_keycode_t key, std::uint32_t state) const;
    void handlePress(const xcb_key_press_event_t& event);
    void press(const Registration& registration);
    void tellPressInMenu(const Registration& registration);
    void forgetReleasedKeys();
    void grabKeyboard();
    void forgetKey(xcb_keycode_t key, xcb_timestamp_t time);
    void endGrab(xcb_timestamp_t time);
    bool isRepeat(xcb_keycode_t key);

    Connection& m_connection;
    Keyboard& m_keyboard;
    CloseMenus m_closeMenus;
    std::vector<Registration> m_registrations;
    PressedHandler m_handler;
    std::vector<xcb_keycode_t> m_held;
    bool m_hasGrabbedKeyboard = false; // beyond what the server grabs with a single key
    int m_grabAttemptsLeft = 0;
    QTimer m_lookAtHeldKeys;
};

} // namespace zamber::x11
