// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11HotKeyCenter.h"

#include "platform/freedesktop/KeyPositions.h"
#include "platform/x11/Keyboard.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace zamber::x11 {

namespace {

/// How often, and how many times, a grab of the keyboard is tried once an open menu has been told to close.
constexpr std::chrono::milliseconds GRAB_INTERVAL{5};
constexpr int MOST_GRAB_ATTEMPTS = 20;

/// How often the keyboard is asked while a hot key is held: without the grab, its release goes to another program.
constexpr std::chrono::milliseconds LOOK_INTERVAL{50};

/// Every set of bits within the mask, the empty one included.
std::vector<std::uint16_t> subsetsOf(std::uint16_t mask) {
    std::vector<std::uint16_t> subsets;
    std::uint16_t subset = mask;
    while (true) {
        subsets.push_back(subset);
        if (subset == 0) {
            return subsets;
        }
        subset = static_cast<std::uint16_t>((subset - 1) & mask);
    }
}

} // namespace

X11HotKeyCenter::X11HotKeyCenter(Connection& connection, Keyboard& keyboard, CloseMenus closeMenus)
    : m_connection(connection)
    , m_keyboard(keyboard)
    , m_closeMenus(std::move(closeMenus)) {
    QCoreApplication::instance()->installEventFilter(this);
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handleEvent(event); });
    connect(&keyboard, &Keyboard::mappingChanged, this, &X11HotKeyCenter::grabAgain);
    m_lookAtHeldKeys.setInterval(LOOK_INTERVAL);
    connect(&m_lookAtHeldKeys, &QTimer::timeout, this, &X11HotKeyCenter::forgetReleasedKeys);
}

QString X11HotKeyCenter::commandKeyHint() const {
    return freedesktop::commandKeyHint();
}

std::optional<HotKeyRef> X11HotKeyCenter::registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) {
    Registration& registration = m_registrations.emplace_back(freedesktop::positionOf(key).code, modifiers, id.id,
                                                              std::uint16_t{0}, std::vector<std::uint16_t>{});
    if (grab(registration) == Outcome::Taken) {
        std::fprintf(stderr, "zamber: the hot key %s%s%c is held by another program\n",
                     modifiers.command ? "Super+" : "", modifiers.shift ? "Shift+" : "",
                     freedesktop::positionOf(key).label);
        m_registrations.pop_back();
        return std::nullopt;
    }
    return HotKeyRef{.id = id.id};
}

void X11HotKeyCenter::setPressedHandler(PressedHandler handler) {
    m_handler = std::move(handler);
}

std::uint16_t X11HotKeyCenter::maskOf(HotKeyModifiers modifiers) const {
    std::uint16_t mask = 0;
    if (modifiers.command) {
        mask |= m_keyboard.superModifier();
    }
    if (modifiers.shift) {
        mask |= XCB_MOD_MASK_SHIFT;
    }
    return mask;
}

