// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/Toplevels.h"

#include "platform/wayland/PlasmaToplevels.h"
#include "platform/wayland/WlrToplevels.h"

namespace zamber::wayland {

std::unique_ptr<Toplevels> Toplevels::create(Connection& connection) {
    if (auto toplevels = WlrToplevels::create(connection)) {
        return toplevels;
    }
    return PlasmaToplevels::create(connection);
}

} // namespace zamber::wayland
