// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/SessionDesktop.h"

#include "platform/freedesktop/desktop/CommonAdapters.h"
#include "platform/x11/X11Desktop.h"

#ifdef ZAMBER_WAYLAND
#include "platform/wayland/Connection.h"
#include "platform/wayland/WaylandDesktop.h"
#endif

#include <utility>

namespace zamber::app {

using freedesktop::desktop::FreedesktopDesktop;

std::expected<void, std::string> SessionDesktop::prepare() {
    // On Wayland, too: the windows are XWayland's there.
    return x11::X11Desktop::prepare();
}

std::expected<std::unique_ptr<FreedesktopDesktop>, std::string> SessionDesktop::create() {
    auto claim = freedesktop::desktop::claim();
    if (!claim) {
        return std::unexpected(claim.error());
    }
    if (!*claim) {
        return nullptr;
    }
#ifdef ZAMBER_WAYLAND
    if (auto compositor = wayland::WaylandDesktop::reachCompositor()) {
        return wayland::WaylandDesktop::create(std::move(**claim), std::move(compositor));
    }
#endif
    return x11::X11Desktop::create(std::move(**claim));
}

std::filesystem::path SessionDesktop::historyFile() {
    return freedesktop::desktop::historyFile();
}

} // namespace zamber::app
