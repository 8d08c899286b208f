#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What Zamber costs on an X11 desktop, each figure with its median, its spread and its number of runs.

    bench/x11_cost.py [--runs N] ZAMBER EMPTY_QT

ZAMBER is the program, EMPTY_QT the one of EmptyQt.cpp, against which starting and memory are held. Everything happens
on a private X server. Measure on a quiet machine.
"""

import argparse
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "desktop"))

from Xlib import X, Xatom  # noqa: E402
from Xlib.protocol import event  # noqa: E402

from harness import PrivateDesktop  # noqa: E402
from harness.waiting import wait_until  # noqa: E402

SETTLE_SECONDS = 1.0
COPIES = 100
COPY_INTERVAL_SECONDS = 0.05
PATIENCE_SECONDS = 20.0
PIECE_BYTES = 200_000


class Partner:
    """A program to copy from, and the tray."""

    def __init__(self, desktop):
        self.connection = desktop.connect()
        self.root = self.connection.screen().root
        self.window = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
        self.atom = self.connection.intern_atom
        self.offers = {}

    def offer(self, **contents):
        self.offers = {self.atom(target): data for target, data in contents.pop("offers", contents).items()}
        self.window.set_selection_owner(self.atom("CLIPBOARD"), X.CurrentTime)
        self.connection.flush()

    def serve_until(self, condition):
        """Answers requests until the condition holds for one of the events that come."""
        deadline = time.monotonic() + PATIENCE_SECONDS
        while time.monotonic() < deadline:
            seen = self.connection.next_event()
            if seen.type == X.SelectionRequest:
                self._answer(seen)
            if condition(seen):
                return
        raise TimeoutError("the program did not come for it")

    def _answer(self, request):
        prop = request.property
        if request.target == self.atom("TARGETS"):
            request.requestor.change_property(prop, Xatom.ATOM, 32, [self.atom("TARGETS"), *self.offers])
        elif request.target in self.offers:
            request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
            data = self.offers[request.target]
            for begin in range(0, max(len(data), 1), PIECE_BYTES):  # more would not fit into one of python-xlib's requests
                mode = X.PropModeAppend if begin else X.PropModeReplace
                piece = data[begin:begin + PIECE_BYTES]
                request.requestor.change_property(prop, request.target, 8, piece, mode)
        else:
            prop = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=prop))
        self.connection.flush()

    def copy_and_wait(self, offers):
        """Copies, and waits until the whole of it has been taken: the property with the data is deleted."""
        asked = []
        self.offer(offers=offers)

        def is_taken(seen):
            if seen.type == X.SelectionRequest and seen.target in self.offers:
                asked.append(seen.requestor.id)
            return seen.type == X.PropertyNotify and seen.state == X.PropertyDelete and seen.window.id in asked

        self.serve_until(is_taken)

    def become_tray(self):
        self.window.set_selection_owner(self.atom("_NET_SYSTEM_TRAY_S0"), X.CurrentTime)
        self.connection.sync()

    def wait_for_dock_request(self):
        opcode = self.atom("_NET_SYSTEM_TRAY_OPCODE")
        self.serve_until(lambda seen: seen.type == X.ClientMessage and seen.client_type == opcode)


def start(desktop, program, launcher=()):
    return subprocess.Popen([*launcher, program], env=desktop.environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL, cwd=desktop.home)


def end(process):
    process.kill()
    process.wait()


def smaps(pid, *fields):
    """The sum of these lines of the process's memory, in MiB."""
    lines = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    return sum(int(line.split()[1]) for line in lines if line.split(":")[0] in fields) / 1024


def cpu_milliseconds(pid):
    """The processor time of all threads, of those too that have ended."""
    clock = (~pid << 3) | 2  # the kernel's number of another process's clock, see clock_getcpuclockid(3)
    return time.clock_gettime(clock) * 1000


def settle():
    time.sleep(SETTLE_SECONDS)


def noise_picture(desktop):
    """A PNG picture of 0.6 MB."""
    picture = desktop.directory / "picture.png"
    desktop.run(["convert", "-size", "500x400", "xc:", "+noise", "Random", "-depth", "8", picture])
    return picture.read_bytes()


class Figures:
    def __init__(self):
        self.rows = []

    def add(self, name, values, goal=""):
        values = sorted(values)
        self.rows.append((name, statistics.median(values), values[0], values[-1], len(values), goal))

    def print(self):
        print(f"{'figure':46} {'median':>9} {'least':>9} {'most':>9} {'runs':>5}  goal")
        for name, median, least, most, runs, goal in self.rows:
            print(f"{name:46} {median:9.2f} {least:9.2f} {most:9.2f} {runs:5}  {goal}")


