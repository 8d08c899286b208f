# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What Zamber costs its user, as one table: memory, starts, shows, copies, searches and idling.

    bench/figures [--runs N] [--only WORD] [--build FOLDER]

Builds the bench preset and measures on private X servers. Each figure has its goal, its median and its spread over the
runs, and, where a bare Qt program (EmptyQt.cpp) does the same, that program's median and the ratio between the two.
The last lines tell whether the machine was quiet. On one that was not, times mean little and memory still counts.
"""

import argparse
import contextlib
import os
import pathlib
import statistics
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from harness import PrivateDesktop, Zamber  # noqa: E402
from harness.waiting import wait_until  # noqa: E402
from harness.zamber import WITHOUT_NETWORK  # noqa: E402
from popover_cost import Popover, Probe, texts, typed_keys  # noqa: E402
from x11_cost import PATIENCE_SECONDS, Partner, cpu_milliseconds, end, noise_picture, smaps, start  # noqa: E402

PRIVATE = ("Private_Dirty", "Private_Clean")
AT_START_SECONDS = 5.0
# The first look for a newer version comes five seconds after the start.
AFTER_CHECK_SECONDS = 8.0
SETTLE_SECONDS = 2.0
IDLE_SECONDS = 10.0
# The clipboard is looked at twice a second.
CAPTURE_SECONDS = 0.6
COPIES = 50
COPY_SECONDS = 0.05
PICTURES = 20
LEAST_WINDOW_WIDTH = 300
MOST_BUSY = 0.03
MOST_STOLEN = 0.01


class Machine:
    """How busy the machine is while the measured programs have nothing to do."""

    def __init__(self):
        self._busy, self._stolen, self._sharers = [], [], set()

    @staticmethod
    def _ticks():
        fields = [int(field) for field in pathlib.Path("/proc/stat").read_text().split("\n", 1)[0].split()[1:9]]
        return sum(fields), fields[3] + fields[4], fields[7]

    def wait(self, seconds):
        total, idle, stolen = self._ticks()
        time.sleep(seconds)
        total, idle, stolen = (after - before for after, before in zip(self._ticks(), (total, idle, stolen)))
        if total:
            self._busy.append(1 - idle / total)
            self._stolen.append(stolen / total)

    def note_sharers(self, pid):
        """Other programs that use Qt at this moment: what they share with the measured one does not count as its own."""
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            with contextlib.suppress(OSError):
                if int(process.name) != pid and "libQt6Core" in (process / "maps").read_text():
                    self._sharers.add((process / "comm").read_text().strip())

    def tell(self):
        busy, stolen = statistics.mean(self._busy), statistics.mean(self._stolen)
        is_quiet = busy <= MOST_BUSY and stolen <= MOST_STOLEN
        load = ", ".join(f"{load:.1f}" for load in os.getloadavg())
        print(f"The machine was {'quiet' if is_quiet else 'NOT quiet: do not believe the times'}. While nothing was "
              f"measured, {busy:.1%} of {os.cpu_count()} processors were busy (at most {max(self._busy):.1%}) and "
              f"{stolen:.1%} were given to others (at most {max(self._stolen):.1%}); load {load}.")
        if self._sharers:
            print("Other programs with Qt ran meanwhile, so that PSS and private memory are told too small: "
                  + ", ".join(sorted(self._sharers)))


class Table:
    """`reference` is what the last two columns compare with."""

    def __init__(self, reference="bare Qt"):
        print(f"{'figure':52} {'goal':>6} {'median':>8} {'least':>8} {'most':>8} {'runs':>5} {reference:>8} {'ratio':>6}")

    def add(self, name, values, goal=None, bare=None):
        median = statistics.median(values)
        wanted = f"{goal:g}" if goal is not None else ""
        line = f"{name:52} {wanted:>6} {median:8.2f} {min(values):8.2f} {max(values):8.2f} {len(values):5}"
        if bare:
            bares = statistics.median(bare)
            line += f" {bares:8.2f} " + (f"{median / bares:6.2f}" if bares > 0 else " " * 6)
        else:
            line += " " * 16
        print(line + ("" if goal is None else "  met" if median <= goal else "  missed"), flush=True)


class Measurement:
    """The programs, how often each is measured, and where the figures go."""

    def __init__(self, options, table, machine):
        folder = options.build.resolve()
        self.zamber, self.bare, self.probe = folder / "zamber", folder / "empty_qt", folder / "popover_probe"
        self.runs, self.table, self.machine = options.runs, table, machine

    @contextlib.contextmanager
    def running(self, program, history=()):
        """A new desktop and the program on it, shown in the tray; without a network, since it lives long enough to
        look for a newer version. Gives the desktop, the process and when it was started."""
        with PrivateDesktop(accessibility=False) as desktop:
            if history:
                Zamber(desktop, self.zamber).write_history(*history)
            began = time.monotonic()
            process = start(desktop, program, WITHOUT_NETWORK)
            try:
                wait_until(desktop.tray_icon, PATIENCE_SECONDS, what="the tray icon")
                yield desktop, process, began
            finally:
                end(process)

    # What is measured

    def memory(self):
        """Memory with nothing shown"""
        figures = {program: {"pss": [], "private": [], "written": [], "after": []} for program in (self.zamber, self.bare)}
        for program in self.runs * tuple(figures):
            with self.running(program) as (_, process, began):
                self.machine.wait(AT_START_SECONDS - (time.monotonic() - began))
                figures[program]["pss"].append(smaps(process.pid, "Pss"))
                figures[program]["private"].append(smaps(process.pid, *PRIVATE))
                figures[program]["written"].append(smaps(process.pid, "Private_Dirty"))
                self.machine.note_sharers(process.pid)
                self.machine.wait(AFTER_CHECK_SECONDS - (time.monotonic() - began))
                figures[program]["after"].append(smaps(process.pid, *PRIVATE))
        ours, bare = figures[self.zamber], figures[self.bare]
        self.table.add("PSS 5 s after the start, MiB", ours["pss"], 26, bare["pss"])
        self.table.add("private 5 s after the start, MiB", ours["private"], 22, bare["private"])
        self.table.add("  of it written to, MiB", ours["written"], None, bare["written"])
        self.table.add("private 8 s after it, an update check later, MiB", ours["after"], None, bare["after"])

    def pictures(self):
        """Memory after 20 pictures of 0.6 MB"""
        private = []
        for _ in range(max(1, self.runs // 3)):
            with self.running(self.zamber) as (desktop, process, _):
                partner, picture = Partner(desktop), noise_picture(desktop)
                for number in range(PICTURES):
                    partner.copy_and_wait({"image/png": picture + b"%d" % number})
                    time.sleep(CAPTURE_SECONDS)
                history = desktop.data_home / "Zamber" / "clipboard_history.json"
                wait_until(lambda: history.exists() and history.stat().st_size > PICTURES * len(picture),
                           PATIENCE_SECONDS, what="the pictures in the history")
                self.machine.wait(SETTLE_SECONDS)
                private.append(smaps(process.pid, *PRIVATE))
                self.machine.note_sharers(process.pid)
        self.table.add(f"private after {PICTURES} pictures of {len(picture) / 1e6:.2f} MB, MiB", private, 35)

    def starts(self):
        """Starts, to the icon and to the first copy"""
        docks, transfers = {self.zamber: [], self.bare: []}, []
        with PrivateDesktop(tray="none", accessibility=False) as desktop:
            partner = Partner(desktop)
            partner.become_tray()
            for _ in range(self.runs):
                for program in (self.bare, self.zamber):
                    began = time.perf_counter()
                    process = start(desktop, program)
                    partner.wait_for_dock_request()
                    docks[program].append((time.perf_counter() - began) * 1000)
                    self.machine.wait(SETTLE_SECONDS / 4)
                    end(process)
                began = time.perf_counter()
                process = start(desktop, self.zamber)
                partner.copy_and_wait({"UTF8_STRING": b"what was there at the start"})
                transfers.append((time.perf_counter() - began) * 1000)
                end(process)
        self.table.add("start to the tray's icon, ms", docks[self.zamber], None, docks[self.bare])
        self.table.add("start to the first foreign copy read, ms", transfers, 35)

    def shows(self):
        """Shows by the hot key, first and later ones"""
        first, warm = {self.zamber: [], self.bare: []}, {self.zamber: [], self.bare: []}
        for program in self.runs * (self.bare, self.zamber):
            with self.running(program, texts(20)) as (desktop, _, _):
                self.machine.wait(SETTLE_SECONDS)
                probe = Probe(desktop, self.probe)
                first[program].append(probe.ask("open"))
                for _ in range(2):
                    self._close(desktop, probe)
                    warm[program].append(probe.ask("open"))
                probe.stop()
        for name, shows, goals in (("first show", first, {"mapped": 12, "painted": 20}),
                                   ("warm show", warm, {"mapped": None, "painted": 6})):
            for event, answer in (("mapped", "mapped"), ("painted", "complete")):
                ours, bare = ([show[answer] for show in shows[program]] for program in (self.zamber, self.bare))
                self.table.add(f"{name} {event}, ms", ours, goals[event], bare)

    @staticmethod
    def _close(desktop, probe):
        probe.key("Escape")
        wait_until(lambda: not any(window.visible and window.pid and window.width > LEAST_WINDOW_WIDTH
                                   and window.height > LEAST_WINDOW_WIDTH for window in desktop.windows()),
                   what="the window to be gone")

    def keys(self):
        """Keys in the search field"""
        for count, goal in ((20, 1.5), (10_000, 2.5)):
            with PrivateDesktop(accessibility=False) as desktop:
                popover = Popover(desktop, self.zamber, self.probe, texts(count))
                popover.ask("open")
                self.machine.wait(SETTLE_SECONDS)
                typed = typed_keys(popover, self.runs)
                popover.stop()
            self.table.add(f"search key to the right rows, {count:,} entries, ms", [one["first"] for one in typed], goal)

    def copies(self):
        """Processor time of copies, and of doing nothing"""
        with self.running(self.zamber) as (desktop, process, _):
            partner, picture = Partner(desktop), noise_picture(desktop)
            self.machine.wait(AFTER_CHECK_SECONDS)

            def per_copy(offers_of):
                before = cpu_milliseconds(process.pid)
                for number in range(COPIES):
                    partner.copy_and_wait(offers_of(number))
                    time.sleep(COPY_SECONDS)
                self.machine.wait(SETTLE_SECONDS)
                return (cpu_milliseconds(process.pid) - before) / COPIES

            def idle_minute():
                before = cpu_milliseconds(process.pid)
                self.machine.wait(IDLE_SECONDS)
                return (cpu_milliseconds(process.pid) - before) * 60 / IDLE_SECONDS

            idle = [idle_minute() for _ in range(self.runs)]
            text = [per_copy(lambda number, run=run: {"UTF8_STRING": b"text %d of %d" % (number, run)})
                    for run in range(self.runs)]
            images = [per_copy(lambda number, run=run: {"image/png": picture + b"%d of %d" % (number, run)})
                      for run in range(max(1, self.runs // 3))]
        self.table.add("processor time of a text, ms", text, 1.0)
        self.table.add(f"processor time of a PNG picture of {len(picture) / 1e6:.2f} MB, ms", images, 4)
        self.table.add("processor time of a minute with nothing to do, ms", idle, 8)


def main():
    measurements = (Measurement.memory, Measurement.pictures, Measurement.starts, Measurement.shows, Measurement.keys,
                    Measurement.copies)
    parser = argparse.ArgumentParser(prog="bench/figures", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=10, help="how often each is measured (10); the slow ones a third of it")
    parser.add_argument("--only", choices=[measure.__name__ for measure in measurements], help="just these figures")
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build" / "bench",
                        help="the folder with the programs, for instance of an older build")
    options = parser.parse_args()
    machine = Machine()
    measurement = Measurement(options, Table(), machine)
    for measure in measurements:
        if options.only in (None, measure.__name__):
            measure(measurement)
    machine.tell()


if __name__ == "__main__":
    main()
