// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/WlrToplevels.h"

#include "platform/wayland/Connection.h"

#include <wlr-foreign-toplevel-management-unstable-v1.h>

#include <algorithm>
#include <memory>
#include <span>

namespace zamber::wayland {

namespace {

constexpr std::uint32_t NEWEST_VERSION = 3;

} // namespace

/// Whether the window is active counts from the event "done" on, which says that what was told is complete.
class WlrToplevels::WlrWindow final : public Window {
public:
    WlrWindow(WlrToplevels& owner, zwlr_foreign_toplevel_handle_v1* object);

    void activate() override { zwlr_foreign_toplevel_handle_v1_activate(m_proxy.get(), m_seat); }

private:
    void handleState(const wl_array& states) {
        const std::span values(static_cast<const std::uint32_t*>(states.data), states.size / sizeof(std::uint32_t));
        m_isToBeActive =
            std::ranges::find(values, std::uint32_t{ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED}) != values.end();
    }

    wl_seat* m_seat;
    Proxy<zwlr_foreign_toplevel_handle_v1> m_proxy;
    bool m_isToBeActive = false;
};

std::unique_ptr<Toplevels> WlrToplevels::create(Connection& connection) {
    auto* const manager =
        connection.bind<zwlr_foreign_toplevel_manager_v1>(zwlr_foreign_toplevel_manager_v1_interface, NEWEST_VERSION);
    if (manager == nullptr || connection.seat() == nullptr) {
        return nullptr;
    }
    std::unique_ptr<WlrToplevels> toplevels(new WlrToplevels(connection, manager));
    toplevels->readAll();
    return toplevels;
}

WlrToplevels::WlrToplevels(Connection& connection, zwlr_foreign_toplevel_manager_v1* manager)
    : ListedToplevels(connection)
    , m_seat(connection.seat())
    , m_manager(manager) {
    static constexpr zwlr_foreign_toplevel_manager_v1_listener LISTENER{
        .toplevel =
            [](void* self, zwlr_foreign_toplevel_manager_v1*, zwlr_foreign_toplevel_handle_v1* window) {
                auto& toplevels = *static_cast<WlrToplevels*>(self);
                toplevels.add(std::make_unique<WlrWindow>(toplevels, window));
            },
        .finished = [](void*, zwlr_foreign_toplevel_manager_v1*) {}};
    zwlr_foreign_toplevel_manager_v1_add_listener(manager, &LISTENER, this);
}

WlrToplevels::WlrWindow::WlrWindow(WlrToplevels& owner, zwlr_foreign_toplevel_handle_v1* object)
    : Window(owner)
    , m_seat(owner.m_seat)
    , m_proxy(object) {
    using Handle = zwlr_foreign_toplevel_handle_v1;
    static constexpr auto AS_WINDOW = [](void* self) -> WlrWindow& { return *static_cast<WlrWindow*>(self); };
    static constexpr zwlr_foreign_toplevel_handle_v1_listener LISTENER{
        .title = [](void*, Handle*, const char*) {},
        .app_id = [](void* self, Handle*,
                     const char* id) { AS_WINDOW(self).described.applicationId = QString::fromUtf8(id); },
        .output_enter = [](void*, Handle*, wl_output*) {},
        .output_leave = [](void*, Handle*, wl_output*) {},
        .state = [](void* self, Handle*, wl_array* states) { AS_WINDOW(self).handleState(*states); },
        .done = [](void* self, Handle*) { AS_WINDOW(self).setActive(AS_WINDOW(self).m_isToBeActive); },
        .closed = [](void* self, Handle*) { AS_WINDOW(self).remove(); },
        .parent = [](void*, Handle*, Handle*) {}};
    zwlr_foreign_toplevel_handle_v1_add_listener(object, &LISTENER, this);
}

} // namespace zamber::wayland
