// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"
#include "platform/freedesktop/selection/PasteKeystroke.h"
#include "platform/freedesktop/selection/SelectionPasteboard.h"
#include "platform/x11/Connection.h"

#include <QTimer>

#include <chrono>
#include <deque>
#include <vector>

namespace zamber::x11 {

class Keyboard;
class Windows;
class X11HotKeyCenter;
class X11Workspace;

/// Types the paste keystroke by XTEST, when it can only do what the user meant. See the port for what is waited for.
///
/// A program that is told to paste asks for the clipboard a while later. Before the clipboard gets what the next paste
/// inserts, the program of the window that was typed into has time to ask.
class X11KeystrokePoster final : public QObject, public KeystrokePoster {
    Q_OBJECT

public:
    using SelectionPasteboard = freedesktop::selection::SelectionPasteboard;

    static constexpr std::chrono::milliseconds LONGEST_WAIT{2000};

    X11KeystrokePoster(Connection& connection, Keyboard& keyboard, Windows& windows, X11HotKeyCenter& hotKeys,
                       X11Workspace& workspace, SelectionPasteboard& pasteboard);

    void postPaste(const Paste& paste, Done done) override;

private:
    struct Order {
        Paste paste;
        std::optional<xcb_window_t> ownWindowInFront; // of this program, at the call
        Done done;
    };

    enum class Step {
        Idle,
        Waiting,    // until it is safe to type
        Typing,     // until PRIMARY is there
        BeingAsked, // until the program that was typed into has asked for the content
    };

    void begin();
    void postWhenReady();
    void decide();
    void post();
    void finish(PasteOutcome outcome);
    void handleServed(xcb_window_t requestor);
    void continueWithNext();
    bool isTargetInFront() const;
    std::optional<xcb_window_t> targetWindow() const;
    bool isOurs(xcb_window_t window) const;
    void liftHeldKeys();
    bool typeInto(xcb_window_t front, freedesktop::selection::PasteKeystroke keystroke);
    std::vector<xcb_keycode_t> keysOf(freedesktop::selection::PasteKeystroke keystroke) const;
    bool mayTypeIntoOurs(xcb_window_t front) const;
    bool mayType(xcb_window_t front) const;
    void fake(std::uint8_t event, xcb_keycode_t key) const;

    Connection& m_connection;
    Keyboard& m_keyboard;
    Windows& m_windows;
    X11HotKeyCenter& m_hotKeys;
    X11Workspace& m_workspace;
    SelectionPasteboard& m_pasteboard;
    std::deque<Order> m_orders;            // the first one is under way
    std::optional<xcb_window_t> m_watched; // for the focus to come to it
    Step m_step = Step::Idle;
    int m_pasted = 0; // the change count of what was pasted last
    xcb_window_t m_pastedInto = XCB_WINDOW_NONE;
    QTimer m_bound;
    QTimer m_askingBound;
    QTimer m_askingPause;
};

} // namespace zamber::x11
