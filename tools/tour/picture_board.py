#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A window that shows the picture that is pasted into it, and writes its bytes to a file."""

import os
import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, GdkPixbuf, GLib, Gtk  # noqa: E402

PNG = Gdk.Atom.intern("image/png", False)
picture_file = sys.argv[1]

GLib.set_prgname("picture-board")
window = Gtk.Window(title="Picture board")
image = Gtk.Image()
hint = Gtk.Label(label="Ctrl+V shows a picture here")
stack = Gtk.Stack()
stack.add(hint)
stack.add(image)
window.add(stack)


def take(_, selection, *__):
    data = selection.get_data()
    if not data:
        return
    loader = GdkPixbuf.PixbufLoader()
    loader.write_bytes(GLib.Bytes(data))
    loader.close()
    image.set_from_pixbuf(loader.get_pixbuf())
    stack.set_visible_child(image)
    with open(picture_file + ".part", "wb") as stream:
        stream.write(data)
    os.replace(picture_file + ".part", picture_file)


def note_key(_, event):
    if event.keyval in (Gdk.KEY_v, Gdk.KEY_V) and event.state & Gdk.ModifierType.CONTROL_MASK:
        Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD).request_contents(PNG, take)
    return False


window.connect("key-press-event", note_key)
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
