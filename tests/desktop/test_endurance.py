# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Memory, threads and files that must not grow."""

from Xlib.ext import res

from case import DesktopTestCase
from harness import holds_for, wait_until
from hostile import MEBIBYTE, HostileTestCase

WARM_UP_CYCLES = 10
CYCLES = 100
MOST_KIBIBYTES = 4096
PICTURES = 20
MOST_BESIDE_PICTURES = 2 * MEBIBYTE
CAPTURE_SECONDS = 0.7


class EnduranceTest(DesktopTestCase):
    history = tuple(f"entry {number}" for number in range(20))

    def cycle(self):
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)

    def resources(self):
        """How many things of each kind the server keeps for the program, over all its connections."""
        display = self.desktop.display
        counts = {}
        ids = display.res_query_client_ids([{"client": 0, "mask": res.LocalClientPIDMask}]).ids
        mine = [entry.spec.client for entry in ids if list(entry.value) == [self.zamber.pid]]
        self.assertGreater(len(mine), 0)
        for client in mine:
            for kind in display.res_query_client_resources(client).types:
                name = display.get_atom_name(kind.resource_type)
                counts[name] = counts.get(name, 0) + kind.count
        return counts

    def resident_kibibytes(self):
        with open(f"/proc/{self.zamber.pid}/status", encoding="ascii") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmRSS"))

    def test_opening_and_closing_a_hundred_times_leaves_nothing_behind(self):
        for _ in range(WARM_UP_CYCLES):
            self.cycle()
        wait_until(self.zamber.has_asked_for_updates, 15.0, "the first check, for which libraries are loaded")
        resources, memory = self.resources(), self.resident_kibibytes()
        for _ in range(CYCLES):
            self.cycle()
        self.assertEqual(self.resources(), resources)
        self.assertLess(self.resident_kibibytes() - memory, MOST_KIBIBYTES)


class PictureMemoryTest(HostileTestCase):
    def written_bytes(self):
        """The memory that the program has written to, which no other program shares."""
        with open(f"/proc/{self.zamber.pid}/smaps_rollup", encoding="ascii") as rollup:
            return next(1024 * int(line.split()[1]) for line in rollup if line.startswith("Private_Dirty"))

    def test_pictures_take_hardly_more_memory_than_their_bytes(self):
        path = self.desktop.directory / "noise.png"
        self.desktop.run(["convert", "-size", "500x400", "xc:", "+noise", "Random", "-depth", "8", path])
        noise = path.read_bytes()
        wait_until(self.zamber.has_asked_for_updates, 15.0, "the first check, for which libraries are loaded")
        before = self.written_bytes()
        for number in range(PICTURES):
            path.write_bytes(noise + b"%d" % number)
            self.clipboard.copy_image(path)
            holds_for(self.zamber.is_running, CAPTURE_SECONDS, "the program runs")
        wait_until(lambda: self.zamber.history_path.stat().st_size > PICTURES * len(noise) * 4 / 3, 10.0,
                   "all pictures in the history")
        most = PICTURES * len(noise) + MOST_BESIDE_PICTURES + self.memory_kept_by_a_sanitizer()
        wait_until(lambda: self.written_bytes() - before < most, 5.0,
                   lambda: f"no more memory than for the pictures; {self.written_bytes() - before:,} bytes of {most:,}")
