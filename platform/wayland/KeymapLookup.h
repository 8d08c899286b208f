// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace zamber::wayland {

/// Gives back what xkbcommon has made.
struct XkbUnreference {
    void operator()(xkb_context* context) const;
    void operator()(xkb_keymap* keymap) const;
    void operator()(xkb_state* state) const;
};
using KeymapContext = std::unique_ptr<xkb_context, XkbUnreference>;
using Keymap = std::unique_ptr<xkb_keymap, XkbUnreference>;
using KeyState = std::unique_ptr<xkb_state, XkbUnreference>;

/// The keymap of a PC keyboard with these layouts ("us,ru"); null where their files are not installed.
Keymap keymapOf(const char* layouts);

/// The key, by the kernel's number, that gives this symbol without modifiers in that layout of the keymap, else in the
/// first other one that has such a key.
std::optional<std::uint32_t> keyFor(xkb_keymap* keymap, std::uint32_t layout, std::uint32_t symbol);

} // namespace zamber::wayland
