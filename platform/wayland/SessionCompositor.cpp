// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SessionCompositor.h"

#include "platform/wayland/Proxy.h"

#include <QCoreApplication>
#include <QDir>
#include <QString>

#include <ext-data-control-v1.h>
#include <kde-plasma-shell.h>
#include <kde-plasma-window-management.h>
#include <wayland-client.h>
#include <wlr-data-control-unstable-v1.h>
#include <wlr-foreign-toplevel-management-unstable-v1.h>

#include <algorithm>
#include <set>
#include <string>

namespace zamber::wayland {

SessionCompositor lookAtSessionCompositor() {
    // Without a name the library takes a socket of the usual name, which may belong to another session of this user.
    const Proxy<wl_display> display(qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? nullptr
                                                                                   : wl_display_connect(nullptr));
    if (!display) {
        return {};
    }
    static constexpr wl_registry_listener LISTENER{
        .global = [](void* offered, wl_registry*, std::uint32_t, const char* interface,
                     std::uint32_t) { static_cast<std::set<std::string>*>(offered)->insert(interface); },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
    std::set<std::string> offered;
    const Proxy<wl_registry> registry(wl_display_get_registry(display.get()));
    wl_registry_add_listener(registry.get(), &LISTENER, &offered);
    if (wl_display_roundtrip(display.get()) < 0) {
        return {};
    }
    return {.hasDataControl = offered.contains(ext_data_control_manager_v1_interface.name) ||
                              offered.contains(zwlr_data_control_manager_v1_interface.name),
            .hasPlasmaWindows = offered.contains(org_kde_plasma_shell_interface.name) &&
                                offered.contains(org_kde_plasma_window_management_interface.name),
            .hasLayers = offered.contains("zwlr_layer_shell_v1"),
            .tellsOfToplevels = offered.contains(zwlr_foreign_toplevel_manager_v1_interface.name)};
}

bool qtHasWaylandWindows() {
    return std::ranges::any_of(QCoreApplication::libraryPaths(), [](const QString& folder) {
        const QDir platforms(folder + QStringLiteral("/platforms"));
        return !platforms.entryList({QStringLiteral("libqwayland*.so")}, QDir::Files).isEmpty();
    });
}

} // namespace zamber::wayland
