// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11EmbeddedIcon.h"

#include "platform/x11/SelectionProperty.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace zamber::x11 {

namespace {

/// Whether pixels of that visual say how opaque they are.
bool hasAlpha(const Connection& connection, xcb_visualid_t id) {
    constexpr std::uint8_t DEPTH_WITH_ALPHA = 32;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.raw()));
    while (screens.data->root != connection.root()) {
        xcb_screen_next(&screens);
    }
    auto depths = xcb_screen_allowed_depths_iterator(screens.data);
    while (depths.rem > 0 && depths.data->depth != DEPTH_WITH_ALPHA) {
        xcb_depth_next(&depths);
    }
    if (depths.rem == 0) {
        return false;
    }
    const std::span visuals(xcb_depth_visuals(depths.data),
                            static_cast<std::size_t>(xcb_depth_visuals_length(depths.data)));
    return std::ranges::any_of(visuals, [id](const xcb_visualtype_t& visual) { return visual.visual_id == id; });
}

/// The rectangle with that place, in pixels, and that size, in points. A screen begins at the same place in points and
/// in pixels; only what lies inside it is scaled.
QRect toPoints(QPoint place, QSize size) {
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QPoint origin = screen->geometry().topLeft();
        const double ratio = screen->devicePixelRatio();
        if (QRect(origin, (QSizeF(screen->geometry().size()) * ratio).toSize()).contains(place)) {
            return {(QPointF(place - origin) / ratio).toPoint() + origin, size};
        }
    }
    return {place, size};
}

/// The window that the event is about, of those kinds that tell of the icon's window.
xcb_window_t windowOf(const xcb_generic_event_t& event) {
    switch (codeOf(event)) {
    case XCB_DESTROY_NOTIFY:
        return as<xcb_destroy_notify_event_t>(event).window;
    case XCB_REPARENT_NOTIFY:
        return as<xcb_reparent_notify_event_t>(event).window;
    case XCB_MAP_NOTIFY:
        return as<xcb_map_notify_event_t>(event).window;
    case XCB_UNMAP_NOTIFY:
        return as<xcb_unmap_notify_event_t>(event).window;
    default:
        return XCB_WINDOW_NONE;
    }
}

} // namespace

X11EmbeddedIcon::X11EmbeddedIcon(Connection& connection)
    : m_connection(connection) {
    connection.addEventHandler([this](const xcb_generic_event_t& event) {
        if (!m_isShown) {
            return;
        }
        if (m_window && windowOf(event) == m_window->id()) {
            handle(event);
        } else {
            handleTraysEvent(event);
        }
    });
}

X11EmbeddedIcon::~X11EmbeddedIcon() {
    m_isShown = false;
    delete m_window.release(); // there may be no loop any more to delete it later
}

void X11EmbeddedIcon::show(Drawing drawing, const QString& title) {
    if (qGuiApp->nativeInterface<QNativeInterface::QX11Application>() == nullptr) {
        return; // Qt's windows are a Wayland compositor's, which a tray of X cannot take in
    }
    m_drawing = std::move(drawing);
    m_title = title;
    if (m_selection == XCB_ATOM_NONE) {
        m_selection = m_connection.intern("_NET_SYSTEM_TRAY_S" + std::to_string(m_connection.screenNumber()));
    }
    m_isShown = true;
    m_connection.watch(m_connection.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY); // where a tray that comes tells of it
    findTray();
}

