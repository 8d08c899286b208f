// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber::wayland {

/// What is asked of the compositor of the environment before the application object is there.
struct SessionCompositor {
    bool hasDataControl = false;   ///< it lets programs control the clipboard
    bool hasPlasmaWindows = false; ///< it places windows where this program asks, and tells which one is active
    bool hasLayers = false;        ///< it shows windows above those of all programs
    bool tellsOfToplevels = false; ///< of other programs' windows, and which one is active, but places none
};

/// All is false where no compositor answers.
SessionCompositor lookAtSessionCompositor();

/// Whether Qt can draw its windows on Wayland by itself: its plug-in is a package of its own. May be asked before the
/// application object is there.
bool qtHasWaylandWindows();

} // namespace zamber::wayland
