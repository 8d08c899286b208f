// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/KeymapLookup.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>

namespace zamber::wayland {

namespace {

/// The kernel's key codes are that much lower than those of keymaps.
constexpr xkb_keycode_t KERNEL_OFFSET = 8;

bool gives(xkb_keymap* keymap, xkb_keycode_t code, xkb_layout_index_t layout, xkb_keysym_t symbol) {
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, code, layout, 0, &symbols);
    return count == 1 && *symbols == symbol;
}

std::optional<std::uint32_t> keyIn(xkb_keymap* keymap, xkb_layout_index_t layout, xkb_keysym_t symbol) {
    const xkb_keycode_t first = std::max(xkb_keymap_min_keycode(keymap), KERNEL_OFFSET);
    for (xkb_keycode_t code = first; code <= xkb_keymap_max_keycode(keymap); ++code) {
        // A key with fewer layouts than the keyboard gives the same in all of them.
        const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap, code);
        if (layouts > 0 && gives(keymap, code, std::min(layout, layouts - 1), symbol)) {
            return code - KERNEL_OFFSET;
        }
    }
    return std::nullopt;
}

} // namespace

void XkbUnreference::operator()(xkb_context* context) const {
    xkb_context_unref(context);
}

void XkbUnreference::operator()(xkb_keymap* keymap) const {
    xkb_keymap_unref(keymap);
}

void XkbUnreference::operator()(xkb_state* state) const {
    xkb_state_unref(state);
}

Keymap keymapOf(const char* layouts) {
    const KeymapContext context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const xkb_rule_names names{.rules = "evdev", .model = "pc105", .layout = layouts, .variant = "", .options = ""};
    return Keymap(context ? xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr);
}

std::optional<std::uint32_t> keyFor(xkb_keymap* keymap, std::uint32_t layout, std::uint32_t symbol) {
    if (const auto key = keyIn(keymap, layout, symbol)) {
        return key;
    }
    for (xkb_layout_index_t other = 0; other < xkb_keymap_num_layouts(keymap); ++other) {
        if (const auto key = keyIn(keymap, other, symbol)) {
            return key;
        }
    }
    return std::nullopt;
}

} // namespace zamber::wayland
