#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A program that owns a selection. JSON lines on standard input say what it offers; it answers each with a line.

  {"offer": {"UTF8_STRING": "68656c6c6f", "image/png": null}, "selection": "CLIPBOARD"}
      takes the selection; data in hexadecimal, null for a target that is offered but never delivered
  {"release": true}
      gives the selection up
  {"hello": true}
      does nothing

Every target that is asked for is written to the log file, a line each. Ends with its input.
"""

import argparse

from Xlib import X, Xatom, display
from Xlib.protocol import event, request

import x_program

parser = argparse.ArgumentParser()
parser.add_argument("--log", required=True)
arguments = parser.parse_args()

connection = display.Display()
window = connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
window.set_wm_name("Selection owner")
TARGETS, TIMESTAMP, STAMP = (connection.intern_atom(name) for name in ("TARGETS", "TIMESTAMP", "ZAMBER_TEST_STAMP"))

held = {}
contents = {}
since = X.CurrentTime


def server_time():
    window.change_property(STAMP, Xatom.STRING, 8, b"")
    while True:
        seen = connection.next_event()
        if seen.type == X.PropertyNotify and seen.atom == STAMP:
            return seen.time
        handle(seen)


def take(selection, offer):
    global contents, since
    contents = {connection.intern_atom(name): None if data is None else bytes.fromhex(data)
                for name, data in offer.items()}
    since = server_time()
    held["selection"] = connection.intern_atom(selection)
    window.set_selection_owner(held["selection"], since)
    connection.sync()


def release():
    request.SetSelectionOwner(
        display=connection.display, window=X.NONE, selection=held.pop("selection"), time=since
    )
    connection.sync()


def handle(seen):
    if seen.type == X.SelectionRequest:
        answer(seen)


def answer(asked):
    with open(arguments.log, "a", encoding="utf-8") as log:
        log.write(connection.get_atom_name(asked.target) + "\n")
    where = asked.property or asked.target
    if asked.target == TARGETS:
        asked.requestor.change_property(where, Xatom.ATOM, 32, [TARGETS, TIMESTAMP, *contents])
    elif asked.target == TIMESTAMP:
        asked.requestor.change_property(where, Xatom.INTEGER, 32, [since])
    elif asked.target not in contents:
        where = X.NONE
    elif contents[asked.target] is None:
        return
    else:
        asked.requestor.change_property(where, asked.target, 8, contents[asked.target])
    asked.requestor.send_event(
        event.SelectionNotify(time=asked.time, requestor=asked.requestor, selection=asked.selection,
                              target=asked.target, property=where)
    )
    connection.flush()


orders = x_program.Orders(connection)
came = []
while came is not None:
    for order in came:
        if "offer" in order:
            take(order["selection"], order["offer"])
        elif "release" in order:
            release()
        print("done", flush=True)
    while connection.pending_events():
        handle(connection.next_event())
    came = orders.wait()
