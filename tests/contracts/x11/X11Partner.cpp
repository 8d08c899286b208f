// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/x11/X11Partner.h"

#include "tests/support/Waiting.h"

#include <QCoreApplication>

#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace zamber::x11 {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Owned = std::unique_ptr<T, Free>;

constexpr qsizetype PIECE_BYTES = 60000;
constexpr xcb_keycode_t V_KEY = 55;
constexpr std::int64_t PARTNER_PID = 4242;

template <class T>
const T& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

} // namespace

X11Partner::X11Partner()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
    , m_helper(xcb_generate_id(m_connection)) {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_helper, m_root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    sync();
}

X11Partner::~X11Partner() {
    xcb_disconnect(m_connection);
}

xcb_atom_t X11Partner::atom(const std::string& name) const {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr));
    return reply->atom;
}

void X11Partner::sync() const {
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

xcb_window_t X11Partner::openWindow(const char* windowClass) {
    const xcb_window_t window = xcb_generate_id(m_connection);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 100, 100, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    const std::string name = std::string("partner") + '\0' + windowClass + '\0';
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(name.size()), name.data());
    const auto pid = static_cast<std::uint32_t>(PARTNER_PID);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1,
                        &pid);
    // WM_HINTS (ICCCM, section 4.1.2.4): it takes the keyboard focus.
    constexpr std::uint32_t INPUT_HINT = 1;
    const std::array<std::uint32_t, 9> hints{INPUT_HINT, 1};
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32,
                        static_cast<std::uint32_t>(hints.size()), hints.data());
    xcb_map_window(m_connection, window);
    waitUntil([&] { return activeWindow() == window; });
    return window;
}

void X11Partner::activateUnmanagedWindow() {
    const xcb_window_t window = xcb_generate_id(m_connection);
    const std::uint32_t isUnmanaged = 1;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, -100, -100, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &isUnmanaged);
    xcb_map_window(m_connection, window);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1,
                        &window);
    sync();
}

void X11Partner::closeWindow(xcb_window_t window) {
    xcb_destroy_window(m_connection, window);
    waitUntil([&] { return activeWindow() != window; });
}

void X11Partner::sendToWindowManager(const char* type, xcb_window_t window, std::uint32_t value) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    message.data.data32[0] = value;
    xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

void X11Partner::activateWindow(xcb_window_t window) {
    constexpr std::uint32_t FROM_A_PAGER = 2;
    sendToWindowManager("_NET_ACTIVE_WINDOW", window, FROM_A_PAGER);
    waitUntil([&] { return activeWindow() == window; });
}

bool X11Partner::askWindowManager() {
    // How wide its frame around a window would be, which it answers by a property of that window.
    const xcb_window_t window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    sendToWindowManager("_NET_REQUEST_FRAME_EXTENTS", window, 0);
    const xcb_atom_t extents = atom("_NET_FRAME_EXTENTS");
    const bool isAnswered = waitUntil([&] {
        const auto cookie = xcb_get_property(m_connection, 0, window, extents, XCB_ATOM_CARDINAL, 0, 4);
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
        return reply && reply->type != XCB_ATOM_NONE;
    });
    xcb_destroy_window(m_connection, window);
    return isAnswered;
}

xcb_window_t X11Partner::activeWindow() const {
    const auto cookie = xcb_get_property(m_connection, 0, m_root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) < 4) {
        return XCB_WINDOW_NONE;
    }
    xcb_window_t window = XCB_WINDOW_NONE;
    std::memcpy(&window, xcb_get_property_value(reply.get()), sizeof window);
    // Openbox lets the last window's number stand when that window has gone.
    const Owned<xcb_get_window_attributes_reply_t> there(
        xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return there && there->map_state != XCB_MAP_STATE_UNMAPPED ? window : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool X11Partner::isViewable(xcb_window_t window) const {
    const Owned<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

QPoint X11Partner::centreOf(xcb_window_t window) const {
    const Owned<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    if (!geometry) {
        return {-1, -1};
    }
    const auto x = static_cast<std::int16_t>(geometry->width / 2);
    const auto y = static_cast<std::int16_t>(geometry->height / 2);
    const Owned<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        m_connection, xcb_translate_coordinates(m_connection, window, m_root, x, y), nullptr));
    return place ? QPoint(place->dst_x, place->dst_y) : QPoint(-1, -1);
}

