#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A program that pastes, in ways that strain the owner: told by JSON lines, answering each with a JSON line.

  {"ask": [TARGET, …], "times": 1, "take": true, "pieces": null}
      asks for each target, all at once, `times` over, each in a property of its own, and tells the answers as a list
      of null for a refusal or {"type", "format", "bytes", "sha256", "hex" of the first 64}. With `take` false it only
      asks. With `pieces` it dies after so many pieces of an INCR answer.
  {"multiple": [TARGET, …]}
      asks for all of them by one MULTIPLE request; the answers as above, null for a pair that came back as failed, "lost"
      for one that did not and of which there is nothing

A transfer has 20 seconds. An error of X ends it, as it ends most programs.
"""

import hashlib
import json
import os
import struct
import sys
import time

from Xlib import X

import x_program

PATIENCE_SECONDS = 20.0

connection = x_program.connect()
window = connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
CLIPBOARD, INCR, MULTIPLE, ATOM_PAIR = map(connection.intern_atom, ("CLIPBOARD", "INCR", "MULTIPLE", "ATOM_PAIR"))
TYPES = {8: None, 16: "H", 32: "I"}


def place(number):
    return connection.intern_atom(f"ZAMBER_TEST_{number}")


def receive(property_):
    """The property, read in one go, as python-xlib's own reading converts what we want as bytes."""
    answer = window.get_full_property(property_, X.AnyPropertyType, sizehint=1 << 22)
    window.delete_property(property_)
    if answer is None:
        return None
    value = answer.value
    data = bytes(value) if answer.format == 8 else struct.pack(f"={len(value)}{TYPES[answer.format]}", *value)
    return answer.property_type, answer.format, data


def next_event(deadline):
    while not connection.pending_events():
        if time.monotonic() > deadline:
            return None
        time.sleep(0.0005)
    return connection.next_event()


class Answer:
    def __init__(self):
        self.type = self.format = None
        self.pieces = 0
        self.size = 0
        self.digest = hashlib.sha256()
        self.head = b""
        self.is_incremental = self.is_refused = self.is_complete = self.is_lost = False

    def add(self, kind, width, data):
        self.type, self.format = kind, width
        self.size += len(data)
        self.digest.update(data)
        self.head = (self.head + data)[:64]

    def described(self):
        if self.is_lost:
            return "lost"
        if self.is_refused or not self.is_complete:
            return None
        return {"type": connection.get_atom_name(self.type), "format": self.format, "bytes": self.size,
                "sha256": self.digest.hexdigest(), "hex": self.head.hex(), "incremental": self.is_incremental}


def collect(answers, most_pieces):
    """Takes the answers' pieces until all are complete or time is up."""
    deadline = time.monotonic() + PATIENCE_SECONDS
    while not all(answer.is_complete for answer in answers.values()):
        seen = next_event(deadline)
        if seen is None:
            return
        if seen.type == X.SelectionNotify and seen.property in answers:
            begin(answers[seen.property], seen.property)
        elif seen.type == X.SelectionNotify and seen.property == X.NONE:
            refused = next((a for a in answers.values() if a.target == seen.target and not a.is_complete
                            and not a.is_incremental), None)
            if refused:
                refused.is_refused = refused.is_complete = True
        elif seen.type == X.PropertyNotify and seen.state == X.PropertyNewValue and seen.atom in answers:
            take_piece(answers[seen.atom], seen.atom, most_pieces)


def begin(answer, property_):
    received = receive(property_)
    if received is None:
        answer.is_refused = answer.is_complete = True
    elif received[0] == INCR:
        answer.is_incremental = True
    else:
        answer.add(*received)
        answer.is_complete = True


def take_piece(answer, property_, most_pieces):
    if not answer.is_incremental or answer.is_complete:
        return
    received = receive(property_)
    if received is None:
        return
    if not received[2]:
        answer.is_complete = True
        return
    answer.add(*received)
    answer.pieces += 1
    if answer.pieces == most_pieces:
        connection.sync()
        os._exit(0)


def ask(order):
    answers = {}
    for _ in range(order.get("times", 1)):
        for target in order["ask"]:
            property_ = place(len(answers))
            answers[property_] = Answer()
            answers[property_].target = connection.intern_atom(target)
    for property_, answer in answers.items():
        window.convert_selection(CLIPBOARD, answer.target, property_, X.CurrentTime)
    connection.flush()
    if not order.get("take", True):
        return len(answers)
    collect(answers, order.get("pieces"))
    return [answer.described() for answer in answers.values()]


def ask_multiple(order):
    targets = [connection.intern_atom(target) for target in order["multiple"]]
    places = [place(number) for number in range(len(targets))]
    pairs = [atom for pair in zip(targets, places) for atom in pair]
    list_place = place("PAIRS")
    window.change_property(list_place, ATOM_PAIR, 32, pairs)
    window.convert_selection(CLIPBOARD, MULTIPLE, list_place, X.CurrentTime)
    connection.flush()
    deadline = time.monotonic() + PATIENCE_SECONDS
    while (seen := next_event(deadline)) is not None:
        if seen.type == X.SelectionNotify:
            break
    if seen is None or seen.property == X.NONE:
        return None
    came_back = window.get_full_property(list_place, X.AnyPropertyType).value
    answers = {}
    for target, property_ in zip(came_back[::2], places):
        answers[property_] = Answer()
        if target == X.NONE:
            answers[property_].is_refused = answers[property_].is_complete = True
        else:
            begin(answers[property_], property_)
            answers[property_].is_lost = answers[property_].is_refused
    collect(answers, None)
    return [answer.described() for answer in answers.values()]


for line in sys.stdin:
    order = json.loads(line)
    result = ask(order) if "ask" in order else ask_multiple(order) if "multiple" in order else None
    print(json.dumps(result), flush=True)
