# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Memory, threads and files that must not grow."""

from Xlib.ext import res

from case import DesktopTestCase
from harness import wait_until

WARM_UP_CYCLES = 10
CYCLES = 100
MOST_KIBIBYTES = 4096


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
