// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/WlrToplevels.h"

#include "platform/wayland/Connection.h"

#include <wlr-foreign-toplevel-management-unstable-v1.h>

#include <algorithm>
#include <span>
#include <utility>

namespace zamber::wayland {

namespace {

constexpr std::uint32_t NEWEST_VERSION = 3;

} // namespace

/// A window. Its new properties count from the event "done" on, which says that they are complete.
struct WlrToplevels::Window {
    WlrToplevels& owner;
    Proxy<zwlr_foreign_toplevel_handle_v1> proxy;
    std::uint64_t handle = 0;
    QString applicationId;
    bool isActive = false;
    bool isToBeActive = false;

    void handleState(const wl_array& states) {
        const std::span values(static_cast<const std::uint32_t*>(states.data), states.size / sizeof(std::uint32_t));
        isToBeActive =
            std::ranges::find(values, std::uint32_t{ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED}) != values.end();
    }

    void handleDone() {
        if (std::exchange(isActive, isToBeActive) != isToBeActive) {
            Q_EMIT owner.activeChanged();
        }
    }

    void handleClosed() {
        WlrToplevels& toplevels = owner;
        std::erase_if(toplevels.m_windows, [this](const auto& window) { return window.get() == this; });
        Q_EMIT toplevels.activeChanged();
    }
};

std::unique_ptr<Toplevels> WlrToplevels::create(Connection& connection) {
    auto* const manager =
        connection.bind<zwlr_foreign_toplevel_manager_v1>(zwlr_foreign_toplevel_manager_v1_interface, NEWEST_VERSION);
    if (manager == nullptr || connection.seat() == nullptr) {
        return nullptr;
    }
    std::unique_ptr<WlrToplevels> toplevels(new WlrToplevels(connection, manager));
    connection.roundTrip(); // the windows
    connection.roundTrip(); // and the properties of each
    return toplevels;
}

WlrToplevels::WlrToplevels(Connection& connection, zwlr_foreign_toplevel_manager_v1* manager)
    : m_connection(connection)
    , m_manager(manager) {
    static constexpr zwlr_foreign_toplevel_manager_v1_listener LISTENER{
        .toplevel = [](void* self, zwlr_foreign_toplevel_manager_v1*,
                       zwlr_foreign_toplevel_handle_v1* window) { static_cast<WlrToplevels*>(self)->add(window); },
        .finished = [](void*, zwlr_foreign_toplevel_manager_v1*) {}};
    zwlr_foreign_toplevel_manager_v1_add_listener(manager, &LISTENER, this);
}

WlrToplevels::~WlrToplevels() = default;

void WlrToplevels::add(zwlr_foreign_toplevel_handle_v1* window) {
    using Handle = zwlr_foreign_toplevel_handle_v1;
    static constexpr auto AS_WINDOW = [](void* self) -> Window& { return *static_cast<Window*>(self); };
    static constexpr zwlr_foreign_toplevel_handle_v1_listener LISTENER{
        .title = [](void*, Handle*, const char*) {},
        .app_id = [](void* self, Handle*, const char* id) { AS_WINDOW(self).applicationId = QString::fromUtf8(id); },
        .output_enter = [](void*, Handle*, wl_output*) {},
        .output_leave = [](void*, Handle*, wl_output*) {},
        .state = [](void* self, Handle*, wl_array* states) { AS_WINDOW(self).handleState(*states); },
        .done = [](void* self, Handle*) { AS_WINDOW(self).handleDone(); },
        .closed = [](void* self, Handle*) { AS_WINDOW(self).handleClosed(); },
        .parent = [](void*, Handle*, Handle*) {}};
    auto& added = m_windows.emplace_back(std::make_unique<Window>(*this));
    added->proxy.reset(window);
    added->handle = ++m_lastHandle;
    zwlr_foreign_toplevel_handle_v1_add_listener(window, &LISTENER, added.get());
}

std::optional<Toplevels::Toplevel> WlrToplevels::active() const {
    const auto found = std::ranges::find_if(m_windows, [](const auto& window) { return window->isActive; });
    if (found == m_windows.end()) {
        return std::nullopt;
    }
    return Toplevel{.handle = (*found)->handle, .applicationId = (*found)->applicationId};
}

bool WlrToplevels::isOpen(std::uint64_t handle) const {
    return std::ranges::any_of(m_windows, [handle](const auto& window) { return window->handle == handle; });
}

void WlrToplevels::activate(std::uint64_t handle) {
    for (const auto& window : m_windows) {
        if (window->handle == handle) {
            zwlr_foreign_toplevel_handle_v1_activate(window->proxy.get(), m_connection.seat());
            m_connection.flush();
        }
    }
}

} // namespace zamber::wayland
