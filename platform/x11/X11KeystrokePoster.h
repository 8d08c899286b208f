// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"
#include "platform/freedesktop/selection/PasteKeystroke.h"
#include "platform/x11/Connection.h"

#include <QTimer>

#include <chrono>
#include <deque>
#include <vector>

namespace zamber::x11 {

class Keyboard;
class Windows;
class X11Pasteboard;
class X11Workspace;

/// Types the paste keystroke by XTEST, when it can only do what the user meant. See the port for what is waited for.
class X11KeystrokePoster final : public QObject, public KeystrokePoster {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds LONGEST_WAIT{2000};

    X11KeystrokePoster(Connection& connection, Keyboard& keyboard, Windows& windows, X11Workspace& workspace,
                       X11Pasteboard& pasteboard);

    void postPaste(const std::optional<RunningApplication>& target, std::function<void()> done) override;

private:
    struct Paste {
        std::optional<RunningApplication> target;
        std::function<void()> done;
    };

    void begin();
    void postWhenReady();
    void decide();
    void post();
    void finish();
    bool isTargetInFront() const;
    std::optional<xcb_window_t> targetWindow() const;
    bool isOurs(xcb_window_t window) const;
    void liftHeldModifiers() const;
    void typeInto(xcb_window_t front, freedesktop::selection::PasteKeystroke keystroke) const;
    std::vector<xcb_keycode_t> keysOf(freedesktop::selection::PasteKeystroke keystroke) const;
    bool mayType(xcb_window_t front) const;
    void fake(std::uint8_t event, xcb_keycode_t key) const;

    Connection& m_connection;
    Keyboard& m_keyboard;
    Windows& m_windows;
    X11Workspace& m_workspace;
    X11Pasteboard& m_pasteboard;
    std::deque<Paste> m_pastes;            // the first one is under way
    std::optional<xcb_window_t> m_watched; // for the focus to come to it
    bool m_isWaiting = false;
    QTimer m_bound;
};

} // namespace zamber::x11
