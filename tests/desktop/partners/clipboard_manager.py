#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A clipboard manager as desktops have one: it saves the clipboard of programs that end, and serves it after them.

Prints "ready" once it is the manager, then a JSON line for each hand-over: the types that it has saved, with the SHA-256
of their bytes.
With --hang it never answers. An error of X ends it.
"""

import argparse
import hashlib
import json
import time

from Xlib import X, Xatom
from Xlib.protocol import event

import x_program

PATIENCE_SECONDS = 10.0

parser = argparse.ArgumentParser()
parser.add_argument("--hang", action="store_true")
arguments = parser.parse_args()

connection = x_program.connect()
window = connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
CLIPBOARD, MANAGER, SAVE, TARGETS, INCR, NULL, PLACE = map(connection.intern_atom, (
    "CLIPBOARD", "CLIPBOARD_MANAGER", "SAVE_TARGETS", "TARGETS", "INCR", "NULL", "ZAMBER_TEST_SAVED"))
saved = {}


def next_of(kind, accept):
    deadline = time.monotonic() + PATIENCE_SECONDS
    while time.monotonic() < deadline:
        if not connection.pending_events():
            time.sleep(0.001)
            continue
        seen = connection.next_event()
        if seen.type == kind and accept(seen):
            return seen
    raise TimeoutError(kind)


def take_property():
    value = window.get_full_property(PLACE, X.AnyPropertyType, sizehint=1 << 22)
    window.delete_property(PLACE)
    return value


def fetch(target):
    """The type that the owner names and the bytes of the clipboard, or None."""
    window.delete_property(PLACE)
    window.convert_selection(CLIPBOARD, target, PLACE, X.CurrentTime)
    answer = next_of(X.SelectionNotify, lambda seen: seen.target == target)
    if answer.property == X.NONE:
        return None
    value = take_property()
    if value.property_type != INCR:
        return value.property_type, bytes(value.value)
    pieces = []
    while True:
        next_of(X.PropertyNotify, lambda seen: seen.atom == PLACE and seen.state == X.PropertyNewValue)
        piece = take_property()
        if not len(piece.value):
            return piece.property_type, b"".join(pieces)
        pieces.append(bytes(piece.value))


def save(request):
    global saved
    listed = request.requestor.get_full_property(request.property, X.AnyPropertyType) if request.property else None
    saved = {target: data for target in (listed.value if listed else []) if (data := fetch(target))}
    request.requestor.change_property(request.property, NULL, 32, [])
    send_answer(request, request.property)
    print(json.dumps({connection.get_atom_name(target): hashlib.sha256(data).hexdigest()
                      for target, (_, data) in saved.items()}), flush=True)


def serve(request):
    if request.target == TARGETS:
        request.requestor.change_property(request.property, Xatom.ATOM, 32, [TARGETS, *saved])
    elif request.target in saved:
        kind, data = saved[request.target]
        request.requestor.change_property(request.property, kind, 8, data)
    else:
        return send_answer(request, X.NONE)
    return send_answer(request, request.property)


def send_answer(request, where):
    request.requestor.send_event(event.SelectionNotify(
        time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
        property=where))
    connection.flush()


window.set_selection_owner(MANAGER, X.CurrentTime)
connection.sync()
print("ready", flush=True)
while True:
    if saved and connection.get_selection_owner(CLIPBOARD) == X.NONE:
        window.set_selection_owner(CLIPBOARD, X.CurrentTime)
        connection.sync()
    if not connection.pending_events():
        time.sleep(0.005)
        continue
    seen = connection.next_event()
    if seen.type == X.SelectionRequest and not arguments.hang:
        save(seen) if seen.selection == MANAGER and seen.target == SAVE else serve(seen)
