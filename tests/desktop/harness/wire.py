# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Wayland's wire format, as much of it as a test needs to be a client whose every message it decides itself.

Arguments are those of the protocol's description, in their order: int, str (None for none), bytes for an array, an
`Object` for an object or a new one, and `Descriptor` for a file descriptor. Stands alone, so that partners that are
started by the hundred need not load the rest of the harness."""

import array
import os
import select
import socket
import struct
import time

WAIT_SECONDS = 5.0


class Descriptor(int):
    """Sent beside the message; the caller closes its own copy."""


class Object:
    """One of the server's objects. An event is handed to the handler of its number with an `Arguments` to read."""

    def __init__(self, client, number):
        self._client, self.number = client, number
        self.handlers = {}

    def send(self, opcode, *arguments):
        self._client.send(self, opcode, *arguments)


class Arguments:
    """The arguments of one event, read one after the other as what they are."""

    def __init__(self, client, data):
        self._client, self._data = client, data

    def integer(self):
        value, = struct.unpack_from("=I", self._data)
        self._data = self._data[4:]
        return value

    def signed(self):
        value, = struct.unpack_from("=i", self._data)
        self._data = self._data[4:]
        return value

    def string(self):
        length = self.integer()
        text, self._data = self._data[:max(0, length - 1)], self._data[(length + 3) // 4 * 4:]
        return text.decode()

    def integers(self):
        """An array of them."""
        length = self.integer()
        values, self._data = self._data[:length], self._data[(length + 3) // 4 * 4:]
        return list(struct.unpack(f"={length // 4}I", values))

    def new_object(self):
        return self._client.adopt(self.integer())

    def object(self):
        return self._client.objects.get(self.integer())

    def descriptor(self):
        return self._client.descriptors.pop(0)


class Client:
    """A connection to the compositor of the environment, or of another one. `globals` has the versions by name."""

    def __init__(self, environment=None):
        environment = environment or os.environ
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(os.path.join(environment["XDG_RUNTIME_DIR"], environment["WAYLAND_DISPLAY"]))
        self._unread = b""
        self.objects, self.descriptors, self.globals = {}, [], {}
        self._numbers = 0
        self._display = self.new()
        self._display.handlers = {0: self._raise_error, 1: self._forget}
        self._registry = self.new()
        self._registry.handlers[0] = self._note_global
        self._display.send(1, self._registry)
        self.round_trip()

    def fileno(self):
        return self._socket.fileno()

    def close(self):
        self._socket.close()

    def new(self):
        """A new object, to be sent to the compositor before the next one is made."""
        self._numbers += 1
        return self.adopt(self._numbers)

    def adopt(self, number):
        self.objects[number] = Object(self, number)
        return self.objects[number]

    def bind(self, interface, version=1):
        name, offered = self.globals[interface]
        bound = self.new()
        self._registry.send(0, name, interface, min(version, offered), bound)
        return bound

    def send(self, target, opcode, *arguments):
        body, descriptors = b"", []
        for argument in arguments:
            if isinstance(argument, Descriptor):
                descriptors.append(int(argument))
            elif isinstance(argument, Object):
                body += struct.pack("=I", argument.number)
            elif isinstance(argument, str):
                data = argument.encode() + b"\0"
                body += struct.pack("=I", len(data)) + data + b"\0" * (-len(data) % 4)
            else:
                body += struct.pack("=I", (argument or 0) & 0xFFFFFFFF)
        message = struct.pack("=II", target.number, (8 + len(body)) << 16 | opcode) + body
        beside = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", descriptors))] if descriptors else []
        self._socket.sendmsg([message], beside)

    def round_trip(self, timeout=WAIT_SECONDS):
        """Until the compositor has seen all that was sent, and we what it said before."""
        done = []
        callback = self.new()
        callback.handlers[0] = done.append
        self._display.send(0, callback)
        deadline = time.monotonic() + timeout
        while not done:
            if not select.select([self._socket], [], [], max(0.0, deadline - time.monotonic()))[0]:
                raise TimeoutError("the compositor does not answer")
            self.read()

    def read(self):
        """Reads what is there, which must be something, and hands it on."""
        data, descriptors, *_ = socket.recv_fds(self._socket, 65536, 28)
        if not data:
            raise ConnectionError("the compositor has gone")
        self.descriptors += descriptors
        self._unread += data
        while len(self._unread) >= 8:
            number, head = struct.unpack_from("=II", self._unread)
            size = head >> 16
            if len(self._unread) < size:
                return
            body, self._unread = self._unread[8:size], self._unread[size:]
            handler = self.objects[number].handlers.get(head & 0xFFFF) if number in self.objects else None
            if handler:
                handler(Arguments(self, body))

    def _note_global(self, event):
        name, interface, version = event.integer(), event.string(), event.integer()
        self.globals[interface] = (name, version)

    def _raise_error(self, event):
        event.integer()
        raise RuntimeError(f"error {event.integer()} of the compositor: {event.string()}")

    def _forget(self, event):
        self.objects.pop(event.integer(), None)
