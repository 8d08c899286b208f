#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What Zamber costs on sway, beside what it costs on X11 in the same run.

    bench/sway_cost.py [--runs N] [--build FOLDER]

FOLDER has the programs of the bench preset (build/bench). Everything happens on a private sway without a screen and on a
private X server. Each figure has its median on sway, its spread, its median on X11 and the ratio of the two. Measure on a
quiet machine; the last line tells whether it was.

A window of Wayland is mapped when its first picture is handed over, so "mapped" includes the painting there, and the
compositor's next frame, up to 17 ms, has still to come. On X11 it is the painted window that is compared.
"""

import argparse
import contextlib
import json
import pathlib
import select
import socket
import struct
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from figures import (AT_START_SECONDS, COPIES, COPY_SECONDS, IDLE_SECONDS, PRIVATE, SETTLE_SECONDS, Machine, Table)  # noqa: E402
from harness import PrivateDesktop, SwayDesktop, Zamber  # noqa: E402
from harness.wire import Client  # noqa: E402
from popover_cost import Probe, texts  # noqa: E402
from x11_cost import PATIENCE_SECONDS, Partner, cpu_milliseconds, noise_picture, smaps  # noqa: E402

IPC_MAGIC, IPC_SUBSCRIBE = b"i3-ipc", 2
HISTORY_ENTRIES = 20


class DataControlOwner:
    """A program to copy from, by zwlr_data_control_v1."""

    def __init__(self, desktop):
        self._client = Client(desktop.environment)
        seat = self._client.bind("wl_seat")
        self._manager = self._client.bind("zwlr_data_control_manager_v1")
        self._device = self._client.new()
        self._manager.send(1, self._device, seat)

    def copy_and_wait(self, kind, data):
        """Copies, and waits until the whole of it has been taken."""
        source, is_taken = self._client.new(), []
        self._manager.send(0, source)
        source.send(0, kind)

        def send(arguments):
            arguments.string()
            with open(arguments.descriptor(), "wb", buffering=0) as pipe, contextlib.suppress(BrokenPipeError):
                view = memoryview(data)
                while view:
                    view = view[pipe.write(view):]
                is_taken.append(True)

        source.handlers = {0: send, 1: lambda _: None}
        self._device.send(0, source)
        deadline = time.monotonic() + PATIENCE_SECONDS
        while not is_taken:
            if not select.select([self._client], [], [], max(0.0, deadline - time.monotonic()))[0]:
                raise TimeoutError("the program did not come for it")
            self._client.read()

    def close(self):
        self._client.close()


class Events:
    """sway's events about windows, as they come."""

    def __init__(self, desktop):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.settimeout(PATIENCE_SECONDS)
        self._socket.connect(desktop.environment["SWAYSOCK"])
        payload = b'["window"]'
        self._socket.sendall(IPC_MAGIC + struct.pack("=II", len(payload), IPC_SUBSCRIBE) + payload)
        self._stream = self._socket.makefile("rb")
        self._next()

    def _next(self):
        length, _ = struct.unpack("=II", self._stream.read(14)[6:])
        return json.loads(self._stream.read(length))

    def wait_for(self, change, pid):
        while True:
            event = self._next()
            if event["change"] == change and event["container"]["pid"] == pid:
                return

    def close(self):
        self._stream.close()
        self._socket.close()


