// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace zamber {

/// Positions on the keyboard, named after what the ANSI layout has there; the active layout does not move them.
enum class PhysicalKey { V, Digit2, Digit3 };

/// The modifiers of a hot key. Command is the Super key off macOS.
struct HotKeyModifiers {
    bool command = false;
    bool shift = false;
};

/// The name of a registration: a four-character code (first character in the highest byte) and a number.
struct HotKeyId {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;
};

/// A registration that succeeded.
struct HotKeyRef {
    std::uint32_t id = 0;
};

/// System-wide key combinations, for the life of the process. Lock keys never matter.
class HotKeyCenter {
public:
    using PressedHandler = std::function<void(std::uint32_t id)>;

    virtual ~HotKeyCenter() = default;

    /// Which key Command is, as a sentence for people; empty where the keyboard says so itself.
    virtual QString commandKeyHint() const = 0;

    /// Returns nothing when another program holds the combination; the other registrations are not affected.
    virtual std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) = 0;

    /// The handler of all registrations: told the id at each press, on the main loop. Releases are not told.
    virtual void setPressedHandler(PressedHandler handler) = 0;
};

} // namespace zamber
