// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/ButtonPresses.h"
#include "platform/x11/Connection.h"
#include "platform/x11/Keyboard.h"
#include "platform/x11/OwnerDeaths.h"
#include "platform/x11/SecretMark.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11AccessibilityTrust.h"
#include "platform/x11/X11EmbeddedIcon.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "platform/x11/X11KeystrokePoster.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/X11Workspace.h"

#include <memory>
#include <utility>

namespace zamber::wayland {

/// X11's adapters, for what a compositor has no protocols for. They know only the programs of X.
struct XwaylandAdapters {
    XwaylandAdapters(x11::Connection& connection, freedesktop::selection::SelectionPasteboard& pasteboard,
                     Scheduler& scheduler, x11::X11HotKeyCenter::CloseMenus closeMenus,
                     x11::X11Workspace::NameOfClass nameOfClass)
        : ownerDeaths(connection)
        , keyboard(connection)
        , windows(connection)
        , presses(connection)
        , windowSystem(connection, windows)
        , hotKeys(connection, keyboard, std::move(closeMenus))
        , workspace(connection, windows, std::move(nameOfClass))
        , keystrokes(connection, keyboard, windows, hotKeys, workspace, pasteboard, scheduler)
        , trust(connection)
        , embeddedIcon(connection) {}

    x11::OwnerDeaths ownerDeaths;
    x11::Keyboard keyboard;
    x11::Windows windows;
    x11::ButtonPresses presses;
    x11::X11WindowSystem windowSystem;
    x11::X11HotKeyCenter hotKeys;
    x11::X11Workspace workspace;
    x11::X11KeystrokePoster keystrokes;
    x11::X11AccessibilityTrust trust;
    x11::X11EmbeddedIcon embeddedIcon;
};

} // namespace zamber::wayland
