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

/// Time for a program that was told to paste to ask for the content, if it is busy.
constexpr std::chrono::milliseconds LONGEST_ASKING{1000};

/// A program that has asked and is silent for this time has what it wants.
constexpr std::chrono::milliseconds PAUSE_AFTER_ASKING{60};

} // namespace

X11KeystrokePoster::X11KeystrokePoster(Connection& connection, Keyboard& keyboard, Windows& windows,
                                       X11HotKeyCenter& hotKeys, X11Workspace& workspace,
                                       SelectionPasteboard& pasteboard)
    : m_connection(connection)
    , m_keyboard(keyboard)
    , m_windows(windows)
    , m_hotKeys(hotKeys)
    , m_workspace(workspace)
    , m_pasteboard(pasteboard) {
    for (QTimer* const timer : {&m_bound, &m_askingBound, &m_askingPause}) {
        timer->setSingleShot(true);
    }
    m_bound.setInterval(LONGEST_WAIT);
    m_askingBound.setInterval(LONGEST_ASKING);
    m_askingPause.setInterval(PAUSE_AFTER_ASKING);
    connect(&m_bound, &QTimer::timeout, this, &X11KeystrokePoster::decide);
    connect(&m_askingBound, &QTimer::timeout, this, &X11KeystrokePoster::continueWithNext);
    connect(&m_askingPause, &QTimer::timeout, this, &X11KeystrokePoster::continueWithNext);
    connect(&keyboard, &Keyboard::modifiersChanged, this, &X11KeystrokePoster::postWhenReady);
    connect(&hotKeys, &X11HotKeyCenter::keysReleased, this, &X11KeystrokePoster::postWhenReady);
    connect(&windows, &Windows::activeWindowChanged, this, &X11KeystrokePoster::postWhenReady);
    connect(&pasteboard, &SelectionPasteboard::ownershipChanged, this, &X11KeystrokePoster::postWhenReady);
    connect(&pasteboard, &SelectionPasteboard::served, this, &X11KeystrokePoster::handleServed);
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
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    m_orders.push_back(
        {.paste = paste, .ownWindowInFront = front && isOurs(*front) ? front : std::nullopt, .done = std::move(done)});
    const bool isSameContent = m_step == Step::BeingAsked && paste.changeCount == m_pasted;
    if (m_orders.size() == 1 && (m_step == Step::Idle || isSameContent)) {
        begin();
    }
}

void X11KeystrokePoster::begin() {
    m_step = Step::Waiting;
    m_askingBound.stop();
    m_askingPause.stop();
    m_pasteboard.holdWrites();
    m_bound.start();
    m_watched = targetWindow();
    if (m_watched) {
        m_connection.watch(*m_watched, XCB_EVENT_MASK_FOCUS_CHANGE);
    }
    postWhenReady();
}

void X11KeystrokePoster::postWhenReady() {
    if (m_step != Step::Waiting) {
        return;
    }
    const int changeCount = m_orders.front().paste.changeCount;
    switch (m_pasteboard.standingOf(changeCount)) {
    case SelectionPasteboard::Standing::Lost:
        finish(PasteOutcome::GivenUp);
        return;
    case SelectionPasteboard::Standing::Pending:
        m_pasteboard.offer(changeCount);
        return;
    case SelectionPasteboard::Standing::Offered:
        break;
    }
    if (m_hotKeys.heldKeys().empty() && m_keyboard.heldModifierKeys().empty() && isTargetInFront()) {
        post();
    }
}

void X11KeystrokePoster::decide() {
    if (m_step != Step::Waiting) {
        return;
    }
    if (m_pasteboard.standingOf(m_orders.front().paste.changeCount) == SelectionPasteboard::Standing::Offered) {
        post();
    } else {
        finish(PasteOutcome::GivenUp);
    }
}

