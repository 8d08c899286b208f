// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <cstdint>

namespace zamber {

/// Where a popover hangs: a rectangle on the screen in points (device-independent pixels), and the adapter's own
/// handle for the thing that lies there (0 where it has none).
struct Anchor {
    QRect screenRectangle;
    std::uintptr_t handle = 0;
};

} // namespace zamber
