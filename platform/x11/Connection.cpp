// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/Connection.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>

#include <poll.h>

#include <algorithm>
#include <utility>

namespace zamber::x11 {

namespace {

/// Errors are passed over: windows of other programs may vanish at any moment. The requests whose outcome matters are
/// checked where they are made.
constexpr std::uint8_t ERROR_CODE = 0;

/// Other programs may send events without a pause; the user's input is handled after this time at the latest.
constexpr std::chrono::milliseconds LONGEST_TURN{5};

/// Programs may send each other answers and messages. Any other event that a program has sent is forged.
bool isForged(const xcb_generic_event_t& event) {
    constexpr std::uint8_t SENT = 0x80;
    const std::uint8_t code = codeOf(event);
    return (event.response_type & SENT) != 0 && code != XCB_SELECTION_NOTIFY && code != XCB_CLIENT_MESSAGE;
}

} // namespace

std::expected<std::unique_ptr<Connection>, std::string> Connection::open() {
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return std::unexpected(std::string("cannot connect to the X server of DISPLAY"));
    }
    return std::unique_ptr<Connection>(new Connection(connection, screenNumber));
}

Connection::Connection(xcb_connection_t* connection, int screenNumber)
    : m_connection(connection)
    , m_screenNumber(screenNumber) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber; ++i) {
        xcb_screen_next(&screens);
    }
    m_screen = screens.data;
    xcb_prefetch_maximum_request_length(connection);
    internAtoms();
    m_clockWindow = createWindow(XCB_EVENT_MASK_PROPERTY_CHANGE);

    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &Connection::dispatchEvents);
    // Waiting for a reply may pull events off the socket into xcb's queue, where the notifier does not see them. And
    // the requests of this turn have to leave before the loop sleeps.
    const auto* const loop = QAbstractEventDispatcher::instance();
    connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, &Connection::dispatchQueuedEvents);
    connect(loop, &QAbstractEventDispatcher::awake, this, &Connection::dispatchQueuedEvents);
}

Connection::~Connection() {
    m_notifier.reset();
    xcb_disconnect(m_connection);
}

void Connection::internAtoms() {
    std::array<xcb_intern_atom_cookie_t, ATOM_NAMES.size()> cookies{};
    for (std::size_t i = 0; i < ATOM_NAMES.size(); ++i) {
        const std::string_view name = ATOM_NAMES[i];
        cookies[i] = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    }
    for (std::size_t i = 0; i < ATOM_NAMES.size(); ++i) {
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookies[i], nullptr));
        m_atoms[i] = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }
}

xcb_atom_t Connection::intern(std::string_view name) const {
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

void Connection::addEventHandler(EventHandler handler) {
    m_handlers.push_back(std::move(handler));
}

xcb_window_t Connection::createWindow(std::uint32_t eventMask) const {
    const xcb_window_t window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &eventMask);
    return window;
}

bool Connection::areOfOneClient(xcb_window_t one, xcb_window_t other) const {
    return ((one ^ other) & ~xcb_get_setup(m_connection)->resource_id_mask) == 0;
}

Property Connection::readProperty(xcb_window_t window, xcb_atom_t property, Afterwards afterwards) const {
    constexpr std::uint32_t EVERYTHING = 0x1fffffff; // in units of four bytes
    const auto cookie = xcb_get_property(m_connection, afterwards == Afterwards::Delete ? 1 : 0, window, property,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, EVERYTHING);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply) {
        return {};
    }
    return {.type = reply->type,
            .format = reply->format,
            .bytes = QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                xcb_get_property_value_length(reply.get()))};
}