void X11EmbeddedIcon::hide() {
    if (!std::exchange(m_isShown, false)) {
        return;
    }
    m_connection.unwatch(m_connection.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    leaveTray();
    m_connection.flush();
}

void X11EmbeddedIcon::findTray() {
    leaveTray();
    m_tray = m_connection.selectionOwner(m_selection);
    if (m_tray != XCB_WINDOW_NONE) {
        m_connection.watch(m_tray, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        const xcb_atom_t visual = m_connection.intern("_NET_SYSTEM_TRAY_VISUAL");
        const auto wanted = numbersOf(m_connection.readProperty(m_tray, visual, Connection::Afterwards::Keep));
        const bool isBlended = !wanted.empty() && hasAlpha(m_connection, wanted.front());
        m_window.reset(new IconWindow(
            m_connection, isBlended ? IconWindow::Ground::Blended : IconWindow::Ground::Copied, m_drawing, m_title));
        connect(m_window.get(), &IconWindow::clicked, this, &X11EmbeddedIcon::clicked);
        connect(m_window.get(), &IconWindow::pointerMoved, this, &X11EmbeddedIcon::pointerMoved);
        connect(m_window.get(), &IconWindow::pointerLeft, this, &X11EmbeddedIcon::pointerLeft);
        m_connection.watch(m_window->id(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        askForPlace();
    }
    m_connection.flush();
}

void X11EmbeddedIcon::leaveTray() {
    if (m_tray != XCB_WINDOW_NONE) {
        m_connection.unwatch(std::exchange(m_tray, XCB_WINDOW_NONE), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    m_isEmbedded = false;
    m_isMapped = false;
    if (m_window) {
        m_connection.unwatch(m_window->id(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        xcb_unmap_window(m_connection.raw(), m_window->id());
        m_window->disconnect(this);
        m_window.reset();
        Q_EMIT pointerLeft();
    }
}

void X11EmbeddedIcon::askForPlace() const {
    constexpr std::uint32_t REQUEST_DOCK = 0;
    xcb_client_message_event_t message{}; // 32 bytes, as an event is sent
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_tray;
    message.type = m_connection.intern("_NET_SYSTEM_TRAY_OPCODE");
    message.data.data32[0] = m_connection.lastTimestamp();
    message.data.data32[1] = REQUEST_DOCK;
    message.data.data32[2] = m_window->id();
    xcb_send_event(m_connection.raw(), 0, m_tray, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
}

std::optional<QRect> X11EmbeddedIcon::rectangle() const {
    if (!m_window || !m_isEmbedded || !m_isMapped) {
        return std::nullopt;
    }
    // Asked each time: a tray that moves with the icon in it does not tell the icon.
    xcb_connection_t* const raw = m_connection.raw();
    const auto cookie = xcb_translate_coordinates(raw, m_window->id(), m_connection.root(), 0, 0);
    const Owned<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(raw, cookie, nullptr));
    if (!place) {
        return std::nullopt;
    }
    return toPoints(QPoint(place->dst_x, place->dst_y), m_window->size());
}

void X11EmbeddedIcon::handleTraysEvent(const xcb_generic_event_t& event) {
    if (codeOf(event) == XCB_CLIENT_MESSAGE) {
        const auto& message = as<xcb_client_message_event_t>(event);
        const bool isKnown = m_window && message.data.data32[2] == m_tray; // it was found before it told
        if (message.type == m_connection.atom(Atom::Manager) && message.data.data32[1] == m_selection && !isKnown) {
            findTray();
        }
    } else if (codeOf(event) == XCB_DESTROY_NOTIFY && m_tray != XCB_WINDOW_NONE &&
               as<xcb_destroy_notify_event_t>(event).window == m_tray) {
        findTray(); // another one may be there already
    }
}

void X11EmbeddedIcon::handle(const xcb_generic_event_t& event) {
    switch (codeOf(event)) {
    case XCB_DESTROY_NOTIFY: // by a tray that has taken its icons with it
        leaveTray();
        break;
    case XCB_REPARENT_NOTIFY:
        handleReparenting(as<xcb_reparent_notify_event_t>(event).parent);
        break;
    case XCB_MAP_NOTIFY:
        m_isMapped = true;
        break;
    case XCB_UNMAP_NOTIFY:
        m_isMapped = false;
        break;
    default:
        break;
    }
}

void X11EmbeddedIcon::handleReparenting(xcb_window_t parent) {
    if (parent == m_connection.root()) {
        leaveTray(); // the tray has let go of it; the next one is asked anew
        m_connection.flush();
        return;
    }
    m_isEmbedded = true;
    m_window->seeGround();
}

} // namespace zamber::x11
