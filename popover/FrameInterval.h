// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace zamber::popover {

/// The time between two pictures of what moves: about sixty a second.
inline constexpr std::chrono::milliseconds FRAME_INTERVAL{16};

} // namespace zamber::popover
