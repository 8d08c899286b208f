// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/XWaylandPortals.h"

#include "platform/x11/X11HotKeyCenter.h"

#include <QString>

namespace zamber::x11 {

using namespace Qt::StringLiterals;

bool XWaylandPortals::isSessionOfWayland() {
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qEnvironmentVariable("XDG_SESSION_TYPE") == "wayland"_L1;
}

XWaylandPortals::XWaylandPortals(const Surroundings& surroundings)
    : portals(u"app.zamber.Zamber"_s, freedesktop::portal::Portals::ownConnection(), surroundings.partsOfX.scheduler)
    , hotKeys({.portals = portals,
               .record = record,
               .hotKeysOfX = surroundings.partsOfX.hotKeysOfX,
               .scheduler = surroundings.partsOfX.scheduler},
              surroundings.isWanted, surroundings.closeMenus)
    , stuckKeys(surroundings.partsOfX.connection, surroundings.partsOfX.keyboard)
    , keyboard(portals, record)
    , trust(surroundings.partsOfX.connection, surroundings.partsOfX.windows, keyboard, hotKeys)
    , keystrokes(surroundings.partsOfX, keyboard, hotKeys) {
    using freedesktop::portal::PortalHotKeyCenter;
    QObject::connect(&hotKeys, &PortalHotKeyCenter::activated, &stuckKeys, &StuckKeys::notePress);
    QObject::connect(&hotKeys, &PortalHotKeyCenter::deactivated, &stuckKeys, &StuckKeys::noteRelease);
}

} // namespace zamber::x11
