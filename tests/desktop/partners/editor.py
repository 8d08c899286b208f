#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A text editor whose state can be read: its whole text is in a file after every change, each key event
that it received is a line of JSON in another, and a pasted picture's PNG bytes are in a third."""

import argparse
import json
import os
import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, GLib, Gtk  # noqa: E402

parser = argparse.ArgumentParser()
parser.add_argument("--title", default="Editor")
parser.add_argument("--class-name", default="Editor")
parser.add_argument("--text-file", required=True)
parser.add_argument("--key-log", required=True)
parser.add_argument("--image-file", required=True)
parser.add_argument("--geometry", default="480x300+40+80", help="width x height + x + y")
arguments = parser.parse_args()

size, left, top = arguments.geometry.split("+")
width, height = size.split("x")

GLib.set_prgname(arguments.class_name.lower())
Gdk.set_program_class(arguments.class_name)
window = Gtk.Window(title=arguments.title)
window.set_default_size(int(width), int(height))
window.move(int(left), int(top))
view = Gtk.TextView(wrap_mode=Gtk.WrapMode.CHAR)
scroller = Gtk.ScrolledWindow()
scroller.add(view)
window.add(scroller)
text_buffer = view.get_buffer()
key_log = open(arguments.key_log, "a", encoding="utf-8", buffering=1)


def replace_file(path, data):
    """Readers find the old content or the new, never half of it."""
    with open(path + ".part", "wb") as stream:
        stream.write(data)
    os.replace(path + ".part", path)


def publish(*_):
    text = text_buffer.get_text(*text_buffer.get_bounds(), True)
    replace_file(arguments.text_file, text.encode())


def note_key(_, event):
    key_log.write(json.dumps({
        "pressed": event.type == Gdk.EventType.KEY_PRESS, "code": event.hardware_keycode,
        "name": Gdk.keyval_name(event.keyval), "state": int(event.state), "time": event.time,
    }) + "\n")
    return False


def take_picture(_):
    """GTK's view pastes texts only; a picture on the clipboard is taken as the PNG that the owner gives."""
    clipboard = Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD)

    def received(_, selection, *__):
        if selection.get_length() > 0:
            replace_file(arguments.image_file, selection.get_data())

    png = Gdk.Atom.intern("image/png", False)
    # The targets are asked for first: some owners answer every target with the one form that they have.
    clipboard.request_targets(lambda _, targets, *__: png in (targets or []) and clipboard.request_contents(png, received))


text_buffer.connect("changed", publish)
view.connect("paste-clipboard", take_picture)
window.connect("key-press-event", note_key)
window.connect("key-release-event", note_key)
window.connect("destroy", Gtk.main_quit)
publish()
window.show_all()
Gtk.main()
sys.exit(0)
