// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/popover/WindowSystem.h"
#include "platform/x11/Connection.h"
#include "platform/x11/Panels.h"

namespace zamber::x11 {

class Windows;

/// The X server and its window manager, as the popover and the tray icon need them.
class X11WindowSystem final : public freedesktop::popover::WindowSystem {
public:
    /// Both outlive this object.
    X11WindowSystem(Connection& connection, const Windows& windows);

    bool isComposited() const override;
    QRect workArea(const QRect& monitor) const override { return m_panels.workArea(monitor); }
    void setShadow(WId window, const QMargins& shadow) override;
    void presentPopover(WId window) override;
    void bringToFront(WId window) override;
    bool hasKeyboardFocus() const override;

    /// As `Panels::freePart` has it.
    QRectF freePartOfDesktop() const { return m_panels.freePart(); }

private:
    void watchCompositor();

    Connection& m_connection;
    const Windows& m_windows;
    Panels m_panels;
    xcb_atom_t m_compositor;
    xcb_atom_t m_shadow;
};

} // namespace zamber::x11
