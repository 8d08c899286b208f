// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>

namespace zamber::x11 {

/// The atoms that the adapters use, interned together when a connection opens.
enum class Atom : std::size_t {
    // Selections and their protocol (ICCCM, section 2)
    Clipboard,
    ClipboardManager,
    Targets,
    Multiple,
    Timestamp,
    Incr,
    AtomPair,
    Null,
    SaveTargets,
    Manager,
    // Windows (EWMH)
    NetActiveWindow,
    NetCurrentDesktop,
    NetSupportingWmCheck,
    NetWmDesktop,
    NetWmPid,
    NetWmState,
    NetWmStateSkipPager,
    NetWmStateSkipTaskbar,
    // The property of our windows that answers arrive in
    ZamberAnswer,
};

inline constexpr std::array ATOM_NAMES{
    "CLIPBOARD",
    "CLIPBOARD_MANAGER",
    "TARGETS",
    "MULTIPLE",
    "TIMESTAMP",
    "INCR",
    "ATOM_PAIR",
    "NULL",
    "SAVE_TARGETS",
    "MANAGER",
    "_NET_ACTIVE_WINDOW",
    "_NET_CURRENT_DESKTOP",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_DESKTOP",
    "_NET_WM_PID",
    "_NET_WM_STATE",
    "_NET_WM_STATE_SKIP_PAGER",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "ZAMBER_ANSWER",
};

static_assert(ATOM_NAMES.size() == static_cast<std::size_t>(Atom::ZamberAnswer) + 1);

} // namespace zamber::x11
