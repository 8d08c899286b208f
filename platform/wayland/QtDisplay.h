// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;
class QWindow;
struct wl_display;
struct wl_surface;

namespace zamber::wayland {

/// Qt's own connection to the compositor, which its windows belong to. Before Qt 6.5 no public header of Qt's leads
/// there, and the private one ties a program to one release; so Qt's library for Wayland is asked at run time.
///
/// All of it is null, and does nothing, where the windows are not Wayland's or the library does not answer.
class QtDisplay final {
public:
    QtDisplay();

    wl_display* display() const { return m_display; }

    /// The window's surface. It has another one each time that it is shown.
    wl_surface* surfaceOf(QWindow& window) const;

    /// Waits until the compositor has seen all that Qt has asked for. Its events stay in Qt's queue.
    void roundTrip() const;

private:
    void* m_interface = nullptr;
    void* (*m_resourceOfWindow)(void* self, const QByteArray& name, QWindow* window) = nullptr;
    wl_display* m_display = nullptr;
};

} // namespace zamber::wayland
