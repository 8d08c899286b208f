#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A part of a Wayland desktop, drawn by a program as Plasma's are: the backdrop that fills the screen behind all
windows and takes the focus when it is pressed, or a panel at the bottom that keeps its room for itself."""

import argparse
import pathlib

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("GtkLayerShell", "0.1")
from gi.repository import Gtk, GtkLayerShell  # noqa: E402

parser = argparse.ArgumentParser()
parser.add_argument("part", choices=("backdrop", "panel"))
parser.add_argument("--height", type=int, default=40)
parser.add_argument("--shown-file", type=pathlib.Path, required=True)
arguments = parser.parse_args()

Edge = GtkLayerShell.Edge
window = Gtk.Window(title=arguments.part.title())
GtkLayerShell.init_for_window(window)
GtkLayerShell.set_namespace(window, "desktop" if arguments.part == "backdrop" else "dock")
edges = [Edge.LEFT, Edge.RIGHT, Edge.BOTTOM]
if arguments.part == "backdrop":
    edges.append(Edge.TOP)
    GtkLayerShell.set_layer(window, GtkLayerShell.Layer.BACKGROUND)
    GtkLayerShell.set_exclusive_zone(window, -1)
    GtkLayerShell.set_keyboard_mode(window, GtkLayerShell.KeyboardMode.ON_DEMAND)
else:
    window.set_size_request(-1, arguments.height)
    GtkLayerShell.set_layer(window, GtkLayerShell.Layer.TOP)
    GtkLayerShell.set_exclusive_zone(window, arguments.height)
for edge in edges:
    GtkLayerShell.set_anchor(window, edge, True)
window.connect("destroy", Gtk.main_quit)
window.connect("map-event", lambda *_: arguments.shown_file.touch())
window.show_all()
Gtk.main()
