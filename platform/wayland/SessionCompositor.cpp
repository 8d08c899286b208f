// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SessionCompositor.h"

#include "platform/wayland/Proxy.h"

#include <QCoreApplication>
#include <QDir>
#include <QString>

#include <ext-data-control-v1.h>
#include <wayland-client.h>
#include <wlr-data-control-unstable-v1.h>

#include <algorithm>
#include <string_view>

namespace zamber::wayland {

bool sessionHasDataControl() {
    // Without a name the library takes a socket of the usual name, which may belong to another session of this user.
    const Proxy<wl_display> display(qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? nullptr
                                                                                   : wl_display_connect(nullptr));
    if (!display) {
        return false;
    }
    static constexpr wl_registry_listener LISTENER{
        .global =
            [](void* isFound, wl_registry*, std::uint32_t, const char* interface, std::uint32_t) {
                const std::string_view name(interface);
                *static_cast<bool*>(isFound) |= name == ext_data_control_manager_v1_interface.name ||
                                                name == zwlr_data_control_manager_v1_interface.name;
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
    bool isFound = false;
    const Proxy<wl_registry> registry(wl_display_get_registry(display.get()));
    wl_registry_add_listener(registry.get(), &LISTENER, &isFound);
    return wl_display_roundtrip(display.get()) >= 0 && isFound;
}

bool qtHasWaylandWindows() {
    return std::ranges::any_of(QCoreApplication::libraryPaths(), [](const QString& folder) {
        const QDir platforms(folder + QStringLiteral("/platforms"));
        return !platforms.entryList({QStringLiteral("libqwayland*.so")}, QDir::Files).isEmpty();
    });
}

} // namespace zamber::wayland
