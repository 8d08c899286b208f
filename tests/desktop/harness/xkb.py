# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The two XKB requests that python-xlib does not know: read the keyboard's state, choose its layout group."""

import contextlib
import ctypes
from dataclasses import dataclass

from .authority import authority_in_environment

USE_CORE_KEYBOARD = 0x100

_library = ctypes.CDLL("libX11.so.6")
_library.XOpenDisplay.restype = ctypes.c_void_p
_library.XOpenDisplay.argtypes = [ctypes.c_char_p]
_library.XCloseDisplay.argtypes = [ctypes.c_void_p]
_library.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
_library.XkbLockGroup.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_uint]
_library.XkbLockModifiers.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_uint, ctypes.c_uint]


class _StateRecord(ctypes.Structure):
    _fields_ = [
        ("group", ctypes.c_ubyte),
        ("locked_group", ctypes.c_ubyte),
        ("base_group", ctypes.c_ushort),
        ("latched_group", ctypes.c_ushort),
        ("mods", ctypes.c_ubyte),
        ("base_mods", ctypes.c_ubyte),
        ("latched_mods", ctypes.c_ubyte),
        ("locked_mods", ctypes.c_ubyte),
        ("compat_state", ctypes.c_ubyte),
        ("grab_mods", ctypes.c_ubyte),
        ("compat_grab_mods", ctypes.c_ubyte),
        ("lookup_mods", ctypes.c_ubyte),
        ("compat_lookup_mods", ctypes.c_ubyte),
        ("ptr_buttons", ctypes.c_ushort),
    ]


_library.XkbGetState.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.POINTER(_StateRecord)]


@dataclass(frozen=True)
class KeyboardState:
    """Modifier masks as X numbers them (Shift 1, Lock 2, Control 4, Mod1 8 … Mod5 128), and the layout group."""

    group: int
    held: int
    latched: int
    locked: int


@contextlib.contextmanager
def _connection(display_name, authority):
    with authority_in_environment(authority):
        display = _library.XOpenDisplay(display_name.encode())
    if not display:
        raise RuntimeError(f"no connection to {display_name}")
    try:
        yield display
    finally:
        _library.XCloseDisplay(display)


def keyboard_state(display_name, authority):
    record = _StateRecord()
    with _connection(display_name, authority) as display:
        _library.XkbGetState(display, USE_CORE_KEYBOARD, ctypes.byref(record))
    return KeyboardState(record.group, record.base_mods, record.latched_mods, record.locked_mods)


def lock_group(display_name, authority, group):
    with _connection(display_name, authority) as display:
        _library.XkbLockGroup(display, USE_CORE_KEYBOARD, group)
        _library.XSync(display, 0)
