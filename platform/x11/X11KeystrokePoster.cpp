// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11KeystrokePoster.h"

#include "platform/x11/Keyboard.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11HotKeyCenter.h"
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
                                       X11HotKeyCenter& hotKeys, X11Workspace& workspace,
                                       freedesktop::selection::SelectionPasteboard& pasteboard, Scheduler& scheduler)
    : PasteQueue(pasteboard, scheduler)
    , m_connection(connection)
    , m_keyboard(keyboard)
    , m_windows(windows)
    , m_hotKeys(hotKeys)
    , m_workspace(workspace) {
    connect(&keyboard, &Keyboard::modifiersChanged, this, &X11KeystrokePoster::postWhenReady);
    connect(&hotKeys, &X11HotKeyCenter::keysReleased, this, &X11KeystrokePoster::postWhenReady);
    connect(&windows, &Windows::activeWindowChanged, this, &X11KeystrokePoster::postWhenReady);
    connection.addEventHandler([this](const xcb_generic_event_t& event) {
        if (codeOf(event) == XCB_FOCUS_IN) {
            postWhenReady();
        }
    });
}

void X11KeystrokePoster::postPaste(const Paste& paste, Done done) {
    if (const auto* const xtest = xcb_get_extension_data(m_connection.raw(), &xcb_test_id);
        xtest == nullptr || xtest->present == 0) {
        // A request of an extension that is not there would end the connection.
        done(PasteOutcome::GivenUp);
        return;
    }
    PasteQueue::postPaste(paste, std::move(done));
}

std::optional<X11KeystrokePoster::Window> X11KeystrokePoster::ownWindowInFront() const {
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    return front && isOurs(*front) ? std::optional<Window>(*front) : std::nullopt;
}

void X11KeystrokePoster::beginWaiting() {
    m_watched = targetWindow();
    if (m_watched) {
        m_connection.watch(*m_watched, XCB_EVENT_MASK_FOCUS_CHANGE);
    }
}

void X11KeystrokePoster::endWaiting() {
    if (m_watched) {
        m_connection.unwatch(*m_watched, XCB_EVENT_MASK_FOCUS_CHANGE);
        m_watched.reset();
    }
}

bool X11KeystrokePoster::isReady() const {
    return m_hotKeys.heldKeys().empty() && m_keyboard.heldModifierKeys().empty() && isTargetInFront();
}

std::optional<X11KeystrokePoster::Window> X11KeystrokePoster::windowToTypeInto() const {
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    if (!front || (isOurs(*front) && !mayTypeIntoOurs(*front))) {
        return std::nullopt;
    }
    return *front;
}

X11KeystrokePoster::PasteKeystroke X11KeystrokePoster::keystrokeFor(Window window) const {
    return freedesktop::selection::pasteKeystrokeOf(m_windows.windowClass(static_cast<xcb_window_t>(window)));
}

bool X11KeystrokePoster::mayBeReader(std::uint32_t window) const {
    return window == XCB_WINDOW_NONE || m_connection.areOfOneClient(window, m_pastedInto);
}

bool X11KeystrokePoster::isTargetInFront() const {
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    if (const std::optional<xcb_window_t> target = targetWindow()) {
        return front == target && m_windows.hasFocus(*target);
    }
    // There is no target, or it has quit: any program in front will do, once our own window is out of the way.
    return front && (!isOurs(*front) || (mayTypeIntoOurs(*front) && m_windows.hasFocus(*front)));
}

std::optional<xcb_window_t> X11KeystrokePoster::targetWindow() const {
    const std::optional<RunningApplication>& target = current().paste.target;
    const std::optional<xcb_window_t> window = target ? m_workspace.windowOf(*target) : std::nullopt;
    // A hidden window of ours, like the popover after the choice, cannot come to the front.
    return window && isOurs(*window) && !m_windows.isMapped(*window) ? std::nullopt : window;
}

bool X11KeystrokePoster::isOurs(xcb_window_t window) const {
    return m_windows.processId(window) == getpid();
}

bool X11KeystrokePoster::mayTypeIntoOurs(xcb_window_t front) const {
    if (current().paste.target) {
        return targetWindow() == front;
    }
    return current().ownWindowInFront == Window{front};
}

void X11KeystrokePoster::liftHeldKeys(const std::vector<xcb_keycode_t>& keystroke) {
    // The keys are not pressed again afterwards: had the user released one in the meantime, it would be stuck. The hot
    // key's own key is lifted as well, since it would go on repeating in the window in front.
    const std::vector<xcb_keycode_t> hotKeys = m_hotKeys.heldKeys();
    if (!hotKeys.empty()) {
        m_hotKeys.ungrabKeyboard();
    }
    for (const xcb_keycode_t key : hotKeys) {
        fake(XCB_KEY_RELEASE, key);
    }
    for (const xcb_keycode_t key : m_keyboard.heldModifierKeys()) {
        fake(XCB_KEY_RELEASE, key);
    }
    // A key that is down cannot be pressed. V may be: by the main hot key, if it was pressed at this very moment.
    for (const xcb_keycode_t key : keystroke) {
        if (m_keyboard.isDown(key)) {
            fake(XCB_KEY_RELEASE, key);
        }
    }
}

bool X11KeystrokePoster::type(Window window, PasteKeystroke keystroke) {
    const auto front = static_cast<xcb_window_t>(window);
    const std::vector<xcb_keycode_t> keys = keysOf(keystroke);
    // With the server grabbed, no other program can move the focus between this check and the keystroke.
    xcb_grab_server(m_connection.raw());
    const bool isTyped = mayType(front);
    if (isTyped) {
        liftHeldKeys(keys);
        for (const xcb_keycode_t key : keys) {
            fake(XCB_KEY_PRESS, key);
        }
        for (const xcb_keycode_t key : keys | std::views::reverse) {
            fake(XCB_KEY_RELEASE, key);
        }
        m_pastedInto = front;
    }
    xcb_ungrab_server(m_connection.raw());
    m_connection.flush();
    return isTyped;
}

bool X11KeystrokePoster::mayType(xcb_window_t front) const {
    if (m_windows.activeWindow() != front) {
        return false;
    }
    // A window of ours may have the focus before the window manager names it as the active one.
    return !m_windows.isFocusOf(getpid()) || (mayTypeIntoOurs(front) && m_windows.hasFocus(front));
}

std::vector<xcb_keycode_t> X11KeystrokePoster::keysOf(PasteKeystroke keystroke) const {
    const xcb_keycode_t control = m_keyboard.keyFor(XKB_KEY_Control_L).value_or(PHYSICAL_CONTROL);
    const xcb_keycode_t shift = m_keyboard.keyFor(XKB_KEY_Shift_L).value_or(PHYSICAL_SHIFT);
    const xcb_keycode_t v = m_keyboard.keyFor(XKB_KEY_v).value_or(PHYSICAL_V);
    switch (keystroke) {
    case PasteKeystroke::ControlV:
        return {control, v};
    case PasteKeystroke::ControlShiftV:
        return {control, shift, v};
    case PasteKeystroke::ShiftInsert:
        return {shift, m_keyboard.keyFor(XKB_KEY_Insert).value_or(PHYSICAL_INSERT)};
    }
    return {};
}

void X11KeystrokePoster::fake(std::uint8_t event, xcb_keycode_t key) const {
    xcb_test_fake_input(m_connection.raw(), event, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
}

} // namespace zamber::x11
