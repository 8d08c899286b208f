// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/portal/PortalHotKeyCenter.h"
#include "platform/freedesktop/portal/PortalKeyboard.h"
#include "platform/freedesktop/portal/PortalRecord.h"
#include "platform/freedesktop/portal/Portals.h"
#include "platform/x11/StuckKeys.h"
#include "platform/x11/XWaylandKeystrokePoster.h"
#include "platform/x11/XWaylandTrust.h"

#include <QStringList>

#include <memory>

namespace zamber::x11 {

/// The adapters that take the place of X's in a session of Wayland whose compositor has nothing better to offer than
/// the desktop's portals. Each of them is X's as well, and no more than that where there are no portals.
struct XWaylandPortals {
    /// The parts of X outlive the adapters.
    struct Surroundings {
        XWaylandKeystrokePoster::PartsOfX partsOfX;
        freedesktop::portal::PortalHotKeyCenter::IsWanted isWanted;
        freedesktop::portal::PortalHotKeyCenter::CloseMenus closeMenus;
    };

    /// Is the session of Wayland, by the environment?
    static bool isSessionOfWayland();

    explicit XWaylandPortals(const Surroundings& surroundings);

    freedesktop::portal::Portals portals;
    freedesktop::portal::PortalRecord record;
    freedesktop::portal::PortalHotKeyCenter hotKeys;
    StuckKeys stuckKeys;
    freedesktop::portal::PortalKeyboard keyboard;
    XWaylandTrust trust;
    XWaylandKeystrokePoster keystrokes;
};

} // namespace zamber::x11
