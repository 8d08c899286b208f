// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaCombinations.h"

#include "platform/freedesktop/KeyPositions.h"
#include "platform/wayland/KeymapLookup.h"

#include <QChar>

#include <xkbcommon/xkbcommon.h>

#include <optional>

namespace zamber::wayland {

namespace {

/// Qt's number of a key that gives this character.
int qtKeyOf(char32_t character) {
    if (QChar::isDigit(character)) {
        return Qt::Key_0 + QChar::digitValue(character); // the digits of every script are the same keys
    }
    return static_cast<int>(QChar::toUpper(character));
}

std::optional<int> combinationIn(xkb_state* state, xkb_keycode_t code, HotKeyModifiers modifiers) {
    const char32_t character = xkb_keysym_to_utf32(xkb_state_key_get_one_sym(state, code));
    if (character == 0) {
        return std::nullopt;
    }
    const xkb_mod_index_t shift = xkb_keymap_mod_get_index(xkb_state_get_keymap(state), XKB_MOD_NAME_SHIFT);
    const bool isShiftUsedUp =
        xkb_state_mod_index_is_consumed(state, code, shift) == 1 && !QChar::isLetter(QChar::toUpper(character));
    int combination = qtKeyOf(character);
    if (modifiers.command) {
        combination |= static_cast<int>(Qt::META);
    }
    if (modifiers.shift && !isShiftUsedUp) {
        combination |= static_cast<int>(Qt::SHIFT);
    }
    return combination;
}

} // namespace

QList<int> plasmaCombinations(xkb_keymap* keymap, PhysicalKey key, HotKeyModifiers modifiers) {
    const Keymap us = keymap == nullptr ? keymapOf("us") : nullptr;
    xkb_keymap* const used = keymap == nullptr ? us.get() : keymap;
    const KeyState state(used != nullptr ? xkb_state_new(used) : nullptr);
    if (!state) {
        return {};
    }
    const xkb_mod_index_t shift = xkb_keymap_mod_get_index(used, XKB_MOD_NAME_SHIFT);
    const xkb_mod_mask_t held = modifiers.shift && shift != XKB_MOD_INVALID ? xkb_mod_mask_t{1} << shift : 0;
    QList<int> combinations;
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(used); ++layout) {
        xkb_state_update_mask(state.get(), held, 0, 0, 0, 0, layout);
        const std::optional<int> combination = combinationIn(state.get(), freedesktop::positionOf(key).code, modifiers);
        if (combination && !combinations.contains(*combination)) {
            combinations.append(*combination);
        }
    }
    return combinations;
}

} // namespace zamber::wayland
