#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A program that owns CLIPBOARD and breaks the rules as it is told, by JSON lines, answering each with "done".

  {"offer": {TARGET: ANSWER, …}, "times": 1, "at_once": false, "targets": ANSWER, "insist": 0, "stop_after": TARGET}
      takes the clipboard, `times` in a row (with `at_once` answering nobody in between); `targets` is how TARGETS is
      answered where it is not just with the list; `insist` is how often it is taken back from others; having answered
      for the target `stop_after` it stops as by Ctrl+Z
  {"release": true}, {"hand_over": true}, {"calm_down": true}
      gives the clipboard up; asks the clipboard manager to save it; insists no more
  {"leave": SECONDS}
      gives the clipboard up as some programs do that are about to end: destroys the window, clears the clipboard, and
      ends so much later; null for never, and then it goes on with a new window

An ANSWER has, all of them optional:
  hex      the data in hexadecimal       size     instead: so many bytes of digits
  type     what the data is called       format   8, 16 or 32 bits an element
  notify   the target that the answer is said to be for
  silent   no answer                     refuse   a refusal
  incr     piece by piece, of so many bytes
  announce the size that is announced then, where that is a lie
  pause    so many seconds before each piece
  pieces   then it stops                 endless  then it never stops
  exit     dies: at the "request", or after the first "piece"
  retake   takes the clipboard anew, offering this, after the first piece
  tail     after the last piece, once the partner has had time to let go: stops listening, as toolkits do

