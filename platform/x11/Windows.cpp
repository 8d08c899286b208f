// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/Windows.h"

#include <QSysInfo>

#include <algorithm>
#include <cstring>

namespace zamber::x11 {

namespace {

// The sender of a message to the window manager. Every window manager takes a pager's for the user's own wish.
constexpr std::uint32_t SOURCE_APPLICATION = 1;
constexpr std::uint32_t SOURCE_PAGER = 2;

constexpr std::uint32_t EVERY_DESKTOP = 0xFFFFFFFF;

std::optional<std::uint32_t> firstNumber(const Property& property) {
    if (property.format != 32 || property.bytes.size() < 4) {
        return std::nullopt;
    }
    std::uint32_t number = 0;
    std::memcpy(&number, property.bytes.constData(), sizeof number);
    return number;
}

/// The host's name, with or without its domain on either side.
bool isThisMachine(const QByteArray& name) {
    const auto withoutDomain = [](const QByteArray& host) { return host.split('.').first().toLower(); };
    return withoutDomain(name) == withoutDomain(QSysInfo::machineHostName().toLocal8Bit());
}

} // namespace

Windows::Windows(Connection& connection)
    : m_connection(connection) {
    connection.watch(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    connection.addEventHandler([this](const xcb_generic_event_t& event) {
        if (codeOf(event) != XCB_PROPERTY_NOTIFY) {
            return;
        }
        const auto& notify = as<xcb_property_notify_event_t>(event);
        if (notify.window == m_connection.root() && notify.atom == m_connection.atom(Atom::NetActiveWindow)) {
            Q_EMIT activeWindowChanged();
        }
    });
}

std::optional<xcb_window_t> Windows::activeWindow() const {
    const Property property = m_connection.readProperty(m_connection.root(), m_connection.atom(Atom::NetActiveWindow),
                                                        Connection::Afterwards::Keep);
    if (const std::optional<std::uint32_t> window = firstNumber(property)) {
        return canBeActive(*window) ? window : std::nullopt;
    }
    // A window manager that has named no window yet has the focus at a window of its own.
    return hasWindowManager() ? std::nullopt : focusedTopLevel();
}

bool Windows::hasWindowManager() const {
    const auto check = [this](xcb_window_t window) {
        return firstNumber(m_connection.readProperty(window, m_connection.atom(Atom::NetSupportingWmCheck),
                                                     Connection::Afterwards::Keep));
    };
    // The property outlives a window manager that ended; the window that it names does not (EWMH).
    const std::optional<std::uint32_t> window = check(m_connection.root());
    return window && check(*window) == window;
}

std::optional<std::int64_t> Windows::processId(xcb_window_t window) const {
    // Another machine, or a container with a name of its own, counts its processes by itself.
    const QByteArray machine =
        m_connection.readProperty(window, XCB_ATOM_WM_CLIENT_MACHINE, Connection::Afterwards::Keep).bytes;
    if (!machine.isEmpty() && !isThisMachine(machine)) {
        return std::nullopt;
    }
    return firstNumber(
        m_connection.readProperty(window, m_connection.atom(Atom::NetWmPid), Connection::Afterwards::Keep));
}

QString Windows::windowClass(xcb_window_t window) const {
    const QByteArray words = m_connection.readProperty(window, XCB_ATOM_WM_CLASS, Connection::Afterwards::Keep).bytes;
    const qsizetype end = words.indexOf('\0');
    return end < 0 ? QString() : QString::fromLatin1(words.constData() + end + 1);
}

void Windows::tellWindowManager(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5>& data) const {
    m_connection.tellRoot(window, type, data,
                          XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

void Windows::keepOutOfTaskbar(xcb_window_t window) const {
    constexpr std::uint32_t ADD = 1;
    tellWindowManager(window, m_connection.atom(Atom::NetWmState),
                      {ADD, m_connection.atom(Atom::NetWmStateSkipTaskbar),
                       m_connection.atom(Atom::NetWmStateSkipPager), SOURCE_APPLICATION, 0});
}

void Windows::activate(xcb_window_t window) const {
    tellWindowManager(window, m_connection.atom(Atom::NetActiveWindow),
                      {SOURCE_PAGER, m_connection.lastTimestamp(), XCB_WINDOW_NONE, 0, 0});
    if (!hasWindowManager()) {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(m_connection.raw(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        xcb_set_input_focus(m_connection.raw(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    }
    m_connection.flush();
}

void Windows::moveToCurrentDesktop(xcb_window_t window) const {
    const auto desktopOf = [this](xcb_window_t owner, Atom property) {
        return firstNumber(m_connection.readProperty(owner, m_connection.atom(property), Connection::Afterwards::Keep));
    };
    const std::optional<std::uint32_t> current = desktopOf(m_connection.root(), Atom::NetCurrentDesktop);
    if (current && desktopOf(window, Atom::NetWmDesktop) != EVERY_DESKTOP) {
        tellWindowManager(window, m_connection.atom(Atom::NetWmDesktop), {*current, SOURCE_PAGER, 0, 0, 0});
    }
    m_connection.flush();
}

bool Windows::hasFocus(xcb_window_t window) const {
    for (xcb_window_t focus = focusWindow(); focus > XCB_INPUT_FOCUS_POINTER_ROOT; focus = parentOf(focus)) {
        if (focus == window) {
            return true;
        }
    }
    return false;
}

bool Windows::isFocusOf(std::int64_t process) const {
    for (xcb_window_t focus = focusWindow(); focus > XCB_INPUT_FOCUS_POINTER_ROOT; focus = parentOf(focus)) {
        if (processId(focus) == process) {
            return true;
        }
    }
    return false;
}

Owned<xcb_get_window_attributes_reply_t> Windows::attributesOf(xcb_window_t window) const {
    return Owned<xcb_get_window_attributes_reply_t>(xcb_get_window_attributes_reply(
        m_connection.raw(), xcb_get_window_attributes(m_connection.raw(), window), nullptr));
}

bool Windows::isMapped(xcb_window_t window) const {
    const auto attributes = attributesOf(window);
    return attributes && attributes->map_state != XCB_MAP_STATE_UNMAPPED;
}

bool Windows::canBeActive(xcb_window_t window) const {
    const auto attributes = attributesOf(window);
    // Openbox leaves the property as it is when its last window has gone. While a program of Wayland is in front,
    // Mutter names an unmanaged window of its own outside of the screen; a program's window that is active is a managed
    // one.
    return attributes && attributes->map_state != XCB_MAP_STATE_UNMAPPED && attributes->override_redirect == 0;
}

xcb_window_t Windows::focusWindow() const {
    const Owned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection.raw(), xcb_get_input_focus(m_connection.raw()), nullptr));
    return reply ? reply->focus : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

xcb_window_t Windows::parentOf(xcb_window_t window) const {
    const Owned<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(m_connection.raw(), xcb_query_tree(m_connection.raw(), window), nullptr));
    return reply ? reply->parent : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

std::optional<xcb_window_t> Windows::focusedTopLevel() const {
    std::optional<xcb_window_t> topLevel;
    for (xcb_window_t window = focusWindow(); window > XCB_INPUT_FOCUS_POINTER_ROOT && window != m_connection.root();
         window = parentOf(window)) {
        topLevel = window;
    }
    return topLevel;
}

} // namespace zamber::x11
