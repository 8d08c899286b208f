// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/Connection.h"

#include <QPointer>

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace zamber::wayland {

/// A request whose answer says that the compositor has seen all requests before it.
struct Connection::PendingSync {
    QPointer<QObject> context;
    std::function<void()> done;
};

std::expected<std::unique_ptr<Connection>, std::string> Connection::open() {
    // Without a name the library takes a socket of the usual name, which may belong to another session of this user.
    wl_display* const display = qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? nullptr : wl_display_connect(nullptr);
    if (display == nullptr) {
        return std::unexpected("there is no Wayland compositor to be reached");
    }
    std::unique_ptr<Connection> connection(new Connection(display));
    if (!connection->roundTrip()) {
        return std::unexpected("the Wayland compositor does not answer");
    }
    connection->m_seat.reset(connection->bind<wl_seat>(wl_seat_interface, 1));
    return connection;
}

Connection::Connection(wl_display* display)
    : m_display(display)
    , m_registry(wl_display_get_registry(display))
    , m_readable(wl_display_get_fd(display), QSocketNotifier::Read)
    , m_writable(wl_display_get_fd(display), QSocketNotifier::Write) {
    static constexpr wl_registry_listener LISTENER{
        .global = [](void* self, wl_registry*, std::uint32_t name, const char* interface,
                     std::uint32_t version) { static_cast<Connection*>(self)->noteGlobal(name, interface, version); },
        .global_remove = [](void* self, wl_registry*,
                            std::uint32_t name) { static_cast<Connection*>(self)->forgetGlobal(name); }};
    wl_registry_add_listener(m_registry.get(), &LISTENER, this);
    m_writable.setEnabled(false);
    connect(&m_readable, &QSocketNotifier::activated, this, &Connection::dispatchEvents);
    connect(&m_writable, &QSocketNotifier::activated, this, &Connection::flush);
}

Connection::~Connection() {
    // The notifiers go before the file that they watch is closed.
    m_readable.setEnabled(false);
    m_writable.setEnabled(false);
}

void Connection::noteGlobal(std::uint32_t name, const char* interface, std::uint32_t version) {
    m_globals.try_emplace(
        interface, Global{.name = name, .version = version}); // the first one that is offered, if there are several
}

void Connection::forgetGlobal(std::uint32_t name) {
    std::erase_if(m_globals, [name](const auto& global) { return global.second.name == name; });
}

void* Connection::bindAny(const wl_interface& interface, std::uint32_t newestVersion) const {
    const auto found = m_globals.find(interface.name);
    if (found == m_globals.end()) {
        return nullptr;
    }
    return wl_registry_bind(m_registry.get(), found->second.name, &interface,
                            std::min(newestVersion, found->second.version));
}

void Connection::flush() {
    const bool isSent = wl_display_flush(m_display.get()) >= 0;
    m_writable.setEnabled(!isSent && errno == EAGAIN && !m_isLost);
    // Any other failure shows when reading, after the last events of the compositor have been read.
}

bool Connection::roundTrip() {
    if (wl_display_roundtrip(m_display.get()) < 0) {
        handleFailure();
        return false;
    }
    return true;
}

void Connection::afterRoundTrip(QObject* context, std::function<void()> done) {
    static constexpr wl_callback_listener LISTENER{.done = [](void* data, wl_callback* callback, std::uint32_t) {
        const std::unique_ptr<PendingSync> sync(static_cast<PendingSync*>(data));
        wl_callback_destroy(callback);
        if (sync->context) {
            sync->done();
        }
    }};
    if (m_isLost) {
        return;
    }
    auto sync = std::make_unique<PendingSync>(PendingSync{.context = context, .done = std::move(done)});
    wl_callback_add_listener(wl_display_sync(m_display.get()), &LISTENER, sync.release());
    flush();
}

void Connection::dispatchEvents() {
    while (!m_isLost) {
        while (wl_display_prepare_read(m_display.get()) != 0) {
            if (wl_display_dispatch_pending(m_display.get()) < 0) {
                handleFailure();
                return;
            }
        }
        flush();
        pollfd readable{.fd = wl_display_get_fd(m_display.get()), .events = POLLIN, .revents = 0};
        if (poll(&readable, 1, 0) <= 0) {
            wl_display_cancel_read(m_display.get());
            return;
        }
        if (wl_display_read_events(m_display.get()) < 0 || wl_display_dispatch_pending(m_display.get()) < 0) {
            handleFailure();
            return;
        }
    }
}

void Connection::handleFailure() {
    if (!std::exchange(m_isLost, true)) {
        m_readable.setEnabled(false);
        m_writable.setEnabled(false);
        Q_EMIT lost();
    }
}

} // namespace zamber::wayland
