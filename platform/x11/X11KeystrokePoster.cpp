// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11KeystrokePoster.h"

#include "platform/x11/Keyboard.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11Workspace.h"

#include <unistd.h>
#include <xcb/xtest.h>

#include <ranges>
#include <utility>
#include <vector>

namespace zamber::x11 {

namespace {

// Where the keys lie on every PC keyboard, for layouts that do not name them.
constexpr xcb_keycode_t PHYSICAL_CONTROL = 37;
constexpr xcb_keycode_t PHYSICAL_SHIFT = 50;
constexpr xcb_keycode_t PHYSICAL_V = 55;
constexpr xcb_keycode_t PHYSICAL_INSERT = 118;

} // namespace

X11KeystrokePoster::X11KeystrokePoster(Connection& connection, Keyboard& keyboard, Windows& windows,
                                       X11Workspace& workspace, X11Pasteboard& pasteboard)
    : m_connection(connection)
    , m_keyboard(keyboard)
    , m_windows(windows)
    , m_workspace(workspace)
    , m_pasteboard(pasteboard) {
    m_bound.setSingleShot(true);
    m_bound.setInterval(LONGEST_WAIT);
    connect(&m_bound, &QTimer::timeout, this, &X11KeystrokePoster::decide);
    connect(&keyboard, &Keyboard::modifiersChanged, this, &X11KeystrokePoster::postWhenReady);
    connect(&windows, &Windows::activeWindowChanged, this, &X11KeystrokePoster::postWhenReady);
    connect(&pasteboard, &X11Pasteboard::ownershipChanged, this, &X11KeystrokePoster::postWhenReady);
    connection.addEventHandler([this](const xcb_generic_event_t& event) {
        if (codeOf(event) == XCB_FOCUS_IN) {
            postWhenReady();
        }
    });
}

void X11KeystrokePoster::postPaste(const std::optional<RunningApplication>& target, std::function<void()> done) {
    if (const auto* const xtest = xcb_get_extension_data(m_connection.raw(), &xcb_test_id);
        xtest == nullptr || xtest->present == 0) {
        // A request of an extension that is not there would end the connection.
        done();
        return;
    }
    m_pastes.push_back({.target = target, .done = std::move(done)});
    if (m_pastes.size() == 1) {
        begin();
    }
}

void X11KeystrokePoster::begin() {
    m_isWaiting = true;
    m_bound.start();
    m_watched = targetWindow();
    if (m_watched) {
        m_connection.watch(*m_watched, XCB_EVENT_MASK_FOCUS_CHANGE);
    }
    postWhenReady();
}

void X11KeystrokePoster::postWhenReady() {
    if (m_isWaiting && m_pasteboard.ownsClipboard() && isTargetInFront() && m_keyboard.heldModifierKeys().empty()) {
        post();
    }
}

void X11KeystrokePoster::decide() {
    if (!m_isWaiting) {
        return;
    }
    if (m_pasteboard.ownsClipboard()) {
        post();
    } else {
        finish();
    }
}

void X11KeystrokePoster::post() {
    m_isWaiting = false;
    m_bound.stop();
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    if (!front || (isOurs(*front) && front != targetWindow())) {
        finish();
        return;
    }
    const freedesktop::selection::PasteKeystroke keystroke =
        freedesktop::selection::pasteKeystrokeOf(m_windows.windowClass(*front));
    if (keystroke == freedesktop::selection::PasteKeystroke::ShiftInsert) {
        m_pasteboard.offerAsPrimary([this, front, keystroke] {
            typeInto(*front, keystroke);
            finish();
        });
        return;
    }
    typeInto(*front, keystroke);
    finish();
}

void X11KeystrokePoster::finish() {
    m_isWaiting = false;
    m_bound.stop();
    if (m_watched) {
        m_connection.unwatch(*m_watched, XCB_EVENT_MASK_FOCUS_CHANGE);
    }
    // Told before the next one begins, and while this one still stands in the queue: the call may ask for another.
    const std::function<void()> done = std::move(m_pastes.front().done);
    done();
    m_pastes.pop_front();
    if (!m_pastes.empty()) {
        begin();
    }
}

bool X11KeystrokePoster::isTargetInFront() const {
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    if (const std::optional<xcb_window_t> target = targetWindow()) {
        return front == target && m_windows.hasFocus(*target);
    }
    // Nobody to wait for, or nobody any more: whoever is in front, once our own window is out of the way.
    return front && !isOurs(*front);
}

std::optional<xcb_window_t> X11KeystrokePoster::targetWindow() const {
    const std::optional<RunningApplication>& target = m_pastes.front().target;
    const std::optional<xcb_window_t> window = target ? m_workspace.windowOf(*target) : std::nullopt;
    // A window of ours that is hidden, like the popover after the choice, is as good as gone.
    return window && isOurs(*window) && !m_windows.isMapped(*window) ? std::nullopt : window;
}

bool X11KeystrokePoster::isOurs(xcb_window_t window) const {
    return m_windows.processId(window) == getpid();
}

void X11KeystrokePoster::liftHeldModifiers() const {
    // Not pressed again afterwards: the user may have let go meanwhile, and a modifier that nobody holds is stuck.
    for (const xcb_keycode_t key : m_keyboard.heldModifierKeys()) {
        fake(XCB_KEY_RELEASE, key);
    }
}

void X11KeystrokePoster::typeInto(xcb_window_t front, freedesktop::selection::PasteKeystroke keystroke) const {
    const std::vector<xcb_keycode_t> keys = keysOf(keystroke);
    // Nobody moves the focus between the last look and the keystroke.
    xcb_grab_server(m_connection.raw());
    if (mayType(front)) {
        liftHeldModifiers();
        for (const xcb_keycode_t key : keys) {
            fake(XCB_KEY_PRESS, key);
        }
        for (const xcb_keycode_t key : keys | std::views::reverse) {
            fake(XCB_KEY_RELEASE, key);
        }
    }
    xcb_ungrab_server(m_connection.raw());
    m_connection.flush();
}

bool X11KeystrokePoster::mayType(xcb_window_t front) const {
    if (m_windows.activeWindow() != front) {
        return false;
    }
    // The focus may be at a window of ours before the window manager says so.
    return !m_windows.isFocusOf(getpid()) || (front == targetWindow() && m_windows.hasFocus(front));
}

std::vector<xcb_keycode_t> X11KeystrokePoster::keysOf(freedesktop::selection::PasteKeystroke keystroke) const {
    const xcb_keycode_t control = m_keyboard.keyFor(XKB_KEY_Control_L).value_or(PHYSICAL_CONTROL);
    const xcb_keycode_t shift = m_keyboard.keyFor(XKB_KEY_Shift_L).value_or(PHYSICAL_SHIFT);
    const xcb_keycode_t v = m_keyboard.keyFor(XKB_KEY_v).value_or(PHYSICAL_V);
    switch (keystroke) {
    case freedesktop::selection::PasteKeystroke::ControlV:
        return {control, v};
    case freedesktop::selection::PasteKeystroke::ControlShiftV:
        return {control, shift, v};
    case freedesktop::selection::PasteKeystroke::ShiftInsert:
        return {shift, m_keyboard.keyFor(XKB_KEY_Insert).value_or(PHYSICAL_INSERT)};
    }
    return {};
}

void X11KeystrokePoster::fake(std::uint8_t event, xcb_keycode_t key) const {
    xcb_test_fake_input(m_connection.raw(), event, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
}

} // namespace zamber::x11
