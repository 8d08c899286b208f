// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/PasteQueue.h"
#include "platform/x11/Connection.h"

#include <optional>
#include <vector>

namespace zamber::x11 {

class Keyboard;
class Windows;
class X11HotKeyCenter;
class X11Workspace;

/// Types the paste keystroke by XTEST (the X Test Extension Protocol); where the server lacks it, every paste is given
/// up. A derived class may know of windows that the X server does not have.
class X11KeystrokePoster : public freedesktop::selection::PasteQueue {
    Q_OBJECT

public:
    X11KeystrokePoster(Connection& connection, Keyboard& keyboard, Windows& windows, X11HotKeyCenter& hotKeys,
                       X11Workspace& workspace, freedesktop::selection::SelectionPasteboard& pasteboard,
                       Scheduler& scheduler);

    void postPaste(const Paste& paste, Done done) override;

protected:
    using PasteKeystroke = freedesktop::selection::PasteKeystroke;

    std::optional<Window> ownWindowInFront() const override;
    void beginWaiting() override;
    void endWaiting() override;
    bool isReady() const override;
    std::optional<Window> windowToTypeInto() const override;
    PasteKeystroke keystrokeFor(Window window) const override;
    bool type(Window window, PasteKeystroke keystroke) override;
    bool mayBeReader(std::uint32_t window) const override;

    /// The keys of the keystroke, in the order in which they are pressed.
    std::vector<xcb_keycode_t> keysOf(PasteKeystroke keystroke) const;

    /// The window that the paste was remembered for, while it exists.
    std::optional<xcb_window_t> targetWindow() const;

private:
    bool isTargetInFront() const;
    bool isOurs(xcb_window_t window) const;
    void liftHeldKeys(const std::vector<xcb_keycode_t>& keystroke);
    bool mayTypeIntoOurs(xcb_window_t front) const;
    bool mayType(xcb_window_t front) const;
    void fake(std::uint8_t event, xcb_keycode_t key) const;

    Connection& m_connection;
    Keyboard& m_keyboard;
    Windows& m_windows;
    X11HotKeyCenter& m_hotKeys;
    X11Workspace& m_workspace;
    std::optional<xcb_window_t> m_watched; // the target, to learn when it gets the focus
    xcb_window_t m_pastedInto = XCB_WINDOW_NONE;
};

} // namespace zamber::x11