int X11Partner::pastesReceived(xcb_window_t window) const {
    const auto found = m_pastes.find(window);
    return found == m_pastes.end() ? 0 : found->second;
}

void X11Partner::fake(std::uint8_t type, std::uint8_t detail, QPoint position) {
    xcb_test_fake_input(m_connection, type, detail, XCB_CURRENT_TIME, m_root, static_cast<std::int16_t>(position.x()),
                        static_cast<std::int16_t>(position.y()), 0);
}

void X11Partner::pressKey(xcb_keycode_t key, const std::vector<xcb_keycode_t>& held) {
    for (const xcb_keycode_t modifier : held) {
        fake(XCB_KEY_PRESS, modifier);
    }
    fake(XCB_KEY_PRESS, key);
    fake(XCB_KEY_RELEASE, key);
    for (const xcb_keycode_t modifier : held) {
        fake(XCB_KEY_RELEASE, modifier);
    }
    sync();
}

void X11Partner::holdKey(xcb_keycode_t key) {
    fake(XCB_KEY_PRESS, key);
    sync();
}

void X11Partner::releaseKey(xcb_keycode_t key) {
    fake(XCB_KEY_RELEASE, key);
    sync();
}

void X11Partner::click(QPoint pixels, std::uint8_t button) {
    fake(XCB_MOTION_NOTIFY, 0, pixels);
    fake(XCB_BUTTON_PRESS, button);
    fake(XCB_BUTTON_RELEASE, button);
    sync();
}

void X11Partner::clickWindow(xcb_window_t window, std::uint8_t button) {
    xcb_grab_server(m_connection);
    click(centreOf(window), button);
    xcb_ungrab_server(m_connection);
    sync();
}

void X11Partner::grabKey(xcb_keycode_t key, std::uint16_t modifiers) {
    xcb_grab_key(m_connection, 0, m_root, modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    sync();
}

void X11Partner::copy(const std::vector<Offer>& offers) {
    m_offers = offers;
    // The time of the server, learnt by a change of a property.
    m_time = XCB_CURRENT_TIME;
    xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_helper, atom("PARTNER_CLOCK"), XCB_ATOM_INTEGER, 32, 0,
                        nullptr);
    xcb_flush(m_connection);
    waitUntil([this] { return m_time != XCB_CURRENT_TIME; });
    xcb_set_selection_owner(m_connection, m_helper, atom("CLIPBOARD"), m_time);
    sync();
}

void X11Partner::requestPaste(const std::string& target) {
    m_pasted.reset();
    m_isReceivingPieces = false;
    m_pieces.clear();
    xcb_convert_selection(m_connection, m_helper, atom("CLIPBOARD"), atom(target), atom("PARTNER_PASTE"),
                          XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

bool X11Partner::catchUp() {
    sync();
    bool hasNews = false;
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_queued_event(m_connection)}) {
        hasNews = true;
        handle(*event);
    }
    xcb_flush(m_connection);
    return hasNews;
}

bool X11Partner::waitUntil(const std::function<bool()>& condition, int patience) {
    return zamber::waitUntil(
        [&] {
            while (catchUp()) { // without a pause: a large answer comes in many pieces
                QCoreApplication::processEvents();
            }
            return condition();
        },
        std::chrono::milliseconds(patience));
}

