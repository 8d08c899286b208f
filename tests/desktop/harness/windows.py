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
        title = _property(display, window, "_NET_WM_NAME", display.get_atom("UTF8_STRING"))
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
    reply = window.get_full_property(display.get_atom(name), kind)
    return reply.value if reply and len(reply.value) else None


def _text(value):
    return value.decode("utf-8", "replace") if isinstance(value, bytes) else str(value)


def shown_windows(display):
    """The windows that programs show, with or without a window manager's frame, from bottom to top.

    Every wait for a window asks for them again and again. The window manager's list spares a look at all the windows that
    its frames are made of."""
    root = display.screen().root
    managed = _managed_windows(display)
    found = []
    for child in root.query_tree().children:
        try:
            windows = managed.get(child.id) or ([child] if _is_unmanaged(child) else [])
        except error.XError:
            continue
        found += [window for window in (describe(display, window) for window in windows) if window and window.visible]
    return found


def _managed_windows(display):
    """The windows in the window manager's list, by their frames: the children of the root window that they lie in."""
    root = display.screen().root
    # xfwm4 does not have the list in the order of their stacking, _NET_CLIENT_LIST_STACKING, until that changes.
    reply = root.get_full_property(display.get_atom("_NET_CLIENT_LIST"), Xatom.WINDOW)
    managed = {}
    for number in reply.value if reply else ():
        window = display.create_resource_object("window", number)
        try:
            managed.setdefault(_child_of_root(window, root).id, []).append(window)
        except error.XError:
            pass  # gone
    return managed


def _child_of_root(window, root):
    parent = window.query_tree().parent
    return window if not parent or parent.id == root.id else _child_of_root(parent, root)


def _is_unmanaged(window):
    """Whether a child of the root is a window that its program shows without a window manager."""
    return window.get_attributes().map_state == X.IsViewable and _has_class(window)


def embedded_windows(display):
    """The icons that a tray has taken in. Qt gives every window their mark; the others a window manager has."""
    info, managed = display.get_atom("_XEMBED_INFO"), display.get_atom("WM_STATE")

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


def _has_class(window):
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
            if window.get_full_property(display.get_atom("WM_STATE"), X.AnyPropertyType) is not None or _has_class(window):
                return describe(display, window)
            window = window.query_tree().parent
    except error.XError:
        pass
    return None


def active_window(display):
    """The active window by the window manager's word, or None."""
    root = display.screen().root
    reply = root.get_full_property(display.get_atom("_NET_ACTIVE_WINDOW"), Xatom.WINDOW)
    if not reply or not len(reply.value) or not reply.value[0]:
        return None
    return describe(display, display.create_resource_object("window", reply.value[0]))
