// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Atoms.h"

#include <QByteArray>
#include <QObject>

#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <deque>
#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QSocketNotifier;

namespace zamber::x11 {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

/// Memory that xcb has allocated with malloc: a reply, an event, an error.
template <class T>
using Owned = std::unique_ptr<T, Free>;

/// The value of a window's property.
struct Property {
    xcb_atom_t type = XCB_ATOM_NONE;
    int format = 0; ///< bits an element: 8, 16 or 32; 0 when the property does not exist
    QByteArray bytes;
};

/// A connection to the X server of our own, served by Qt's event loop and idle when nothing happens.
///
/// Its events arrive whatever Qt does with a connection of its own: an open menu's grab, a modal dialog, a busy paint.
/// Waiting for a reply here is waiting for the X server alone, never for another program.
class Connection final : public QObject {
    Q_OBJECT

public:
    using EventHandler = std::function<void(const xcb_generic_event_t&)>;
    using TimestampHandler = std::function<void(xcb_timestamp_t)>;

    /// Connects to the display of the environment. The error is a sentence for people.
    static std::expected<std::unique_ptr<Connection>, std::string> open();

    ~Connection() override;

    xcb_connection_t* raw() const { return m_connection; }
    xcb_window_t root() const { return m_screen->root; }
    int screenNumber() const { return m_screenNumber; }
    xcb_atom_t atom(Atom atom) const { return m_atoms[static_cast<std::size_t>(atom)]; }

    /// Interns a name at once, by a round trip to the server.
    xcb_atom_t intern(std::string_view name) const;

    /// Every event goes to every handler, in the order in which they were added; they live as long as the connection.
    void addEventHandler(EventHandler handler);

    /// An invisible window of ours that can hold properties. The caller destroys it.
    xcb_window_t createWindow(std::uint32_t eventMask) const;

    /// Whether both windows, or other resources, were made by the same program, as far as ids tell.
    bool areOfOneClient(xcb_window_t one, xcb_window_t other) const;

    /// Reads a property by one round trip; optionally deletes it in the same step.
    enum class Afterwards { Keep, Delete };
    Property readProperty(xcb_window_t window, xcb_atom_t property, Afterwards afterwards) const;

    /// The window that owns a selection, by one round trip; none when no window does.
    xcb_window_t selectionOwner(xcb_atom_t selection) const;

    /// Asks for events of a window of another program: structure or property changes. Each call is undone by one
    /// of `unwatch`; the masks of all callers add up.
    void watch(xcb_window_t window, xcb_event_mask_t mask);
    void unwatch(xcb_window_t window, xcb_event_mask_t mask);

    /// Learns the server's time without waiting in place (ICCCM, section 2.1: a zero-length append).
    void requestTimestamp(TimestampHandler handler);

    /// The time of the newest event that carried one, in the server's milliseconds.
    xcb_timestamp_t lastTimestamp() const { return m_lastTimestamp; }
    void noteTimestamp(xcb_timestamp_t time) { m_lastTimestamp = time; }

    /// Sends a client message about the window to the root window, for the programs that have selected these events.
    void tellRoot(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5>& data,
                  std::uint32_t eventMask) const;

    void flush() const { xcb_flush(m_connection); }

    /// Waits in place until the condition holds, for that long at most. Only this connection's events are handled
    /// meanwhile, and the results of worker threads: for the end of the program, when there is no loop any more.
    void serveInPlace(const std::function<bool()>& isDone, std::chrono::milliseconds longest);

    /// Hands on, before it returns, every event that the server had up to this call.
    void catchUp();

private:
    Connection(xcb_connection_t* connection, int screenNumber);
    void internAtoms();
    void dispatchEvents();
    void dispatchQueuedEvents();
    void dispatchUntilEmpty(xcb_generic_event_t* (*poll)(xcb_connection_t*));
    void dispatch(const xcb_generic_event_t& event);
    void applyWatch(xcb_window_t window) const;

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
    int m_screenNumber;
    std::array<xcb_atom_t, ATOM_NAMES.size()> m_atoms{};
    std::vector<EventHandler> m_handlers;
    std::map<xcb_window_t, std::map<std::uint32_t, int>> m_watches; // window → mask → number of callers
    xcb_window_t m_clockWindow = XCB_WINDOW_NONE;
    std::deque<TimestampHandler> m_timestampHandlers; // in the order of their requests
    xcb_timestamp_t m_lastTimestamp = XCB_CURRENT_TIME;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

/// An event as the type that its code says it is.
template <class T>
const T& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

/// The code of an event, without the bit that is set when a program has sent it.
inline std::uint8_t codeOf(const xcb_generic_event_t& event) {
    return event.response_type & 0x7f;
}

} // namespace zamber::x11
