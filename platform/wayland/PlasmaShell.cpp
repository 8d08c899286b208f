// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaShell.h"

#include "platform/wayland/QtDisplay.h"

#include <QWindow>

#include <kde-plasma-shell.h>
#include <wayland-client.h>

#include <cstdint>
#include <string_view>
#include <utility>

namespace zamber::wayland {

namespace {

/// The first version that keeps a window out of the list that Alt+Tab shows.
constexpr std::uint32_t VERSION = 5;
constexpr std::uint32_t YES = 1;

} // namespace

std::unique_ptr<PlasmaShell> PlasmaShell::create(const QtDisplay& display) {
    if (display.display() == nullptr) {
        return nullptr;
    }
    static constexpr wl_registry_listener LISTENER{
        .global =
            [](void* shell, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t version) {
                if (std::string_view(interface) == org_kde_plasma_shell_interface.name && version >= VERSION) {
                    static_cast<Proxy<org_kde_plasma_shell>*>(shell)->reset(static_cast<org_kde_plasma_shell*>(
                        wl_registry_bind(registry, name, &org_kde_plasma_shell_interface, VERSION)));
                }
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
    // On Qt's connection, which the surfaces belong to, but with a queue of its own, which is gone when this is done.
    // No event is expected of what is made here.
    wl_event_queue* const queue = wl_display_create_queue(display.display());
    auto* const wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display.display()));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue);
    Proxy<wl_registry> registry(wl_display_get_registry(wrapper));
    wl_proxy_wrapper_destroy(wrapper);
    Proxy<org_kde_plasma_shell> shell;
    wl_registry_add_listener(registry.get(), &LISTENER, &shell);
    wl_display_roundtrip_queue(display.display(), queue);
    registry.reset();
    if (shell) {
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(shell.get()), nullptr); // the queue that Qt serves
    }
    wl_event_queue_destroy(queue);
    return shell ? std::unique_ptr<PlasmaShell>(new PlasmaShell(display, std::move(shell))) : nullptr;
}

PlasmaShell::PlasmaShell(const QtDisplay& display, Proxy<org_kde_plasma_shell> shell)
    : m_display(display)
    , m_shell(std::move(shell)) {}

void PlasmaShell::place(QWindow& window, QPoint topLeft) {
    auto& placed = m_surfaces[&window];
    if (!placed) {
        wl_surface* const surface = m_display.surfaceOf(window);
        if (surface == nullptr) {
            return;
        }
        placed.reset(org_kde_plasma_shell_get_surface(m_shell.get(), surface));
        org_kde_plasma_surface_set_skip_taskbar(placed.get(), YES);
        org_kde_plasma_surface_set_skip_switcher(placed.get(), YES);
    }
    org_kde_plasma_surface_set_position(placed.get(), topLeft.x(), topLeft.y());
    wl_display_flush(m_display.display());
}

void PlasmaShell::forget(const QObject* window) {
    m_surfaces.erase(window);
}

} // namespace zamber::wayland
