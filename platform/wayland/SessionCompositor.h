// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber::wayland {

/// Whether the compositor of the environment lets programs control the clipboard. May be asked before the application
/// object is there.
bool sessionHasDataControl();

/// Whether Qt can draw its windows on Wayland by itself: its plug-in is a package of its own. May be asked before the
/// application object is there.
bool qtHasWaylandWindows();

} // namespace zamber::wayland
