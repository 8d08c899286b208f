// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Proxy.h"

#include <QObject>
#include <QSocketNotifier>

#include <wayland-client.h>

#include <cstdint>
#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace zamber::wayland {

/// A connection to the compositor beside Qt's own, served by Qt's event loop and idle when nothing happens. A call that
/// waits for an answer waits for the compositor, never for another program.
class Connection final : public QObject {
    Q_OBJECT

public:
    /// Connects to the compositor of the environment. The error is a sentence for people.
    static std::expected<std::unique_ptr<Connection>, std::string> open();

    ~Connection() override;

    /// The seat of the user, or null on a compositor without one.
    wl_seat* seat() const { return m_seat.get(); }

    /// Does the compositor offer an interface of that name?
    bool offers(const wl_interface& interface) const { return m_globals.contains(interface.name); }

    /// The compositor's object of that interface, in the newest version that both sides know up to the one given; null
    /// where it is not offered.
    template <class Object>
    Object* bind(const wl_interface& interface, std::uint32_t newestVersion) const {
        return static_cast<Object*>(bindAny(interface, newestVersion));
    }

    /// Sends the requests that were made. Those that the socket has no room for follow when it has.
    void flush();

    /// Waits until the compositor has seen all requests, and hands on the events that it sent before that. False when
    /// the compositor has gone.
    bool roundTrip();

    /// Calls back once the compositor has seen all requests made so far and its events until then have been handed on;
    /// never after the context has gone.
    void afterRoundTrip(QObject* context, std::function<void()> done);

Q_SIGNALS:
    /// The compositor has gone, or has closed this connection. No request is sent and no event comes any more.
    void lost();

private:
    struct Global {
        std::uint32_t name = 0;
        std::uint32_t version = 0;
    };
    struct PendingSync;

    explicit Connection(wl_display* display);
    void* bindAny(const wl_interface& interface, std::uint32_t newestVersion) const;
    void noteGlobal(std::uint32_t name, const char* interface, std::uint32_t version);
    void forgetGlobal(std::uint32_t name);
    void dispatchEvents();
    void handleFailure();

    Proxy<wl_display> m_display;
    Proxy<wl_registry> m_registry;
    std::map<std::string, Global, std::less<>> m_globals;
    Proxy<wl_seat> m_seat;
    QSocketNotifier m_readable;
    QSocketNotifier m_writable;
    bool m_isLost = false;
};

} // namespace zamber::wayland
