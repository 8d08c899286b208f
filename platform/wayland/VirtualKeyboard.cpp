// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/VirtualKeyboard.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/Descriptor.h"
#include "platform/wayland/KeyCodes.h"
#include "platform/wayland/KeymapLookup.h"

#include <sys/mman.h>
#include <unistd.h>
#include <virtual-keyboard-unstable-v1.h>
#include <xkbcommon/xkbcommon.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ranges>
#include <vector>

namespace zamber::wayland {

namespace {

/// The bits of the real modifiers, which have the same order in every keymap.
constexpr std::uint32_t SHIFT_MASK = 1;
constexpr std::uint32_t CONTROL_MASK = 4;

struct Free {
    void operator()(char* text) const { std::free(text); }
};
using Text = std::unique_ptr<char, Free>;

/// The time of an event. Any clock will do, as long as the times of one keyboard never decrease.
std::uint32_t now() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

} // namespace

std::unique_ptr<VirtualKeyboard> VirtualKeyboard::create(Connection& connection) {
    const Proxy<zwp_virtual_keyboard_manager_v1> manager(
        connection.bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface, 1));
    if (!manager || connection.seat() == nullptr) {
        return nullptr;
    }
    std::unique_ptr<VirtualKeyboard> keyboard(new VirtualKeyboard(
        connection, zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager.get(), connection.seat())));
    return keyboard->sendKeymap() && connection.roundTrip() ? std::move(keyboard) : nullptr;
}

VirtualKeyboard::VirtualKeyboard(Connection& connection, zwp_virtual_keyboard_v1* keyboard)
    : m_connection(connection)
    , m_keyboard(keyboard) {}

VirtualKeyboard::~VirtualKeyboard() = default;

bool VirtualKeyboard::sendKeymap() {
    const Keymap keymap = keymapOf("us");
    const Text text(keymap ? xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1) : nullptr);
    if (!text) {
        return false;
    }
    const std::size_t size = std::strlen(text.get()) + 1;
    const Descriptor memory(memfd_create("zamber-keymap", MFD_CLOEXEC));
    if (!memory.isOpen() || write(memory.number(), text.get(), size) != static_cast<ssize_t>(size)) {
        return false;
    }
    zwp_virtual_keyboard_v1_keymap(m_keyboard.get(), WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, memory.number(),
                                   static_cast<std::uint32_t>(size));
    return true;
}

bool VirtualKeyboard::type(PasteKeystroke keystroke) {
    std::vector<std::uint32_t> keys{LeftControl, V};
    std::uint32_t modifiers = CONTROL_MASK;
    if (keystroke == PasteKeystroke::ControlShiftV) {
        keys = {LeftControl, LeftShift, V};
        modifiers |= SHIFT_MASK;
    } else if (keystroke == PasteKeystroke::ShiftInsert) {
        keys = {LeftShift, Insert};
        modifiers = SHIFT_MASK;
    }
    const std::uint32_t last = keys.back();
    for (const std::uint32_t key : keys) {
        if (key == last) {
            zwp_virtual_keyboard_v1_modifiers(m_keyboard.get(), modifiers, 0, 0, 0);
        }
        send(key, WL_KEYBOARD_KEY_STATE_PRESSED);
    }
    for (const std::uint32_t key : keys | std::views::reverse) {
        send(key, WL_KEYBOARD_KEY_STATE_RELEASED);
    }
    zwp_virtual_keyboard_v1_modifiers(m_keyboard.get(), 0, 0, 0, 0);
    m_connection.flush();
    return true;
}

void VirtualKeyboard::send(std::uint32_t key, std::uint32_t state) {
    zwp_virtual_keyboard_v1_key(m_keyboard.get(), now(), key, state);
}

} // namespace zamber::wayland
