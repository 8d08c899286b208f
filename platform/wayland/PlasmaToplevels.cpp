// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaToplevels.h"

#include "platform/wayland/Connection.h"

#include <kde-plasma-window-management.h>

#include <memory>

namespace zamber::wayland {

namespace {

/// The first version that names windows by their UUID; KWin 6 does not tell of windows in any other way.
constexpr std::uint32_t VERSION = 13;

} // namespace

class PlasmaToplevels::PlasmaWindow final : public Window {
public:
    PlasmaWindow(ListedToplevels& owner, org_kde_plasma_window* object);

    void activate() override {
        org_kde_plasma_window_set_state(m_proxy.get(), ORG_KDE_PLASMA_WINDOW_STATE_ACTIVE,
                                        ORG_KDE_PLASMA_WINDOW_STATE_ACTIVE);
    }

private:
    Proxy<org_kde_plasma_window> m_proxy;
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
    toplevels->readAll();
    return toplevels;
}

PlasmaToplevels::PlasmaToplevels(Connection& connection, org_kde_plasma_window_management* manager)
    : ListedToplevels(connection)
    , m_manager(manager) {
    static constexpr org_kde_plasma_window_management_listener LISTENER{
        .show_desktop_changed = [](void*, org_kde_plasma_window_management*, std::uint32_t) {},
        .window = [](void*, org_kde_plasma_window_management*, std::uint32_t) {},
        .stacking_order_changed = [](void*, org_kde_plasma_window_management*, wl_array*) {},
        .stacking_order_uuid_changed = [](void*, org_kde_plasma_window_management*, const char*) {},
        .window_with_uuid =
            [](void* self, org_kde_plasma_window_management* told, std::uint32_t, const char* uuid) {
                auto& toplevels = *static_cast<PlasmaToplevels*>(self);
                toplevels.add(std::make_unique<PlasmaWindow>(
                    toplevels, org_kde_plasma_window_management_get_window_by_uuid(told, uuid)));
            },
        .stacking_order_changed_2 = [](void*, org_kde_plasma_window_management*) {}};
    org_kde_plasma_window_management_add_listener(manager, &LISTENER, this);
}

PlasmaToplevels::PlasmaWindow::PlasmaWindow(ListedToplevels& owner, org_kde_plasma_window* object)
    : Window(owner)
    , m_proxy(object) {
    using Handle = org_kde_plasma_window;
    static constexpr auto AS_WINDOW = [](void* self) -> PlasmaWindow& { return *static_cast<PlasmaWindow*>(self); };
    static constexpr org_kde_plasma_window_listener LISTENER{
        .title_changed = [](void*, Handle*, const char*) {},
        .app_id_changed = [](void* self, Handle*,
                             const char* id) { AS_WINDOW(self).described.applicationId = QString::fromUtf8(id); },
        .state_changed =
            [](void* self, Handle*, std::uint32_t flags) {
                AS_WINDOW(self).setActive((flags & ORG_KDE_PLASMA_WINDOW_STATE_ACTIVE) != 0);
            },
        .virtual_desktop_changed = [](void*, Handle*, std::int32_t) {},
        .themed_icon_name_changed = [](void*, Handle*, const char*) {},
        .unmapped = [](void* self, Handle*) { AS_WINDOW(self).remove(); },
        .initial_state = [](void*, Handle*) {},
        .parent_window = [](void*, Handle*, Handle*) {},
        .geometry =
            [](void* self, Handle*, std::int32_t left, std::int32_t top, std::uint32_t width, std::uint32_t height) {
                AS_WINDOW(self).described.geometry =
                    QRect(left, top, static_cast<int>(width), static_cast<int>(height));
            },
        .icon_changed = [](void*, Handle*) {},
        .pid_changed = [](void* self, Handle*, std::uint32_t id) { AS_WINDOW(self).described.processId = id; },
        .virtual_desktop_entered = [](void*, Handle*, const char*) {},
        .virtual_desktop_left = [](void*, Handle*, const char*) {},
        .application_menu = [](void*, Handle*, const char*, const char*) {},
        .activity_entered = [](void*, Handle*, const char*) {},
        .activity_left = [](void*, Handle*, const char*) {},
        .resource_name_changed = [](void*, Handle*, const char*) {},
        .client_geometry = [](void*, Handle*, std::int32_t, std::int32_t, std::uint32_t, std::uint32_t) {}};
    org_kde_plasma_window_add_listener(object, &LISTENER, this);
}

} // namespace zamber::wayland
