// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <xkbcommon/xkbcommon.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// The core keyboard: which key is which modifier, where a letter lies in the layouts, which keys are held down.
/// Key codes are X's (evdev's plus 8). Protocol: X Keyboard Extension.
class Keyboard final : public QObject {
    Q_OBJECT

public:
    explicit Keyboard(Connection& connection);

    /// The bits of the modifiers that never matter for a shortcut: Caps Lock, Num Lock and Scroll Lock, wherever the
    /// modifier map has them.
    std::uint16_t lockModifiers() const;

    /// The bit of the Super key; Mod4 where the modifier map has none.
    std::uint16_t superModifier() const;

    /// The key that gives this character in the active layout, else in another one of the keyboard's layouts.
    std::optional<xcb_keycode_t> keyFor(xkb_keysym_t symbol) const;

    /// Whether the key is down now, by the user's hand or another program's.
    bool isDown(xcb_keycode_t key) const;

    /// The modifier keys, locks excepted, that are down now, by the user's hand or another program's.
    std::vector<xcb_keycode_t> heldModifierKeys() const;

Q_SIGNALS:
    /// Keys have new meanings: a new device, a new layout, a changed modifier map.
    void mappingChanged();

    /// A modifier went down or up.
    void modifiersChanged();

private:
    struct Unreference {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
        void operator()(xkb_state* state) const { xkb_state_unref(state); }
    };
    template <class T>
    using Referenced = std::unique_ptr<T, Unreference>;

    void selectEvents();
    void handleEvent(const xcb_generic_event_t& event);
    void readMappings() const;
    std::uint16_t modifierOf(std::initializer_list<xkb_keysym_t> symbols) const;
    bool isSymbolOf(xcb_keycode_t key, std::initializer_list<xkb_keysym_t> symbols) const;

    Connection& m_connection;
    std::uint8_t m_xkbEvent;
    std::int32_t m_device;
    Referenced<xkb_context> m_context;
    // Read when first asked for after a change: programs that install layouts cause bursts of changes.
    mutable Referenced<xkb_keymap> m_keymap;
    mutable Owned<xcb_get_modifier_mapping_reply_t> m_modifierMap;
};

} // namespace zamber::x11
