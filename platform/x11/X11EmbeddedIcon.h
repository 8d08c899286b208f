// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/tray/EmbeddedIcon.h"
#include "platform/x11/Connection.h"
#include "platform/x11/IconWindow.h"

#include <memory>

namespace zamber::x11 {

/// The icon as a window in the tray that owns the screen's tray selection (freedesktop.org, System Tray Protocol and
/// XEmbed).
///
/// It is no QSystemTrayIcon: newer Qt's comes to no tray where a watcher of notifier items is on the session bus, even
/// when no panel is there to show them.
class X11EmbeddedIcon final : public freedesktop::tray::EmbeddedIcon {
public:
    /// The connection outlives this object.
    explicit X11EmbeddedIcon(Connection& connection);
    ~X11EmbeddedIcon() override;

    void show(Drawing drawing, const QString& title) override;
    void hide() override;
    std::optional<QRect> rectangle() const override;

    /// The icon's window; none while there is no tray.
    xcb_window_t window() const { return m_window ? m_window->id() : xcb_window_t{XCB_WINDOW_NONE}; }

private:
    /// A tray may end while the window handles an event.
    struct DeleteLater {
        void operator()(IconWindow* window) const { window->deleteLater(); }
    };

    void findTray();
    void leaveTray();
    void askForPlace() const;
    void handle(const xcb_generic_event_t& event);
    void handleTraysEvent(const xcb_generic_event_t& event);
    void handleReparenting(xcb_window_t parent);

    Connection& m_connection;
    xcb_atom_t m_selection = XCB_ATOM_NONE; // interned when the icon is shown for the first time
    bool m_isShown = false;
    Drawing m_drawing;
    QString m_title;
    xcb_window_t m_tray = XCB_WINDOW_NONE;
    std::unique_ptr<IconWindow, DeleteLater> m_window;
    bool m_isEmbedded = false;
    bool m_isMapped = false;
};

} // namespace zamber::x11
