#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A tray of the oldest kind: a strip on top of the screen, in one colour, that says nothing of the pixels which its icons
are to have (freedesktop.org, System Tray Protocol). Each icon gets a square of 24 pixels."""

from Xlib import X, display
from Xlib.protocol import event

COLOUR = 0x335577
STRIP = (300, 0, 400, 28)  # place and size
SQUARE = 24
REQUEST_DOCK = 0

connection = display.Display()
root = connection.screen().root
selection = connection.intern_atom(f"_NET_SYSTEM_TRAY_S{connection.get_default_screen()}")
opcode = connection.intern_atom("_NET_SYSTEM_TRAY_OPCODE")
strip = root.create_window(*STRIP, 0, connection.screen().root_depth, background_pixel=COLOUR, override_redirect=True)
strip.map()
strip.set_selection_owner(selection, X.CurrentTime)
news = event.ClientMessage(window=root, client_type=connection.intern_atom("MANAGER"),
                           data=(32, (X.CurrentTime, selection, strip.id, 0, 0)))
root.send_event(news, event_mask=X.StructureNotifyMask)
connection.flush()

icons = 0
while True:
    message = connection.next_event()
    if message.type == X.ClientMessage and message.client_type == opcode and message.data[1][1] == REQUEST_DOCK:
        icon = connection.create_resource_object("window", message.data[1][2])
        icon.reparent(strip, 2 + icons * SQUARE, 2)
        icon.configure(width=SQUARE, height=SQUARE)
        icon.map()
        icons += 1
        connection.flush()
