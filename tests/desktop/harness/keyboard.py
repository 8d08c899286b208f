# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A keyboard and a mouse made of XTEST events, which programs cannot tell from a user's hands."""

import time

from Xlib import XK, X
from Xlib.ext import xtest

from . import xkb

# Positions on the keyboard by their names on the US layout, as X numbers them (evdev code + 8).
KEY_CODES = {
    "Escape": 9, "1": 10, "2": 11, "3": 12, "BackSpace": 22, "Tab": 23, "q": 24, "w": 25, "p": 33, "Return": 36, "Control_L": 37, "a":
    38, "s": 39, "d": 40, "Shift_L": 50, "x": 53, "c": 54, "v": 55, "comma": 59, "Shift_R": 62, "Alt_L": 64, "space": 65,
    "Caps_Lock": 66, "F10": 76, "Num_Lock": 77, "Control_R": 105, "Home": 110, "Up": 111, "Left": 113, "Right": 114, "End":
    115, "Down": 116, "Insert": 118, "Delete": 119, "Super_L": 133, "Super_R": 134, "Menu": 135,
}

SHIFT, LOCK, CONTROL, ALT, NUM, SUPER = (
    X.ShiftMask, X.LockMask, X.ControlMask, X.Mod1Mask, X.Mod2Mask, X.Mod4Mask,
)


def key_code(key):
    """A key is given by its code or by one of the names above."""
    return key if isinstance(key, int) else KEY_CODES[key]


class HandsOnKeys:
    """What hands do with the keys of any keyboard, which says how one is pressed, lifted and found."""

    def press(self, *keys):
        raise NotImplementedError

    def release(self, *keys):
        raise NotImplementedError

    def _find(self, character):
        """The code of the key that types the character, and whether Shift has to be held."""
        raise NotImplementedError

    def tap(self, *keys):
        """Each key down and up again, one after the other."""
        for key in keys:
            self.press(key)
            self.release(key)

    def chord(self, *keys):
        """All keys but the last are held while the last is tapped: chord("Control_L", "v")."""
        self.press(*keys)
        self.release(*reversed(keys))

    def play(self, *steps):
        """Keys at their times, as hands move them: play((0.0, "+Super_L"), (0.08, "+2"), (0.3, "-Super_L"), …), each
        with the seconds since the call."""
        start = time.monotonic()
        for due, step in steps:
            time.sleep(max(0.0, start + due - time.monotonic()))
            (self.press if step[0] == "+" else self.release)(step[1:])

    def type_text(self, text):
        """Types on the first layout; every character must be on it with at most Shift."""
        for character in text:
            code, shifted = self._find(character)
            if shifted:
                self.chord("Shift_L", code)
            else:
                self.tap(code)


class Keyboard(HandsOnKeys):
    """The keys go down and up one by one; nothing is pressed or lifted that the caller did not ask for."""

    def __init__(self, display, display_name, authority):
        self._display = display
        self._server = (display_name, authority)

    def press(self, *keys):
        for key in keys:
            xtest.fake_input(self._display, X.KeyPress, key_code(key))
        self._display.sync()

    def release(self, *keys):
        for key in keys:
            xtest.fake_input(self._display, X.KeyRelease, key_code(key))
        self._display.sync()

    def _find(self, character):
        keysym = XK.string_to_keysym(character) or ord(character)
        keysym = {"\n": XK.XK_Return, "\t": XK.XK_Tab}.get(character, keysym)
        for code, level in sorted(self._display.keysym_to_keycodes(keysym)):
            if level in (0, 1):
                return code, level == 1
        raise ValueError(f"no key types {character!r} here")

    def held_keys(self):
        """The codes of the keys that are down at this moment."""
        vector = self._display.query_keymap()
        return {8 * byte + bit for byte in range(32) for bit in range(8) if vector[byte] >> bit & 1}

    def state(self):
        """Modifiers held, latched and locked, and the layout group."""
        return xkb.keyboard_state(*self._server)

    def set_locks(self, caps=False, num=False):
        """Presses Caps Lock and Num Lock until they are as wanted."""
        for key, mask, wanted in (("Caps_Lock", LOCK, caps), ("Num_Lock", NUM, num)):
            if bool(self.state().locked & mask) != wanted:
                self.tap(key)
            if bool(self.state().locked & mask) != wanted:
                raise RuntimeError(f"{key} does not change its lock")

    def set_group(self, group):
        """Chooses one of the layouts that were set, the first being 0."""
        xkb.lock_group(*self._server, group)

    def release_everything(self):
        for code in self.held_keys():
            self.release(code)


class Mouse:
    def __init__(self, display):
        self._display = display

    def move(self, x, y):
        xtest.fake_input(self._display, X.MotionNotify, x=int(x), y=int(y))
        self._display.sync()

    def press(self, button=1):
        xtest.fake_input(self._display, X.ButtonPress, button)
        self._display.sync()

    def release(self, button=1):
        xtest.fake_input(self._display, X.ButtonRelease, button)
        self._display.sync()

    def click(self, x, y, button=1):
        self.move(x, y)
        self.press(button)
        self.release(button)
