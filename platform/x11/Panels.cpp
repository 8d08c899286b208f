// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/Panels.h"

#include "platform/x11/SelectionProperty.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zamber::x11 {

namespace {

/// The four depths in the order of the edges, then first and last for each.
constexpr std::size_t STRUT_NUMBERS = 12;
constexpr std::array EDGES = {ReservedStrip::Edge::Left, ReservedStrip::Edge::Right, ReservedStrip::Edge::Top,
                              ReservedStrip::Edge::Bottom};

QRect rectangle(const ReservedStrip& strip, QSize desktop) {
    const int length = strip.last - strip.first + 1;
    switch (strip.edge) {
    case ReservedStrip::Edge::Left:
        return {0, strip.first, strip.depth, length};
    case ReservedStrip::Edge::Right:
        return {desktop.width() - strip.depth, strip.first, strip.depth, length};
    case ReservedStrip::Edge::Top:
        return {strip.first, 0, length, strip.depth};
    case ReservedStrip::Edge::Bottom:
        break;
    }
    return {strip.first, desktop.height() - strip.depth, length, strip.depth};
}

} // namespace

QRect withoutStrips(const QRect& monitor, QSize desktop, const std::vector<ReservedStrip>& strips) {
    QRect left = monitor;
    for (const ReservedStrip& strip : strips) {
        const QRect taken = rectangle(strip, desktop) & monitor;
        const bool isUpright = strip.edge == ReservedStrip::Edge::Left || strip.edge == ReservedStrip::Edge::Right;
        const bool isTooMuch = isUpright ? taken.width() > monitor.width() / 2 : taken.height() > monitor.height() / 2;
        if (taken.isEmpty() || isTooMuch) {
            continue;
        }
        switch (strip.edge) {
        case ReservedStrip::Edge::Left:
            left.setLeft(std::max(left.left(), taken.right() + 1));
            break;
        case ReservedStrip::Edge::Right:
            left.setRight(std::min(left.right(), taken.left() - 1));
            break;
        case ReservedStrip::Edge::Top:
            left.setTop(std::max(left.top(), taken.bottom() + 1));
            break;
        case ReservedStrip::Edge::Bottom:
            left.setBottom(std::min(left.bottom(), taken.top() - 1));
            break;
        }
    }
    return left;
}

Panels::Panels(const Connection& connection)
    : m_connection(connection)
    , m_clientList(connection.intern("_NET_CLIENT_LIST"))
    , m_strut(connection.intern("_NET_WM_STRUT_PARTIAL"))
    , m_workArea(connection.intern("_NET_WORKAREA")) {}

QRect Panels::workArea(const QRect& monitor) const {
    xcb_connection_t* raw = m_connection.raw();
    const auto cookie = xcb_get_geometry(raw, m_connection.root());
    const std::vector<ReservedStrip> reserved = strips();
    const Owned<xcb_get_geometry_reply_t> desktop(xcb_get_geometry_reply(raw, cookie, nullptr));
    return desktop ? withoutStrips(monitor, {desktop->width, desktop->height}, reserved) : monitor;
}

QRectF Panels::freePart() const {
    // Four numbers for each virtual desktop, which have their panels in common.
    const std::vector<std::uint32_t> numbers =
        numbersOf(m_connection.readProperty(m_connection.root(), m_workArea, Connection::Afterwards::Keep));
    xcb_connection_t* raw = m_connection.raw();
    const Owned<xcb_get_geometry_reply_t> desktop(
        xcb_get_geometry_reply(raw, xcb_get_geometry(raw, m_connection.root()), nullptr));
    if (numbers.size() < 4 || !desktop || desktop->width == 0 || desktop->height == 0) {
        return {0, 0, 1, 1};
    }
    const QSizeF whole(desktop->width, desktop->height);
    return {numbers[0] / whole.width(), numbers[1] / whole.height(), numbers[2] / whole.width(),
            numbers[3] / whole.height()};
}

std::vector<ReservedStrip> Panels::strips() const {
    const Property list = m_connection.readProperty(m_connection.root(), m_clientList, Connection::Afterwards::Keep);
    const std::vector<xcb_window_t> windows = numbersOf(list);
    xcb_connection_t* raw = m_connection.raw();
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        cookies.push_back(xcb_get_property(raw, 0, window, m_strut, XCB_ATOM_CARDINAL, 0, STRUT_NUMBERS));
    }
    std::vector<ReservedStrip> strips;
    for (const auto cookie : cookies) {
        xcb_generic_error_t* error = nullptr; // a window that has gone meanwhile
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(raw, cookie, &error));
        const Owned<xcb_generic_error_t> owned(error);
        std::array<std::uint32_t, STRUT_NUMBERS> numbers{};
        if (!reply || reply->format != 32 || reply->value_len != STRUT_NUMBERS) {
            continue;
        }
        std::memcpy(numbers.data(), xcb_get_property_value(reply.get()), sizeof numbers);
        for (std::size_t edge = 0; edge < EDGES.size(); ++edge) {
            if (numbers[edge] > 0) {
                strips.push_back({EDGES[edge], static_cast<int>(numbers[edge]), static_cast<int>(numbers[4 + 2 * edge]),
                                  static_cast<int>(numbers[5 + 2 * edge])});
            }
        }
    }
    return strips;
}

} // namespace zamber::x11
