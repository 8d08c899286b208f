// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <QRect>
#include <QRectF>
#include <QSize>

#include <vector>

namespace zamber::x11 {

/// A strip along an edge of the desktop that a panel reserves, in pixels: its depth from the edge, and its first and
/// last pixel along the edge.
struct ReservedStrip {
    enum class Edge { Left, Right, Top, Bottom };
    Edge edge = Edge::Top;
    int depth = 0;
    int first = 0;
    int last = 0;
};

/// The part of a monitor that the strips leave free. A strip that would leave less than half of the monitor belongs to
/// another one: depths are counted from the edge of the whole desktop, also for panels between two monitors.
QRect withoutStrips(const QRect& monitor, QSize desktop, const std::vector<ReservedStrip>& strips);

/// The panels of the desktop (EWMH, `_NET_WM_STRUT_PARTIAL`).
class Panels final {
public:
    explicit Panels(const Connection& connection);

    /// The part of a monitor that panels leave free, in pixels. Two round trips, however many windows there are.
    QRect workArea(const QRect& monitor) const;

    /// The part of the whole desktop that is free by the word of the window manager, which knows panels that are no
    /// windows of X as well. The desktop's width and height are 1; all of it where the window manager says nothing.
    QRectF freePart() const;

private:
    std::vector<ReservedStrip> strips() const;

    const Connection& m_connection;
    xcb_atom_t m_clientList;
    xcb_atom_t m_strut;
    xcb_atom_t m_workArea;
};

} // namespace zamber::x11
