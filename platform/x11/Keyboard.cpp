// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/Keyboard.h"

#include "platform/x11/XkbProtocol.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <span>

namespace zamber::x11 {

namespace {

constexpr int MODIFIERS = 8; // Shift, Lock, Control, Mod1 to Mod5

bool isDownIn(const xcb_query_keymap_reply_t& pressed, xcb_keycode_t key) {
    return (pressed.keys[key / 8] & (1U << (key % 8))) != 0;
}

/// Returns the code that all of the extension's events have.
std::uint8_t setUpExtension(const Connection& connection) {
    std::uint8_t firstEvent = 0;
    xkb_x11_setup_xkb_extension(connection.raw(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &firstEvent, nullptr);
    return firstEvent;
}

} // namespace

Keyboard::Keyboard(Connection& connection)
    : m_connection(connection)
    , m_xkbEvent(setUpExtension(connection))
    , m_device(xkb_x11_get_core_keyboard_device_id(connection.raw()))
    , m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS)) {
    // A key that is held then repeats as presses without releases between them, unlike a key that is pressed again.
    xcb_discard_reply(connection.raw(),
                      xcb_xkb_per_client_flags(connection.raw(), static_cast<xcb_xkb_device_spec_t>(m_device),
                                               XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT,
                                               XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT, 0, 0, 0)
                          .sequence);
    selectEvents();
    connection.addEventHandler([this](const xcb_generic_event_t& event) { handleEvent(event); });
}

void Keyboard::selectEvents() {
    constexpr std::uint16_t EVENTS =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t MAP_PARTS = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                        XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS;
    xcb_xkb_select_events_details_t details{};
    details.affectNewKeyboard = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.newKeyboardDetails = XCB_XKB_NKN_DETAIL_KEYCODES;
    // Only changes of the held modifiers: typing and locks need not wake the program.
    details.affectState = XCB_XKB_STATE_PART_MODIFIER_BASE;
    details.stateDetails = XCB_XKB_STATE_PART_MODIFIER_BASE;
    xcb_xkb_select_events_aux(m_connection.raw(), static_cast<xcb_xkb_device_spec_t>(m_device), EVENTS, 0, 0, MAP_PARTS,
                              MAP_PARTS, &details);
}

void Keyboard::handleEvent(const xcb_generic_event_t& event) {
    if (codeOf(event) == XCB_MAPPING_NOTIFY) {
        m_modifierMap.reset();
        m_keymap.reset();
        Q_EMIT mappingChanged();
        return;
    }
    if (m_xkbEvent == 0 || codeOf(event) != m_xkbEvent) {
        return;
    }
    switch (as<xcb_xkb_state_notify_event_t>(event).xkbType) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        m_modifierMap.reset();
        m_keymap.reset();
        Q_EMIT mappingChanged();
        break;
    case XCB_XKB_STATE_NOTIFY:
        Q_EMIT modifiersChanged();
        break;
    default:
        break;
    }
}

void Keyboard::readMappings() const {
    if (!m_keymap) {
        m_keymap.reset(
            xkb_x11_keymap_new_from_device(m_context.get(), m_connection.raw(), m_device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    }
    if (!m_modifierMap) {
        m_modifierMap.reset(
            xcb_get_modifier_mapping_reply(m_connection.raw(), xcb_get_modifier_mapping(m_connection.raw()), nullptr));
    }
}

bool Keyboard::isSymbolOf(xcb_keycode_t key, std::initializer_list<xkb_keysym_t> symbols) const {
    const xkb_keysym_t* found = nullptr;
    const int count = m_keymap ? xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, 0, 0, &found) : 0;
    return count == 1 && std::ranges::find(symbols, *found) != symbols.end();
}

std::uint16_t Keyboard::modifierOf(std::initializer_list<xkb_keysym_t> symbols) const {
    readMappings();
    if (!m_modifierMap) {
        return 0;
    }
    const std::size_t perModifier = m_modifierMap->keycodes_per_modifier;
    const std::span keys(xcb_get_modifier_mapping_keycodes(m_modifierMap.get()), MODIFIERS * perModifier);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i] != 0 && isSymbolOf(keys[i], symbols)) {
            return static_cast<std::uint16_t>(1U << (i / perModifier));
        }
    }
    return 0;
}

std::uint16_t Keyboard::lockModifiers() const {
    return XCB_MOD_MASK_LOCK | modifierOf({XKB_KEY_Num_Lock}) | modifierOf({XKB_KEY_Scroll_Lock});
}

std::uint16_t Keyboard::superModifier() const {
    const std::uint16_t modifier = modifierOf({XKB_KEY_Super_L, XKB_KEY_Super_R});
    return modifier != 0 ? modifier : static_cast<std::uint16_t>(XCB_MOD_MASK_4);
}

std::optional<xcb_keycode_t> Keyboard::keyFor(xkb_keysym_t symbol) const {
    readMappings();
    if (!m_keymap) {
        return std::nullopt;
    }
    const Referenced<xkb_state> state(xkb_x11_state_new_from_device(m_keymap.get(), m_connection.raw(), m_device));
    const auto gives = [&](xkb_keycode_t key, xkb_layout_index_t layout) {
        const xkb_keysym_t* found = nullptr;
        return xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, layout, 0, &found) == 1 && *found == symbol;
    };
    std::optional<xcb_keycode_t> elsewhere;
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(m_keymap.get()), 255);
    for (xkb_keycode_t key = xkb_keymap_min_keycode(m_keymap.get()); key <= last; ++key) {
        const xkb_layout_index_t active = state ? xkb_state_key_get_layout(state.get(), key) : 0;
        if (active != XKB_LAYOUT_INVALID && gives(key, active)) {
            return static_cast<xcb_keycode_t>(key);
        }
        for (xkb_layout_index_t layout = 0; !elsewhere && layout < xkb_keymap_num_layouts_for_key(m_keymap.get(), key);
             ++layout) {
            if (gives(key, layout)) {
                elsewhere = static_cast<xcb_keycode_t>(key);
            }
        }
    }
    return elsewhere;
}

bool Keyboard::isDown(xcb_keycode_t key) const {
    const Owned<xcb_query_keymap_reply_t> pressed(
        xcb_query_keymap_reply(m_connection.raw(), xcb_query_keymap(m_connection.raw()), nullptr));
    return pressed && isDownIn(*pressed, key);
}

std::vector<xcb_keycode_t> Keyboard::heldModifierKeys() const {
    readMappings();
    const Owned<xcb_query_keymap_reply_t> pressed(
        xcb_query_keymap_reply(m_connection.raw(), xcb_query_keymap(m_connection.raw()), nullptr));
    std::vector<xcb_keycode_t> held;
    if (!pressed || !m_modifierMap) {
        return held;
    }
    const std::size_t perModifier = m_modifierMap->keycodes_per_modifier;
    const std::span keys(xcb_get_modifier_mapping_keycodes(m_modifierMap.get()), MODIFIERS * perModifier);
    const std::uint16_t locks = lockModifiers();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const xcb_keycode_t key = keys[i];
        const bool isLock = (locks & (1U << (i / perModifier))) != 0;
        if (key != 0 && isDownIn(*pressed, key) && !isLock && std::ranges::find(held, key) == held.end()) {
            held.push_back(key);
        }
    }
    return held;
}

} // namespace zamber::x11
