// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SeatKeyboard.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/Descriptor.h"

#include <sys/mman.h>
#include <xkbcommon/xkbcommon.h>

#include <cstring>

namespace zamber::wayland {

std::unique_ptr<SeatKeyboard> SeatKeyboard::create(Connection& connection) {
    auto* const seat = connection.bind<wl_seat>(wl_seat_interface, 1);
    if (seat == nullptr) {
        return nullptr;
    }
    std::unique_ptr<SeatKeyboard> keyboard(new SeatKeyboard(seat));
    connection.roundTrip(); // whether there is a keyboard
    connection.roundTrip(); // and its keymap
    return keyboard;
}

SeatKeyboard::SeatKeyboard(wl_seat* seat)
    : m_seat(seat)
    , m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS)) {
    static constexpr wl_seat_listener LISTENER{.capabilities =
                                                   [](void* self, wl_seat*, std::uint32_t capabilities) {
                                                       static_cast<SeatKeyboard*>(self)->handleCapabilities(
                                                           capabilities);
                                                   },
                                               .name = [](void*, wl_seat*, const char*) {}};
    wl_seat_add_listener(seat, &LISTENER, this);
}

SeatKeyboard::~SeatKeyboard() = default;

void SeatKeyboard::handleCapabilities(std::uint32_t capabilities) {
    static constexpr wl_keyboard_listener LISTENER{
        .keymap = [](void* self, wl_keyboard*, std::uint32_t format, std::int32_t descriptor,
                     std::uint32_t size) { static_cast<SeatKeyboard*>(self)->handleKeymap(format, descriptor, size); },
        .enter = [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
        .leave = [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
        .key = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .modifiers = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
                        std::uint32_t) {},
        .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {}};
    const bool hasKeyboard = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
    if (!hasKeyboard) {
        m_keyboard.reset(); // the last keymap is still the best guess
    } else if (!m_keyboard) {
        m_keyboard.reset(wl_seat_get_keyboard(m_seat.get()));
        wl_keyboard_add_listener(m_keyboard.get(), &LISTENER, this);
    }
}

void SeatKeyboard::handleKeymap(std::uint32_t format, int descriptor, std::uint32_t size) {
    const Descriptor file(descriptor);
    if (format != WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 || size == 0 || !m_context) {
        return;
    }
    void* const bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
    if (bytes == MAP_FAILED) {
        return;
    }
    const auto* const text = static_cast<const char*>(bytes);
    xkb_keymap* const keymap = xkb_keymap_new_from_buffer(m_context.get(), text, strnlen(text, size),
                                                          XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS);
    munmap(bytes, size);
    if (keymap != nullptr) {
        m_keymap.reset(keymap);
        Q_EMIT keymapChanged();
    }
}

} // namespace zamber::wayland
