// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/SessionDesktop.h"

#include "platform/freedesktop/desktop/CommonAdapters.h"
#include "platform/x11/X11Desktop.h"

#ifdef ZAMBER_WAYLAND
#include "platform/wayland/Connection.h"
#include "platform/wayland/WaylandDesktop.h"
#endif

#include <malloc.h>

#include <utility>

namespace zamber::app {

using freedesktop::desktop::FreedesktopDesktop;

namespace {

/// Has large blocks of memory go back to the system as soon as they are free. Left to itself, glibc takes the size of
/// each that is freed for one that is needed often and keeps as much: megabytes that nothing uses, for a program that
/// copies a picture now and then.
void giveLargeBlocksBack() {
#ifdef M_MMAP_THRESHOLD
    constexpr int largeBytes = 128 * 1024;
    mallopt(M_MMAP_THRESHOLD, largeBytes);
#endif
}

} // namespace

std::expected<void, std::string> SessionDesktop::prepare() {
    giveLargeBlocksBack();
#ifdef ZAMBER_WAYLAND
    if (wayland::WaylandDesktop::prepareWindows()) {
        return {};
    }
#endif
    // On Wayland, too: the windows are XWayland's then.
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
