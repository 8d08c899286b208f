// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zamber::wayland {

/// The kernel's codes of the keys that a paste is typed with, by the keys' places on every PC keyboard.
/// Source: linux/input-event-codes.h.
enum KeyCode : std::uint32_t {
    LeftControl = 29,
    LeftShift = 42,
    V = 47,
    RightShift = 54,
    LeftAlt = 56,
    RightControl = 97,
    RightAlt = 100,
    Insert = 110,
    LeftSuper = 125,
    RightSuper = 126
};

} // namespace zamber::wayland