void X11Partner::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_KEY_PRESS: {
        const auto& press = as<xcb_key_press_event_t>(event);
        if (press.detail == V_KEY && (press.state & 0xff) == XCB_MOD_MASK_CONTROL) {
            ++m_pastes[press.event];
        }
        break;
    }
    case XCB_SELECTION_REQUEST:
        answer(as<xcb_selection_request_event_t>(event));
        break;
    case XCB_SELECTION_NOTIFY:
        takePaste(as<xcb_selection_notify_event_t>(event));
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& notify = as<xcb_property_notify_event_t>(event);
        if (notify.window == m_helper && notify.atom == atom("PARTNER_CLOCK")) {
            m_time = notify.time;
        } else if (notify.window == m_helper && m_isReceivingPieces && notify.atom == atom("PARTNER_PASTE") &&
                   notify.state == XCB_PROPERTY_NEW_VALUE) {
            takePaste({});
        } else if (notify.state == XCB_PROPERTY_DELETE) {
            const auto sending = std::ranges::find_if(
                m_sending, [&](const Sending& s) { return s.requestor == notify.window && s.property == notify.atom; });
            if (sending != m_sending.end()) {
                const QByteArray piece = sending->rest.left(PIECE_BYTES);
                sending->rest.remove(0, piece.size());
                xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, sending->requestor, sending->property,
                                    sending->type, 8, static_cast<std::uint32_t>(piece.size()), piece.constData());
                if (piece.isEmpty()) {
                    m_sending.erase(sending);
                }
            }
        }
        break;
    }
    default:
        break;
    }
}

void X11Partner::answer(const xcb_selection_request_event_t& request) {
    bool isAnswered = true;
    const auto offer = std::ranges::find_if(
        m_offers, [&](const Offer& candidate) { return atom(candidate.target) == request.target; });
    if (request.target == atom("TARGETS")) {
        std::vector<xcb_atom_t> targets{request.target};
        for (const Offer& each : m_offers) {
            targets.push_back(atom(each.target));
        }
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, XCB_ATOM_ATOM, 32,
                            static_cast<std::uint32_t>(targets.size()), targets.data());
    } else if (offer == m_offers.end()) {
        isAnswered = false;
    } else if (offer->bytes.size() > PIECE_BYTES) {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection, request.requestor, XCB_CW_EVENT_MASK, &events);
        const auto size = static_cast<std::uint32_t>(offer->bytes.size());
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, atom("INCR"), 32,
                            1, &size);
        m_sending.push_back({request.requestor, request.property, request.target, offer->bytes});
    } else {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, request.target, 8,
                            static_cast<std::uint32_t>(offer->bytes.size()), offer->bytes.constData());
    }
    union {
        xcb_selection_notify_event_t notify;
        char bytes[32];
    } reply{.bytes = {}};
    reply.notify.response_type = XCB_SELECTION_NOTIFY;
    reply.notify.time = request.time;
    reply.notify.requestor = request.requestor;
    reply.notify.selection = request.selection;
    reply.notify.target = request.target;
    reply.notify.property = isAnswered ? request.property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    xcb_send_event(m_connection, 0, request.requestor, 0, reply.bytes);
    xcb_flush(m_connection);
}

void X11Partner::takePaste(const xcb_selection_notify_event_t& notify) {
    if (!m_isReceivingPieces && notify.property == XCB_ATOM_NONE) {
        m_pasted.emplace(std::nullopt);
        return;
    }
    const auto cookie =
        xcb_get_property(m_connection, 1, m_helper, atom("PARTNER_PASTE"), XCB_GET_PROPERTY_TYPE_ANY, 0, 0x1fffffff);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    const QByteArray bytes(static_cast<const char*>(xcb_get_property_value(reply.get())),
                           xcb_get_property_value_length(reply.get()));
    if (reply->type == atom("INCR")) {
        m_isReceivingPieces = true;
    } else if (!m_isReceivingPieces) {
        m_pasted.emplace(bytes);
    } else if (bytes.isEmpty()) {
        m_isReceivingPieces = false;
        m_pasted.emplace(m_pieces);
    } else {
        m_pieces += bytes;
    }
}

} // namespace zamber::x11