void X11KeystrokePoster::post() {
    m_step = Step::Typing;
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    if (!front || (isOurs(*front) && !mayTypeIntoOurs(*front))) {
        finish(PasteOutcome::GivenUp);
        return;
    }
    const freedesktop::selection::PasteKeystroke keystroke =
        freedesktop::selection::pasteKeystrokeOf(m_windows.windowClass(*front));
    const auto type = [this, front, keystroke] {
        if (typeInto(*front, keystroke)) {
            finish(PasteOutcome::Posted);
        } else if (m_bound.isActive()) {
            m_step = Step::Waiting; // another window came to the front at that very moment
        } else {
            finish(PasteOutcome::GivenUp);
        }
    };
    if (keystroke == freedesktop::selection::PasteKeystroke::ShiftInsert) {
        m_pasteboard.borrowPrimary(m_orders.front().paste.changeCount, type);
    } else {
        type();
    }
}

void X11KeystrokePoster::finish(PasteOutcome outcome) {
    m_bound.stop();
    if (m_watched) {
        m_connection.unwatch(*m_watched, XCB_EVENT_MASK_FOCUS_CHANGE);
        m_watched.reset();
    }
    m_step = Step::BeingAsked;
    // Told before the next one begins, and while this one still stands in the queue: the call may ask for another.
    const Done done = std::move(m_orders.front().done);
    const int changeCount = m_orders.front().paste.changeCount;
    done(outcome);
    m_orders.pop_front();
    const bool isNextTheSame = !m_orders.empty() && m_orders.front().paste.changeCount == changeCount;
    if (outcome == PasteOutcome::GivenUp || isNextTheSame) {
        continueWithNext();
        return;
    }
    m_pasted = changeCount;
    m_askingBound.start();
}

void X11KeystrokePoster::handleServed(xcb_window_t requestor) {
    // Some programs ask more than once, for one form after another.
    const bool isKnown = requestor != XCB_WINDOW_NONE;
    if (m_step == Step::BeingAsked && (!isKnown || m_connection.areOfOneClient(requestor, m_pastedInto))) {
        m_askingPause.start();
    }
}

void X11KeystrokePoster::continueWithNext() {
    m_askingBound.stop();
    m_askingPause.stop();
    m_step = Step::Idle;
    m_pasteboard.giveBackPrimary();
    if (!m_orders.empty()) {
        begin();
    } else {
        m_pasteboard.showWrites();
    }
}

bool X11KeystrokePoster::isTargetInFront() const {
    const std::optional<xcb_window_t> front = m_windows.activeWindow();
    if (const std::optional<xcb_window_t> target = targetWindow()) {
        return front == target && m_windows.hasFocus(*target);
    }
    // Nobody to wait for, or nobody any more: whoever is in front, once our own window is out of the way.
    return front && (!isOurs(*front) || (mayTypeIntoOurs(*front) && m_windows.hasFocus(*front)));
}

std::optional<xcb_window_t> X11KeystrokePoster::targetWindow() const {
    const std::optional<RunningApplication>& target = m_orders.front().paste.target;
    const std::optional<xcb_window_t> window = target ? m_workspace.windowOf(*target) : std::nullopt;
    // A window of ours that is hidden, like the popover after the choice, is as good as gone.
    return window && isOurs(*window) && !m_windows.isMapped(*window) ? std::nullopt : window;
}

bool X11KeystrokePoster::isOurs(xcb_window_t window) const {
    return m_windows.processId(window) == getpid();
}

bool X11KeystrokePoster::mayTypeIntoOurs(xcb_window_t front) const {
    const Order& order = m_orders.front();
    return front == (order.paste.target ? targetWindow() : order.ownWindowInFront);
}

void X11KeystrokePoster::liftHeldKeys() {
    // Not pressed again afterwards: the user may have let go meanwhile, and a modifier that nobody holds is stuck. A
    // hot key's own key is lifted as well, as it would go on repeating in the window in front.
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
}

bool X11KeystrokePoster::typeInto(xcb_window_t front, freedesktop::selection::PasteKeystroke keystroke) {
    const std::vector<xcb_keycode_t> keys = keysOf(keystroke);
    // Nobody moves the focus between the last look and the keystroke.
    xcb_grab_server(m_connection.raw());
    const bool isTyped = mayType(front);
    if (isTyped) {
        liftHeldKeys();
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
    // The focus may be at a window of ours before the window manager says so.
    return !m_windows.isFocusOf(getpid()) || (mayTypeIntoOurs(front) && m_windows.hasFocus(front));
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
