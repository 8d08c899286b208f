// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaToplevels.h"

#include "platform/wayland/Connection.h"

#include <kde-plasma-window-management.h>

#include <algorithm>
#include <utility>

namespace zamber::wayland {

namespace {

/// The first version that names windows by their UUID; KWin 6 does not tell of windows in any other way.
constexpr std::uint32_t VERSION = 13;

} // namespace

struct PlasmaToplevels::Window {
    PlasmaToplevels& owner;
    Proxy<org_kde_plasma_window> proxy;
    Toplevel described;
    bool isActive = false;

    void handleState(std::uint32_t flags) {
        const bool isActiveNow = (flags & ORG_KDE_PLASMA_WINDOW_STATE_ACTIVE) != 0;
        if (std::exchange(isActive, isActiveNow) != isActiveNow) {
            Q_EMIT owner.activeChanged();
        }
    }

    void handleUnmapped() {
        PlasmaToplevels& toplevels = owner;
        std::erase_if(toplevels.m_windows, [this](const auto& window) { return window.get() == this; });
        Q_EMIT toplevels.activeChanged();
    }
};

std::unique_ptr<Toplevels> PlasmaToplevels::create(Connection& connection) {
    auto* const manager =
        connection.bind<org_kde_plasma_window_management>(org_kde_plasma_window_management_interface, VERSION);
    if (manager == nullptr) {
        return nullptr;
    }
    if (org_kde_plasma_window_management_get_version(manager) < VERSION) {
        org_kde_plasma_window_management_destroy(manager);
        return nullptr;
    }
    std::unique_ptr<PlasmaToplevels> toplevels(new PlasmaToplevels(connection, manager));
    connection.roundTrip(); // the windows
    connection.roundTrip(); // and the properties of each
    return toplevels;
}

PlasmaToplevels::PlasmaToplevels(Connection& connection, org_kde_plasma_window_management* manager)
    : m_connection(connection)
    , m_manager(manager) {
    static constexpr org_kde_plasma_window_management_listener LISTENER{
        .show_desktop_changed = [](void*, org_kde_plasma_window_management*, std::uint32_t) {},
        .window = [](void*, org_kde_plasma_window_management*, std::uint32_t) {},
        .stacking_order_changed = [](void*, org_kde_plasma_window_management*, wl_array*) {},
        .stacking_order_uuid_changed = [](void*, org_kde_plasma_window_management*, const char*) {},
        .window_with_uuid = [](void* self, org_kde_plasma_window_management*, std::uint32_t,
                               const char* uuid) { static_cast<PlasmaToplevels*>(self)->add(uuid); },
        .stacking_order_changed_2 = [](void*, org_kde_plasma_window_management*) {}};
    org_kde_plasma_window_management_add_listener(manager, &LISTENER, this);
}

PlasmaToplevels::~PlasmaToplevels() = default;

void PlasmaToplevels::add(const char* uuid) {
    using Handle = org_kde_plasma_window;
    static constexpr auto AS_WINDOW = [](void* self) -> Window& { return *static_cast<Window*>(self); };
    static constexpr org_kde_plasma_window_listener LISTENER{
        .title_changed = [](void*, Handle*, const char*) {},
        .app_id_changed = [](void* self, Handle*,
                             const char* id) { AS_WINDOW(self).described.applicationId = QString::fromUtf8(id); },
        .state_changed = [](void* self, Handle*, std::uint32_t flags) { AS_WINDOW(self).handleState(flags); },
        .virtual_desktop_changed = [](void*, Handle*, std::int32_t) {},
        .themed_icon_name_changed = [](void*, Handle*, const char*) {},
        .unmapped = [](void* self, Handle*) { AS_WINDOW(self).handleUnmapped(); },
        .initial_state = [](void*, Handle*) {},
        .parent_window = [](void*, Handle*, Handle*) {},
        .geometry = [](void*, Handle*, std::int32_t, std::int32_t, std::uint32_t, std::uint32_t) {},
        .icon_changed = [](void*, Handle*) {},
        .pid_changed = [](void* self, Handle*, std::uint32_t id) { AS_WINDOW(self).described.processId = id; },
        .virtual_desktop_entered = [](void*, Handle*, const char*) {},
        .virtual_desktop_left = [](void*, Handle*, const char*) {},
        .application_menu = [](void*, Handle*, const char*, const char*) {},
        .activity_entered = [](void*, Handle*, const char*) {},
        .activity_left = [](void*, Handle*, const char*) {},
        .resource_name_changed = [](void*, Handle*, const char*) {},
        .client_geometry = [](void*, Handle*, std::int32_t, std::int32_t, std::uint32_t, std::uint32_t) {}};
    auto& added = m_windows.emplace_back(std::make_unique<Window>(*this));
    added->proxy.reset(org_kde_plasma_window_management_get_window_by_uuid(m_manager.get(), uuid));
    added->described.handle = ++m_lastHandle;
    org_kde_plasma_window_add_listener(added->proxy.get(), &LISTENER, added.get());
    m_connection.flush();
}

std::optional<Toplevels::Toplevel> PlasmaToplevels::active() const {
    const auto found = std::ranges::find_if(m_windows, [](const auto& window) { return window->isActive; });
    return found == m_windows.end() ? std::nullopt : std::optional((*found)->described);
}

bool PlasmaToplevels::isOpen(std::uint64_t handle) const {
    return std::ranges::any_of(m_windows, [handle](const auto& window) { return window->described.handle == handle; });
}

void PlasmaToplevels::activate(std::uint64_t handle) {
    for (const auto& window : m_windows) {
        if (window->described.handle == handle) {
            org_kde_plasma_window_set_state(window->proxy.get(), ORG_KDE_PLASMA_WINDOW_STATE_ACTIVE,
                                            ORG_KDE_PLASMA_WINDOW_STATE_ACTIVE);
            m_connection.flush();
        }
    }
}

} // namespace zamber::wayland
