// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zamber::wayland {

/// Which of the user's keyboard layouts is in use, counted from 0; asked of KWin over the session bus
/// (org.kde.keyboard), which is there only for users with several layouts. Waits for KWin for a quarter of a second at
/// most.
std::uint32_t activePlasmaLayout();

} // namespace zamber::wayland
