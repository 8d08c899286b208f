# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A keyboard and a mouse of a Wayland desktop, by the protocols that let a program be one: to the compositor and to
every program they are a user's hands (zwp_virtual_keyboard_v1, zwlr_virtual_pointer_v1)."""

import ctypes
import os
import time

from .keyboard import KEY_CODES, HandsOnKeys, key_code
from .wire import Client, Descriptor

KEYMAP_TEXT = 1
LEFT_BUTTON, RIGHT_BUTTON, MIDDLE_BUTTON = 0x110, 0x111, 0x112
EVDEV_OFFSET = 8  # X's key codes are the kernel's and eight more

_xkb = ctypes.CDLL("libxkbcommon.so.0")
for _name in ("xkb_context_new", "xkb_keymap_new_from_names", "xkb_state_new"):
    getattr(_xkb, _name).restype = ctypes.c_void_p
_xkb.xkb_keymap_get_as_string.restype = ctypes.c_char_p


class _Names(ctypes.Structure):
    _fields_ = [(name, ctypes.c_char_p) for name in ("rules", "model", "layout", "variant", "options")]


def _milliseconds():
    return int(time.monotonic() * 1000) & 0xFFFFFFFF


class Layout:
    def __init__(self, name):
        keymap = _xkb.xkb_keymap_new_from_names(
            ctypes.c_void_p(_xkb.xkb_context_new(0)), ctypes.byref(_Names(b"evdev", b"pc105", name.encode(), b"", b"")), 0)
        self.keymap = ctypes.c_void_p(keymap)

    def find(self, character):
        """The code of the key that types the character, and whether Shift has to be held."""
        keysym = {"\n": 0xFF0D, "\t": 0xFF09}.get(character, _xkb.xkb_utf32_to_keysym(ord(character)))
        found = ctypes.POINTER(ctypes.c_uint32)()
        for code in sorted(KEY_CODES.values()) + list(range(9, 128)):
            for level in (0, 1):
                count = _xkb.xkb_keymap_key_get_syms_by_level(self.keymap, code, 0, level, ctypes.byref(found))
                if count == 1 and found[0] == keysym:
                    return code, level == 1
        raise ValueError(f"no key types {character!r} here")


class VirtualKeyboard(HandsOnKeys):
    """Keys by their code or name, as on X. Its layout is its own: sway gives every keyboard one."""

    def __init__(self, environment, layout="us"):
        self._held = set()
        self._layout = Layout(layout)
        self._state = ctypes.c_void_p(_xkb.xkb_state_new(self._layout.keymap))
        self._client = Client(environment)
        seat = self._client.bind("wl_seat")
        manager = self._client.bind("zwp_virtual_keyboard_manager_v1")
        self._device = self._client.new()
        manager.send(0, seat, self._device)
        text = _xkb.xkb_keymap_get_as_string(self._layout.keymap, KEYMAP_TEXT) + b"\0"
        memory = os.memfd_create("keymap")
        os.write(memory, text)
        self._device.send(0, KEYMAP_TEXT, Descriptor(memory), len(text))
        self._client.round_trip()
        os.close(memory)

    def press(self, *keys):
        for key in keys:
            self._turn(key_code(key), True)

    def release(self, *keys):
        for key in keys:
            self._turn(key_code(key), False)

    def _turn(self, code, is_down):
        (self._held.add if is_down else self._held.discard)(code)
        self._device.send(1, _milliseconds(), code - EVDEV_OFFSET, int(is_down))
        if _xkb.xkb_state_update_key(self._state, code, int(is_down)):
            # depressed, latched, locked, and the layout group
            self._device.send(2, *(_xkb.xkb_state_serialize_mods(self._state, 1 << bit) for bit in range(3)), 0)
        self._client.round_trip()

    def _find(self, character):
        return self._layout.find(character)

    def held_keys(self):
        return set(self._held)

    def close(self):
        self._client.close()


class VirtualMouse:
    def __init__(self, environment, size):
        self._size = size
        self._client = Client(environment)
        seat = self._client.bind("wl_seat")
        manager = self._client.bind("zwlr_virtual_pointer_manager_v1")
        self._device = self._client.new()
        manager.send(0, seat, self._device)
        self._client.round_trip()

    def move(self, x, y):
        self._device.send(1, _milliseconds(), int(x), int(y), *self._size)
        self._end_frame()

    def press(self, button=1):
        self._turn(button, 1)

    def release(self, button=1):
        self._turn(button, 0)

    def click(self, x, y, button=1):
        self.move(x, y)
        self.press(button)
        self.release(button)

    def _turn(self, button, state):
        code = {1: LEFT_BUTTON, 2: MIDDLE_BUTTON, 3: RIGHT_BUTTON}[button]
        self._device.send(2, _milliseconds(), code, state)
        self._end_frame()

    def close(self):
        self._client.close()

    def _end_frame(self):
        self._device.send(4)
        self._client.round_trip()