def measure_start(figures, zamber, empty, runs):
    with PrivateDesktop(tray="none", accessibility=False) as desktop:
        partner = Partner(desktop)
        partner.become_tray()
        transfers, docks, private = [], {zamber: [], empty: []}, {zamber: [], empty: []}
        for _ in range(runs):
            for program in (empty, zamber):
                began = time.perf_counter()
                process = start(desktop, program)
                partner.wait_for_dock_request()
                docks[program].append((time.perf_counter() - began) * 1000)
                settle()
                private[program].append(smaps(process.pid, "Pss"))
                end(process)
        for _ in range(runs):
            # The clipboard has an owner before the start, as the program usually finds it; the wait is the same.
            began = time.perf_counter()
            process = start(desktop, zamber)
            partner.copy_and_wait({"UTF8_STRING": b"what was there at the start"})
            transfers.append((time.perf_counter() - began) * 1000)
            end(process)
        figures.add("start to first transfer, ms", transfers, "38")
        figures.add("start to tray icon, ms", docks[zamber], "")
        figures.add("  the empty program's", docks[empty], "")
        figures.add("  above the empty program's median", [each - statistics.median(docks[empty])
                                                          for each in docks[zamber]], "20")
        figures.add("memory after start (PSS), MiB", private[zamber], "")
        figures.add("  the empty program's", private[empty], "")
        figures.add("  above the empty program's median", [each - statistics.median(private[empty])
                                                          for each in private[zamber]], "8")


def measure_running(figures, zamber, runs):
    with PrivateDesktop(accessibility=False) as desktop:
        partner, png = Partner(desktop), noise_picture(desktop)
        process = start(desktop, zamber)
        wait_until(lambda: desktop.tray_icon(), PATIENCE_SECONDS, what="the tray icon")
        settle()

        def per_copy(offers_of):
            before = cpu_milliseconds(process.pid)
            for index in range(COPIES):
                partner.copy_and_wait(offers_of(index))
                time.sleep(COPY_INTERVAL_SECONDS)
            settle()
            return (cpu_milliseconds(process.pid) - before) / COPIES

        def idle_seconds(seconds):
            before = cpu_milliseconds(process.pid)
            time.sleep(seconds)
            return (cpu_milliseconds(process.pid) - before) / seconds

        figures.add("CPU idle, ms a second", [idle_seconds(5) for _ in range(runs)], "")
        figures.add("CPU a text copy, ms", [per_copy(lambda i: {"UTF8_STRING": b"text %d" % i}) for _ in range(2)],
                    "1.2")
        before = smaps(process.pid, "Private_Dirty")
        figures.add(f"CPU a PNG copy of {len(png) / 1e6:.1f} MB, ms",
                    [per_copy(lambda i: {"image/png": png + b"%d" % i})], "33, aim 5")
        held = smaps(process.pid, "Private_Dirty") - before
        figures.add(f"memory of 20 such images ({20 * len(png) / 2**20:.1f} MiB), MiB", [held], "their bytes")
        end(process)

        private = []
        for _ in range(runs):
            for path in desktop.data_home.glob("Zamber/*"):
                path.unlink()
            process = start(desktop, zamber)
            wait_until(lambda: desktop.tray_icon(), PATIENCE_SECONDS, what="the tray icon")
            settle()
            desktop.run(["xdotool", "key", "super+shift+v"])
            wait_until(lambda: desktop.window(title="Zamber"), PATIENCE_SECONDS, what="the popover")
            settle()
            private.append(smaps(process.pid, "Private_Dirty", "Private_Clean"))
            end(process)
        figures.add("private memory after the window was shown, MiB", private, "34")


def measure_large_text(figures, zamber):
    size = 200_000_000
    with PrivateDesktop(accessibility=False) as desktop, tempfile.TemporaryDirectory() as folder:
        text = pathlib.Path(folder) / "text"
        text.write_bytes(b"a line of a text that goes on and on\n" * (size // 37))
        process = start(desktop, zamber)
        wait_until(lambda: desktop.tray_icon(), PATIENCE_SECONDS, what="the tray icon")
        settle()
        before = smaps(process.pid, "Private_Dirty")
        with text.open("rb") as source:
            desktop.start("xclip", ["xclip", "-quiet", "-selection", "clipboard"], stdin=source)
            history = desktop.data_home / "Zamber" / "clipboard_history.json"
            wait_until(lambda: history.exists() and history.stat().st_size > size, 60.0, what="the text in the history")
        settle()
        figures.add("memory of a text of 200 MB, times its size",
                    [(smaps(process.pid, "Private_Dirty") - before) * 2**20 / size], "1")
        end(process)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=10)
    parser.add_argument("zamber", type=os.path.abspath)
    parser.add_argument("empty_qt", type=os.path.abspath)
    options = parser.parse_args()
    figures = Figures()
    measure_start(figures, options.zamber, options.empty_qt, options.runs)
    measure_running(figures, options.zamber, max(3, options.runs // 3))
    measure_large_text(figures, options.zamber)
    figures.print()


if __name__ == "__main__":
    main()