X11HotKeyCenter::Outcome X11HotKeyCenter::grab(Registration& registration) const {
    registration.grabbedMask = maskOf(registration.modifiers);
    std::vector<std::pair<std::uint16_t, xcb_void_cookie_t>> requests;
    for (const std::uint16_t locks : subsetsOf(m_keyboard.lockModifiers())) {
        requests.emplace_back(locks, xcb_grab_key_checked(m_connection.raw(), 0, m_connection.root(),
                                                          registration.grabbedMask | locks, registration.key,
                                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    registration.grabbedLocks.clear();
    for (const auto& [locks, cookie] : requests) {
        const Owned<xcb_generic_error_t> error(xcb_request_check(m_connection.raw(), cookie));
        if (!error) {
            registration.grabbedLocks.push_back(locks);
        }
    }
    if (registration.grabbedLocks.size() == requests.size()) {
        return Outcome::Grabbed;
    }
    release(registration); // working with some locks only would be worse than not at all
    return Outcome::Taken;
}

void X11HotKeyCenter::release(Registration& registration) const {
    for (const std::uint16_t locks : registration.grabbedLocks) {
        xcb_ungrab_key(m_connection.raw(), registration.key, m_connection.root(), registration.grabbedMask | locks);
    }
    registration.grabbedLocks.clear();
}

void X11HotKeyCenter::grabAgain() {
    // Grabs are by key code and stay, unless the modifiers have moved to other bits. Most changes are a change of
    // layout or of the device that types; letting go of the grabs then would lose a press.
    const std::vector<std::uint16_t> locks = subsetsOf(m_keyboard.lockModifiers());
    for (Registration& registration : m_registrations) {
        if (registration.grabbedMask != maskOf(registration.modifiers) || registration.grabbedLocks != locks) {
            release(registration);
            grab(registration);
        }
    }
}

void X11HotKeyCenter::handleEvent(const xcb_generic_event_t& event) {
    if (codeOf(event) != XCB_KEY_PRESS && codeOf(event) != XCB_KEY_RELEASE) {
        return;
    }
    const auto& key = as<xcb_key_press_event_t>(event);
    m_connection.noteTimestamp(key.time);
    if (codeOf(event) == XCB_KEY_RELEASE) {
        forgetKey(key.detail, key.time);
    } else {
        handlePress(key);
    }
}

const X11HotKeyCenter::Registration* X11HotKeyCenter::findRegistration(xcb_keycode_t key, std::uint32_t state) const {
    constexpr std::uint32_t KEY_MODIFIERS = 0xff; // above them are the layout and the mouse buttons
    const std::uint32_t modifiers = state & KEY_MODIFIERS & ~std::uint32_t{m_keyboard.lockModifiers()};
    const auto found = std::ranges::find_if(m_registrations, [&](const Registration& registration) {
        return registration.key == key && registration.grabbedMask == modifiers;
    });
    return found == m_registrations.end() ? nullptr : &*found;
}

void X11HotKeyCenter::handlePress(const xcb_key_press_event_t& event) {
    const Registration* const registration = findRegistration(event.detail, event.state);
    if (registration == nullptr || isRepeat(event.detail)) {
        return;
    }
    if (!m_held.empty()) {
        grabKeyboard(); // the server's grab ends with the first key, and the other would go on in the window in front
    }
    press(*registration);
}

bool X11HotKeyCenter::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (!isKey || !watched->isWindowType()) {
        return false;
    }
    const auto& key = *static_cast<const QKeyEvent*>(event);
    const auto code = static_cast<xcb_keycode_t>(key.nativeScanCode());
    if (event->type() == QEvent::KeyRelease) {
        if (!key.isAutoRepeat()) {
            forgetKey(code, XCB_CURRENT_TIME);
        }
        return false;
    }
    if (isRepeat(code)) {
        return true;
    }
    const Registration* const registration = findRegistration(code, key.nativeModifiers());
    if (registration == nullptr) {
        return false;
    }
    m_closeMenus();
    m_held.push_back(code);
    m_grabAttemptsLeft = QGuiApplication::focusWindow() == nullptr ? MOST_GRAB_ATTEMPTS : 0;
    tellPressInMenu(*registration);
    return true;
}

void X11HotKeyCenter::tellPressInMenu(const Registration& registration) {
    // As with every other press, the keyboard is grabbed before anything is shown: a window that has the focus already
    // takes the grab, which the key's repetition would cause, for being left. The menu gives its own up a moment later.
    if (!m_held.empty() && m_grabAttemptsLeft > 0) {
        grabKeyboard();
        if (!m_hasGrabbedKeyboard && --m_grabAttemptsLeft > 0) {
            QTimer::singleShot(GRAB_INTERVAL, this, [this, registration] { tellPressInMenu(registration); });
            return;
        }
    }
    m_lookAtHeldKeys.start();
    if (m_handler) {
        m_handler(registration.id);
    }
}

void X11HotKeyCenter::press(const Registration& registration) {
    m_held.push_back(registration.key);
    m_lookAtHeldKeys.start();
    if (m_handler) {
        m_handler(registration.id);
    }
}

bool X11HotKeyCenter::isRepeat(xcb_keycode_t key) {
    return std::ranges::find(m_held, key) != m_held.end();
}

std::vector<xcb_keycode_t> X11HotKeyCenter::heldKeys() const {
    return m_held;
}

void X11HotKeyCenter::forgetReleasedKeys() {
    for (const xcb_keycode_t key : std::vector(m_held)) {
        if (!m_keyboard.isDown(key)) {
            forgetKey(key, XCB_CURRENT_TIME);
        }
    }
}

void X11HotKeyCenter::grabKeyboard() {
    if (m_hasGrabbedKeyboard) {
        return;
    }
    const auto cookie = xcb_grab_keyboard(m_connection.raw(), 0, m_connection.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Owned<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(m_connection.raw(), cookie, nullptr));
    m_hasGrabbedKeyboard = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void X11HotKeyCenter::forgetKey(xcb_keycode_t key, xcb_timestamp_t time) {
    if (std::erase(m_held, key) == 0 || !m_held.empty()) {
        return;
    }
    if (m_hasGrabbedKeyboard) {
        endGrab(time); // the server keeps the grab of a key that was pressed after that time
    }
    m_lookAtHeldKeys.stop();
    Q_EMIT keysReleased();
}

void X11HotKeyCenter::ungrabKeyboard() {
    m_held.clear();
    m_lookAtHeldKeys.stop();
    endGrab(XCB_CURRENT_TIME);
}

void X11HotKeyCenter::endGrab(xcb_timestamp_t time) {
    m_hasGrabbedKeyboard = false;
    xcb_ungrab_keyboard(m_connection.raw(), time);
    m_connection.flush();
}

} // namespace zamber::x11
