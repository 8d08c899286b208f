// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace zamber {

/// The keys that the program tells apart by their place on the keyboard; the keypad's Enter is not Return.
enum class HardwareKey { UpArrow, DownArrow, Return, Escape, Other };

/// What becomes of a key press that a handler has seen.
enum class KeyDisposition { Swallow, PassOn };

/// Sees the key presses of all of the program's windows before any widget does.
class KeyMonitor {
public:
    using Handler = std::function<KeyDisposition(HardwareKey)>;

    /// Names an installed handler; dropping it does not remove the handler.
    struct Token {
        std::uint64_t id = 0;
    };

    virtual ~KeyMonitor() = default;

    /// Installs a handler. Modifiers are not looked at. Several handlers are asked in the order of their coming until
    /// one swallows.
    virtual Token addHandler(Handler handler) = 0;

    /// Removes a handler; a token that names none is ignored.
    virtual void removeHandler(Token token) = 0;
};

} // namespace zamber
