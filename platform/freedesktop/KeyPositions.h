// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>

namespace zamber::freedesktop {

/// A key of the program's hot keys, by its place on the keyboard.
struct KeyPosition {
    PhysicalKey key = PhysicalKey::V;
    std::uint8_t code = 0; ///< of X and of xkb: the kernel's plus 8. Source: linux/input-event-codes.h.
    char label = 0;        ///< what the ANSI layout has there, for messages
};

constexpr KeyPosition positionOf(PhysicalKey key) {
    constexpr std::array POSITIONS{KeyPosition{.key = PhysicalKey::V, .code = 55, .label = 'V'},
                                   KeyPosition{.key = PhysicalKey::Digit2, .code = 11, .label = '2'},
                                   KeyPosition{.key = PhysicalKey::Digit3, .code = 12, .label = '3'}};
    return *std::ranges::find(POSITIONS, key, &KeyPosition::key);
}

/// Which key Command is here, as a sentence for people.
inline QString commandKeyHint() {
    return QStringLiteral("⌘ is the Super key, often marked with a logo");
}

} // namespace zamber::freedesktop
