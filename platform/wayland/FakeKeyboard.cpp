// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/FakeKeyboard.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/KeyCodes.h"
#include "platform/wayland/KeymapLookup.h"
#include "platform/wayland/ModifierKeys.h"
#include "platform/wayland/SeatKeyboard.h"

#include <kde-fake-input.h>
#include <xkbcommon/xkbcommon.h>

#include <array>
#include <ranges>
#include <utility>

namespace zamber::wayland {

namespace {

constexpr std::uint32_t VERSION_WITH_KEYS = 4;

} // namespace

bool FakeKeyboard::isOffered(const Connection& connection) {
    return connection.offers(org_kde_kwin_fake_input_interface);
}

std::unique_ptr<FakeKeyboard> FakeKeyboard::create(Connection& connection, SeatKeyboard& keyboard,
                                                   ActiveLayout activeLayout, HeldKeys* hotKeys) {
    auto* const input = connection.bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, VERSION_WITH_KEYS);
    if (input == nullptr) {
        return nullptr;
    }
    std::unique_ptr<FakeKeyboard> made(new FakeKeyboard(connection, input, keyboard, std::move(activeLayout), hotKeys));
    if (org_kde_kwin_fake_input_get_version(input) < VERSION_WITH_KEYS) {
        return nullptr;
    }
    org_kde_kwin_fake_input_authenticate(input, "Zamber", "pastes what was chosen");
    return connection.roundTrip() ? std::move(made) : nullptr;
}

FakeKeyboard::FakeKeyboard(Connection& connection, org_kde_kwin_fake_input* input, SeatKeyboard& keyboard,
                           ActiveLayout activeLayout, HeldKeys* hotKeys)
    : m_connection(connection)
    , m_input(input)
    , m_keyboard(keyboard)
    , m_activeLayout(std::move(activeLayout))
    , m_modifiers(ModifierKeys::create(connection))
    , m_waitedFor(m_modifiers ? m_modifiers.get() : hotKeys) {
    if (m_waitedFor != nullptr) {
        connect(m_waitedFor, &HeldKeys::heldKeysChanged, this, &FakeKeyboard::readyChanged);
    }
}

FakeKeyboard::~FakeKeyboard() = default;

bool FakeKeyboard::isReady() const {
    return m_waitedFor == nullptr || !m_waitedFor->isAnyHeld();
}

bool FakeKeyboard::isBlocked() const {
    return m_modifiers && m_modifiers->isAnyHeld(); // KWin 6 drops the release of a key that another keyboard holds
}

FakeKeyboard::PasteKeystroke FakeKeyboard::possibleFor(PasteKeystroke wanted) const {
    xkb_keymap* const keymap = m_keyboard.keymap();
    const bool isWithoutV = keymap != nullptr && !keyFor(keymap, 0, XKB_KEY_v);
    return isWithoutV ? PasteKeystroke::ShiftInsert : wanted;
}

std::uint32_t FakeKeyboard::keyOr(std::uint32_t symbol, std::uint32_t usual) const {
    xkb_keymap* const keymap = m_keyboard.keymap();
    return keymap == nullptr ? usual : keyFor(keymap, m_activeLayout(), symbol).value_or(usual);
}

std::vector<std::uint32_t> FakeKeyboard::keysOf(PasteKeystroke keystroke) const {
    switch (keystroke) {
    case PasteKeystroke::ControlV:
        return {keyOr(XKB_KEY_Control_L, LeftControl), keyOr(XKB_KEY_v, V)};
    case PasteKeystroke::ControlShiftV:
        return {keyOr(XKB_KEY_Control_L, LeftControl), keyOr(XKB_KEY_Shift_L, LeftShift), keyOr(XKB_KEY_v, V)};
    case PasteKeystroke::ShiftInsert:
        return {keyOr(XKB_KEY_Shift_L, LeftShift), keyOr(XKB_KEY_Insert, Insert)};
    }
    return {};
}

bool FakeKeyboard::type(PasteKeystroke keystroke) {
    if (isBlocked()) {
        return false;
    }
    if (!m_modifiers) {
        liftModifiers();
    }
    const std::vector<std::uint32_t> keys = keysOf(keystroke);
    for (const std::uint32_t key : keys) {
        send(key, WL_KEYBOARD_KEY_STATE_PRESSED);
    }
    for (const std::uint32_t key : keys | std::views::reverse) {
        send(key, WL_KEYBOARD_KEY_STATE_RELEASED);
    }
    m_connection.flush();
    return true;
}

void FakeKeyboard::liftModifiers() {
    // KWin drops the release of a key that is not down.
    static constexpr std::array MODIFIERS{LeftShift, RightShift, LeftControl, RightControl,
                                          LeftAlt,   RightAlt,   LeftSuper,   RightSuper};
    for (const KeyCode key : MODIFIERS) {
        send(key, WL_KEYBOARD_KEY_STATE_RELEASED);
    }
}

void FakeKeyboard::send(std::uint32_t key, std::uint32_t state) {
    org_kde_kwin_fake_input_keyboard_key(m_input.get(), key, state);
}

} // namespace zamber::wayland
