#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A program that owns a Wayland clipboard: told by JSON lines on standard input what to offer, answering each with a
line. It speaks whichever of the two data-control protocols the compositor has.

  {"offer": {"UTF8_STRING": "68656c6c6f", "image/png": null}}
      takes the clipboard; data in hexadecimal, or {"file": "/a/path"} with it; null for a type that is offered but
      never delivered, and {"begin": "6865"} for one of which only this beginning comes
  {"release": true}
      empties the clipboard
  {"hello": true}
      does nothing

Every type that is asked for is written to the log file, a line each. Ends with its input.
"""

import argparse
import json
import os
import pathlib
import select
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "harness"))

from wire import Client  # noqa: E402

CREATE_SOURCE, GET_DEVICE = 0, 1
SET_SELECTION = 0
SOURCE_OFFER, SOURCE_DESTROY = 0, 1
SEND, CANCELLED = 0, 1

parser = argparse.ArgumentParser()
parser.add_argument("--log", required=True)
arguments = parser.parse_args()

client = Client()
manager = client.bind(next(name for name in ("ext_data_control_manager_v1", "zwlr_data_control_manager_v1")
                           if name in client.globals))
seat = client.bind("wl_seat")
device = client.new()
manager.send(GET_DEVICE, device, seat)
kept = []  # descriptors of readers that never get their end


def answer(asked, contents):
    kind, descriptor = asked.string(), asked.descriptor()
    with open(arguments.log, "a", encoding="utf-8") as log:
        log.write(kind + "\n")
    data = contents[kind]
    if data is None:
        kept.append(descriptor)
        return
    if "begin" in data:
        os.write(descriptor, bytes.fromhex(data["begin"]))
        kept.append(descriptor)
        return
    # A reader that is slow must not keep the others waiting, nor this from being told of the next copy.
    if os.fork() == 0:
        try:
            with open(descriptor, "wb") as stream:
                stream.write(pathlib.Path(data["file"]).read_bytes() if "file" in data else bytes.fromhex(data))
        finally:
            os._exit(0)
    os.close(descriptor)


def take(contents):
    source = client.new()
    manager.send(CREATE_SOURCE, source)
    source.handlers = {SEND: lambda asked: answer(asked, contents), CANCELLED: lambda _: destroy(source)}
    for kind in contents:
        source.send(SOURCE_OFFER, kind)
    device.send(SET_SELECTION, source)


def refuse(asked):
    asked.string()
    os.close(asked.descriptor())


def destroy(source):
    # KWin cancels twice, and may still ask for content. Its descriptor must not be taken for the next source's.
    source.handlers = {SEND: refuse}
    source.send(SOURCE_DESTROY)


unread = b""
while True:
    ready, _, _ = select.select([client, sys.stdin.fileno()], [], [])
    if client in ready:
        client.read()
    if sys.stdin.fileno() not in ready:
        continue
    chunk = os.read(sys.stdin.fileno(), 1 << 20)
    if not chunk:
        break
    unread += chunk
    *lines, unread = unread.split(b"\n")
    for line in lines:
        order = json.loads(line)
        if "offer" in order:
            take(order["offer"])
        elif "release" in order:
            device.send(SET_SELECTION, None)
        client.round_trip()
        print("done", flush=True)
