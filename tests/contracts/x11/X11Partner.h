// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/StatusItem.h"

#include <QByteArray>
#include <QPoint>

#include <xcb/xcb.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zamber::x11 {

/// Another program on the same X server, and the user at the keyboard and the mouse (by XTEST). It acts when it
/// catches up with the server, so that it and the program under test share one thread.
class X11Partner final {
public:
    X11Partner();
    ~X11Partner();
    X11Partner(const X11Partner&) = delete;
    X11Partner& operator=(const X11Partner&) = delete;

    // Windows
    xcb_window_t openWindow(const char* windowClass);
    /// As Mutter does while a program of Wayland is in front: a window of its own, outside of the screen, is active.
    void activateUnmanagedWindow();
    void closeWindow(xcb_window_t window);
    void activateWindow(xcb_window_t window);
    xcb_window_t activeWindow() const;
    /// Asks the window manager something and waits for its answer: what it was asked before has been done then. False
    /// without an answer.
    bool askWindowManager();
    /// Whether the window and all that it lies in are on the screen.
    bool isViewable(xcb_window_t window) const;
    /// The middle of the window, in pixels of the screen.
    QPoint centreOf(xcb_window_t window) const;
    /// How often Ctrl and the V key were pressed in that window.
    int pastesReceived(xcb_window_t window) const;

    // The user
    void pressKey(xcb_keycode_t key, const std::vector<xcb_keycode_t>& held);
    void holdKey(xcb_keycode_t key);
    void releaseKey(xcb_keycode_t key);
    void click(QPoint pixels, std::uint8_t button);
    /// Clicks on the middle of a window, wherever it is: nobody can move it meanwhile.
    void clickWindow(xcb_window_t window, std::uint8_t button);
    void grabKey(xcb_keycode_t key, std::uint16_t modifiers);

    // The clipboard
    struct Offer {
        std::string target;
        QByteArray bytes;
    };
    void copy(const std::vector<Offer>& offers);
    /// Begins to paste; the answer comes while the main loop runs.
    void requestPaste(const std::string& target);
    /// Nothing yet, or the answer: no bytes when it was refused.
    std::optional<std::optional<QByteArray>> pasted() const { return m_pasted; }

    /// Handles every event that the server had up to this call, and says whether there was one.
    bool catchUp();

    /// Runs Qt's loop and the partner until the condition holds, or for `patience` milliseconds.
    bool waitUntil(const std::function<bool()>& condition, int patience = 3000);

private:
    xcb_atom_t atom(const std::string& name) const;
    void sendToWindowManager(const char* type, xcb_window_t window, std::uint32_t value);
    void fake(std::uint8_t type, std::uint8_t detail, QPoint position = {});
    void handle(const xcb_generic_event_t& event);
    void answer(const xcb_selection_request_event_t& request);
    void takePaste(const xcb_selection_notify_event_t& notify);
    void sync() const;

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    xcb_window_t m_helper;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    std::map<xcb_window_t, int> m_pastes;
    std::vector<Offer> m_offers;
    std::optional<std::optional<QByteArray>> m_pasted;
    bool m_isReceivingPieces = false;
    QByteArray m_pieces;
    struct Sending {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        QByteArray rest;
    };
    std::vector<Sending> m_sending;
};

} // namespace zamber::x11
