# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The windows of the desktop as a window manager's client list and the X tree show them."""

from dataclasses import dataclass

from Xlib import X, Xatom, error


# Window managers that give their frames a class, as if they were programs' windows.
FRAME_CLASSES = (b"i3-frame\0i3-frame\0",)


@dataclass(frozen=True)
class Window:
    id: int
    title: str
    pid: int
    class_name: str
    x: int
    y: int
    width: int
    height: int
    visible: bool


def describe(display, window):
    """The window as it is now, in root coordinates, or None when it is gone."""
    try:
        geometry = window.get_geometry()
        place = window.translate_coords(display.screen().root, 0, 0)
        visible = window.get_attributes().map_state == X.IsViewable
        title = _property(display, window, "_NET_WM_NAME", display.intern_atom("UTF8_STRING"))
        if title is None:
            title = _property(display, window, "WM_NAME", Xatom.STRING) or b""
        pid = _property(display, window, "_NET_WM_PID", Xatom.CARDINAL)
        names = (_property(display, window, "WM_CLASS", Xatom.STRING) or b"").split(b"\0")
        return Window(
            window.id, _text(title), pid[0] if pid else 0, _text(names[1] if len(names) > 1 else b""),
            -place.x, -place.y, geometry.width, geometry.height, visible,
        )
    except error.XError:
        return None


def _property(display, window, name, kind):
    reply = window.get_full_property(display.intern_atom(name), kind)
    return reply.value if reply and len(reply.value) else None


def _text(value):
    return value.decode("utf-8", "replace") if isinstance(value, bytes) else str(value)


def top_level_windows(display):
    """All windows that programs opened, with or without a window manager's frame, from bottom to top."""
    root = display.screen().root
    found = []

    def look(window, depth):
        try:
            children = window.query_tree().children
            is_client = _is_client(display, window)
        except error.XError:
            return
        if is_client:
            description = describe(display, window)
            if description:
                found.append(description)
        elif depth < 3:
            for child in children:
                look(child, depth + 1)

    for child in root.query_tree().children:
        look(child, 0)
    return found


def embedded_windows(display):
    """The icons that a tray has taken in. Qt gives every window their mark; the others a window manager has."""
    info, managed = display.intern_atom("_XEMBED_INFO"), display.intern_atom("WM_STATE")

    def has(window, name):
        return window.get_full_property(name, X.AnyPropertyType) is not None

    found = []

    def look(window, depth):
        try:
            children = window.query_tree().children
            is_icon = has(window, info) and not has(window, managed)
        except error.XError:
            return
        description = describe(display, window) if is_icon else None
        if description and description.visible and depth > 1:  # the root's own children still wait for their tray
            found.append(description)
        elif depth < 5:
            for child in children:
                look(child, depth + 1)

    look(display.screen().root, 0)
    return found


def _is_client(display, window):
    if window.get_full_property(display.intern_atom("WM_STATE"), X.AnyPropertyType) is not None:
        return True
    names = window.get_full_property(Xatom.WM_CLASS, Xatom.STRING)
    return names is not None and names.value not in FRAME_CLASSES


def focused_window(display):
    """The program's window that has the keyboard, or None where no window has it."""
    focus = display.get_input_focus().focus
    if isinstance(focus, int):
        return None
    root = display.screen().root
    window = focus
    try:
        while window and window.id != root.id:
            if _is_client(display, window):
                return describe(display, window)
            window = window.query_tree().parent
    except error.XError:
        pass
    return None


def active_window(display):
    """The active window by the window manager's word, or None."""
    root = display.screen().root
    reply = root.get_full_property(display.intern_atom("_NET_ACTIVE_WINDOW"), Xatom.WINDOW)
    if not reply or not len(reply.value) or not reply.value[0]:
        return None
    return describe(display, display.create_resource_object("window", reply.value[0]))