class Cost:
    """One program on sway and on X11, measured alike."""

    def __init__(self, options):
        folder = options.build.resolve()
        self.zamber, self.probe, self.runs = folder / "zamber", folder / "popover_probe", options.runs
        self.table, self.machine = Table(reference="on X11"), Machine()
        with PrivateDesktop(accessibility=False) as desktop:
            self.picture = noise_picture(desktop)

    @contextlib.contextmanager
    def running(self, desktop):
        """The program with some history."""
        with desktop:
            program = Zamber(desktop, self.zamber)
            program.environment = {}  # nobody reads the screen
            program.write_history(*texts(HISTORY_ENTRIES))
            program.start()
            try:
                yield desktop, program
            finally:
                program.stop()

    def desktops(self):
        return SwayDesktop(accessibility=False), PrivateDesktop(accessibility=False)

    def tell(self, name, pairs):
        self.table.add(name, [on_sway for on_sway, _ in pairs], None, [on_x11 for _, on_x11 in pairs])

    def memory_and_idling(self):
        figures = []
        for _ in range(self.runs):
            one = []
            for desktop in self.desktops():
                with self.running(desktop) as (_, program):
                    self.machine.wait(AT_START_SECONDS)
                    memory = smaps(program.pid, "Pss"), smaps(program.pid, *PRIVATE)
                    self.machine.wait(SETTLE_SECONDS * 2)  # beyond the look for a newer version
                    before = cpu_milliseconds(program.pid)
                    self.machine.wait(IDLE_SECONDS)
                    one.append((*memory, (cpu_milliseconds(program.pid) - before) * 60 / IDLE_SECONDS))
            figures.append(one)
        for place, name in enumerate(("PSS 5 s after the start, MiB", "private 5 s after the start, MiB",
                                      "processor time of a minute with nothing to do, ms")):
            self.tell(name, [(sway[place], x11[place]) for sway, x11 in figures])

    def copies(self):
        text, picture = [], []
        for _ in range(max(1, self.runs // 2)):
            one = []
            for desktop in self.desktops():
                with self.running(desktop) as (_, program):
                    self.machine.wait(AT_START_SECONDS + SETTLE_SECONDS)
                    one.append(self._per_copy(desktop, program.pid))
            text.append([each for each, _ in one])
            picture.append([each for _, each in one])
        self.tell("processor time of a text, ms", text)
        self.tell("processor time of a PNG picture of 0.6 MB, ms", picture)

    def _per_copy(self, desktop, pid):
        if isinstance(desktop, SwayDesktop):
            owner = DataControlOwner(desktop)
            copy_text, copy_picture = (lambda data, kind=kind: owner.copy_and_wait(kind, data)
                                       for kind in ("text/plain;charset=utf-8", "image/png"))
        else:
            owner = Partner(desktop)
            copy_text, copy_picture = (lambda data, target=target: owner.copy_and_wait({target: data})
                                       for target in ("UTF8_STRING", "image/png"))

        def measured(copy, data):
            before = cpu_milliseconds(pid)
            for number in range(COPIES):
                copy(data + b"%d" % number)
                time.sleep(COPY_SECONDS)
            self.machine.wait(SETTLE_SECONDS)
            return (cpu_milliseconds(pid) - before) / COPIES

        return measured(copy_text, b"a text, number "), measured(copy_picture, self.picture)

    def shows(self):
        first, later = [], []
        for _ in range(self.runs):
            on_sway, on_x11 = [], []
            with self.running(SwayDesktop(accessibility=False)) as (desktop, program):
                self.machine.wait(SETTLE_SECONDS)
                events = Events(desktop)
                for _ in range(3):
                    desktop.keyboard.press("Super_L", "Shift_L")
                    began = time.perf_counter()
                    desktop.keyboard.press("v")
                    events.wait_for("new", program.pid)
                    on_sway.append((time.perf_counter() - began) * 1000)
                    desktop.keyboard.release("v", "Shift_L", "Super_L")
                    time.sleep(SETTLE_SECONDS / 4)
                    desktop.keyboard.tap("Escape")
                    events.wait_for("close", program.pid)
                    time.sleep(SETTLE_SECONDS / 4)
                events.close()
            with self.running(PrivateDesktop(accessibility=False)) as (desktop, _):
                self.machine.wait(SETTLE_SECONDS)
                probe = Probe(desktop, self.probe)
                for _ in range(3):
                    on_x11.append(probe.ask("open")["complete"])
                    probe.key("Escape")
                    time.sleep(SETTLE_SECONDS / 4)
                probe.stop()
            first.append((on_sway[0], on_x11[0]))
            later += zip(on_sway[1:], on_x11[1:])
        self.tell("hot key to the first window, ms", first)
        self.tell("hot key to a later window, ms", later)

    def measure(self):
        self.memory_and_idling()
        self.copies()
        self.shows()
        self.machine.tell()


def main():
    parser = argparse.ArgumentParser(prog="bench/sway_cost.py", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=6, help="how often each is measured (6); copies half as often")
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build" / "bench", help="the folder with the programs")
    Cost(parser.parse_args()).measure()


if __name__ == "__main__":
    main()