xcb_window_t Connection::selectionOwner(xcb_atom_t selection) const {
    const auto cookie = xcb_get_selection_owner(m_connection, selection);
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void Connection::tellRoot(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5>& data,
                          std::uint32_t eventMask) const {
    xcb_client_message_event_t message{}; // 32 bytes, as an event is sent
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::ranges::copy(data, message.data.data32);
    xcb_send_event(m_connection, 0, root(), eventMask, reinterpret_cast<const char*>(&message));
    flush();
}

void Connection::watch(xcb_window_t window, xcb_event_mask_t mask) {
    ++m_watches[window][mask];
    applyWatch(window);
}

void Connection::unwatch(xcb_window_t window, xcb_event_mask_t mask) {
    const auto found = m_watches.find(window);
    if (found == m_watches.end() || !found->second.contains(mask)) {
        return; // the window has gone, and the counts with it
    }
    if (--found->second[mask] == 0) {
        found->second.erase(mask);
    }
    applyWatch(window);
    if (found->second.empty()) {
        m_watches.erase(found);
    }
}

void Connection::applyWatch(xcb_window_t window) const {
    std::uint32_t sum = 0;
    if (const auto found = m_watches.find(window); found != m_watches.end()) {
        for (const auto& [mask, callers] : found->second) {
            sum |= mask;
        }
    }
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &sum);
}

void Connection::requestTimestamp(TimestampHandler handler) {
    m_timestampHandlers.push_back(std::move(handler));
    xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_clockWindow, atom(Atom::ZamberAnswer), XCB_ATOM_INTEGER,
                        32, 0, nullptr);
    flush();
}

void Connection::serveInPlace(const std::function<bool()>& isDone, std::chrono::milliseconds longest) {
    constexpr int LONGEST_SLEEP_MS = 10; // results of worker threads come without waking the socket
    QElapsedTimer age;
    age.start();
    while (!isDone() && !age.hasExpired(longest.count()) && xcb_connection_has_error(m_connection) == 0) {
        dispatchQueuedEvents();
        pollfd socket{.fd = xcb_get_file_descriptor(m_connection), .events = POLLIN, .revents = 0};
        ::poll(&socket, 1, LONGEST_SLEEP_MS);
        dispatchEvents();
        QCoreApplication::sendPostedEvents(QCoreApplication::instance(), QEvent::MetaCall);
    }
}

void Connection::dispatchEvents() {
    dispatchUntilEmpty(xcb_poll_for_event);
    if (xcb_connection_has_error(m_connection) != 0) {
        m_notifier->setEnabled(false); // the server has gone; Qt's own connection ends the program
        return;
    }
    flush();
}

void Connection::dispatchQueuedEvents() {
    dispatchUntilEmpty(xcb_poll_for_queued_event);
    flush();
}

void Connection::catchUp() {
    // A reply comes after all events that were before it.
    const Owned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_queued_event(m_connection)}) {
        dispatch(*event);
    }
}

void Connection::dispatchUntilEmpty(xcb_generic_event_t* (*poll)(xcb_connection_t*)) {
    QElapsedTimer turn;
    turn.start();
    while (const Owned<xcb_generic_event_t> event{poll(m_connection)}) {
        dispatch(*event);
        if (turn.hasExpired(LONGEST_TURN.count())) {
            QAbstractEventDispatcher::instance()->wakeUp(); // the rest comes after the other work of the loop
            return;
        }
    }
}

void Connection::dispatch(const xcb_generic_event_t& event) {
    const std::uint8_t code = codeOf(event);
    if (code == ERROR_CODE || isForged(event)) {
        return;
    }
    if (code == XCB_PROPERTY_NOTIFY) {
        const auto& notify = as<xcb_property_notify_event_t>(event);
        m_lastTimestamp = notify.time;
        if (notify.window == m_clockWindow) {
            if (m_timestampHandlers.empty()) {
                return; // another program has written to the property
            }
            const TimestampHandler handler = std::move(m_timestampHandlers.front());
            m_timestampHandlers.pop_front();
            handler(notify.time);
            return;
        }
    }
    for (const EventHandler& handler : m_handlers) {
        handler(event);
    }
    if (code == XCB_DESTROY_NOTIFY) {
        m_watches.erase(as<xcb_destroy_notify_event_t>(event).window);
    }
}

} // namespace zamber::x11