What happens is written to the log, a JSON line each. An error of X ends it, as it ends most programs.
"""

import argparse
import json
import os
import signal
import time

from Xlib import X, Xatom
from Xlib.protocol import event, request

import x_program

LARGEST_REQUEST_BYTES = 200_000
TAIL_SECONDS = 0.3

parser = argparse.ArgumentParser()
parser.add_argument("--log", required=True)
arguments = parser.parse_args()


def note(**what):
    with open(arguments.log, "a", encoding="utf-8") as log:
        log.write(json.dumps(what) + "\n")


connection = x_program.connect()


def create_window():
    return connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)


window = create_window()
CLIPBOARD, TARGETS, TIMESTAMP, INCR, STAMP, MANAGER, SAVE = map(connection.intern_atom, (
    "CLIPBOARD", "TARGETS", "TIMESTAMP", "INCR", "ZAMBER_TEST_STAMP", "CLIPBOARD_MANAGER", "SAVE_TARGETS"))

offer = {}
since = X.CurrentTime
insistence = 0
stop_after = None
transfers = {}
tails = []  # (when, window of the partner)
late_pieces = []  # (when, window of the partner, property)
end = None  # when to end


def server_time():
    window.change_property(STAMP, Xatom.STRING, 8, b"")
    while True:
        seen = connection.next_event()
        if seen.type == X.PropertyNotify and seen.atom == STAMP:
            return seen.time
        handle(seen)


def data_of(answer):
    if "size" in answer:
        digits = b"".join(b"%010d" % number for number in range(100_000))
        return (digits * (answer["size"] // len(digits) + 1))[: answer["size"]]
    return bytes.fromhex(answer.get("hex", ""))


def take(order):
    global offer, since, insistence, stop_after
    insistence = order.get("insist", 0)
    stop_after = order.get("stop_after")
    offer = {connection.intern_atom(name): answer for name, answer in order["offer"].items()}
    if "targets" in order:
        offer[TARGETS] = order["targets"]
    for _ in range(order.get("times", 1)):
        if not order.get("at_once") or since == X.CurrentTime:
            since = server_time()
        window.set_selection_owner(CLIPBOARD, since)
    connection.sync()


def handle(seen):
    if seen.type == X.SelectionRequest:
        answer_request(seen)
    elif seen.type == X.PropertyNotify and seen.state == X.PropertyDelete:
        transfer = transfers.get((seen.window.id, seen.atom))
        if transfer and "pause" in transfer["answer"]:
            late_pieces.append((time.monotonic() + transfer["answer"]["pause"], seen.window, seen.atom))
        elif transfer:
            send_piece(seen.window, seen.atom)
    elif seen.type == X.SelectionClear:
        lose()
    elif seen.type == X.SelectionNotify:
        note(handed_over=seen.property != X.NONE)


def lose():
    global insistence, since
    note(lost=True)
    if insistence:
        insistence -= 1
        since = server_time()
        window.set_selection_owner(CLIPBOARD, since)
        connection.flush()
        note(taken_back=True)


def answer_request(asked):
    note(asked=connection.get_atom_name(asked.target))
    where = asked.property or asked.target
    answer = offer.get(asked.target)
    if asked.target == TARGETS and answer is None:
        asked.requestor.change_property(where, Xatom.ATOM, 32, [TARGETS, TIMESTAMP, *offer])
    elif asked.target == TIMESTAMP and answer is None:
        asked.requestor.change_property(where, Xatom.INTEGER, 32, [since])
    elif answer is None or answer.get("refuse"):
        where = X.NONE
    elif answer.get("silent"):
        return
    elif answer.get("exit") == "request":
        os._exit(0)
    elif "incr" in answer:
        asked.requestor.change_attributes(event_mask=X.PropertyChangeMask)
        data = data_of(answer)
        transfers[asked.requestor.id, where] = {"answer": answer, "data": data, "sent": 0, "pieces": 0,
                                                "type": type_of(answer, asked.target)}
        asked.requestor.change_property(where, INCR, 32, [answer.get("announce", len(data))])
    else:
        asked.requestor.change_property(where, type_of(answer, asked.target), answer.get("format", 8), data_of(answer))
    asked.requestor.send_event(event.SelectionNotify(
        time=asked.time, requestor=asked.requestor, selection=asked.selection, property=where,
        target=connection.intern_atom(answer["notify"]) if answer and "notify" in answer else asked.target))
    connection.flush()
    if connection.get_atom_name(asked.target) == stop_after:
        os.kill(os.getpid(), signal.SIGSTOP)


def type_of(answer, target):
    return connection.intern_atom(answer["type"]) if "type" in answer else target


def send_piece(requestor, where):
    transfer = transfers[requestor.id, where]
    answer = transfer["answer"]
    size = min(answer["incr"], LARGEST_REQUEST_BYTES)
    if transfer["pieces"] == answer.get("pieces"):
        note(stopped=True)
        del transfers[requestor.id, where]
        return
    piece = transfer["data"][transfer["sent"]:transfer["sent"] + size]
    if answer.get("endless"):
        piece = transfer.setdefault("piece", b"x" * size)
    requestor.change_property(where, transfer["type"], 8, piece)
    connection.flush()
    transfer["sent"] += len(piece)
    transfer["pieces"] += 1
    if transfer["pieces"] == 1:
        if answer.get("exit") == "piece":
            connection.sync()
            os._exit(0)
        if "retake" in answer:
            take({"offer": answer["retake"]})
    if not piece:
        del transfers[requestor.id, where]
        note(finished=True)
        if answer.get("tail"):
            tails.append((time.monotonic() + TAIL_SECONDS, requestor))


def stop_listening(requestor):
    requestor.change_attributes(event_mask=X.NoEventMask)
    connection.sync()
    note(stopped_listening=True)


def release():
    request.SetSelectionOwner(display=connection.display, window=X.NONE, selection=CLIPBOARD, time=since)
    connection.sync()


def leave(seconds):
    global window, end
    window.destroy()
    release()
    window = create_window()
    connection.sync()
    end = None if seconds is None else time.monotonic() + seconds


def hand_over():
    window.convert_selection(MANAGER, SAVE, STAMP, since)
    connection.flush()


orders = x_program.Orders(connection)
came = []
while came is not None:
    for order in came:
        if "offer" in order:
            take(order)
        elif "release" in order:
            release()
        elif "calm_down" in order:
            insistence = 0
        elif "hand_over" in order:
            hand_over()
        elif "leave" in order:
            leave(order["leave"])
        print("done", flush=True)
    while connection.pending_events():
        handle(connection.next_event())
    while tails and tails[0][0] <= time.monotonic():
        stop_listening(tails.pop(0)[1])
    while late_pieces and late_pieces[0][0] <= time.monotonic():
        send_piece(*late_pieces.pop(0)[1:])
    if end is not None and end <= time.monotonic():
        break
    is_waiting = tails or late_pieces or end is not None
    came = orders.wait(0.02 if is_waiting else None)
