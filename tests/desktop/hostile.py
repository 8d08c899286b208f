# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Partners that misbehave, and checks that the user does not notice."""

import hashlib
import itertools
import json
import os
import pathlib
import re
import subprocess
import time

from case import DesktopTestCase
from harness import PARTNERS, wait_until
from harness.windows import focused_window

# Both far above the usual time, so that a busy machine fails no test, and far below any time-out of a transfer.
LONGEST_OPENING_SECONDS = 1.0
SLOWER_THAN_UNDISTURBED = 4
# A busy machine may stall for so long once, but not twice in a row.
LONGEST_HICCUP_SECONDS = 2.0
MEBIBYTE = 1 << 20
HINT = "x-kde-passwordManagerHint"

_numbers = itertools.count(1)


def text(data):
    """An answer with this text as its data."""
    return {"hex": (data if isinstance(data, bytes) else data.encode()).hex()}


class HostilePartner:
    script = None

    def __init__(self, desktop, *options):
        self.child = desktop.start(
            self.script, ["/usr/bin/python3", PARTNERS / f"{self.script}.py", *options], stdin=subprocess.PIPE
        )
        self._answers = 0
        self._tell({"hello": True})

    def _tell(self, order, wait=True, timeout=30.0):
        self.child.process.stdin.write(json.dumps(order).encode() + b"\n")
        self.child.process.stdin.flush()
        self._answers += 1
        if not wait:
            return None
        wait_until(lambda: len(self.child.stdout_lines()) >= self._answers, timeout,
                   lambda: f"the {self.script} to answer: {self.child.stderr()}")
        return self.child.stdout_lines()[self._answers - 1]


class HostileOwner(HostilePartner):
    """The form of an answer is described in partners/hostile_owner.py."""

    script = "hostile_owner"

    def __init__(self, desktop):
        self._log = desktop.directory / f"hostile-owner-{next(_numbers)}.log"
        super().__init__(desktop, "--log", self._log)

    def offer(self, contents, **how):
        self._tell({"offer": contents, **how})

    def release(self):
        self._tell({"release": True})

    def leave(self, seconds):
        """Destroys its window, clears the clipboard, and ends so many seconds later (never when that is None)."""
        self._tell({"leave": seconds})

    def calm_down(self):
        self._tell({"calm_down": True})

    def is_stopped(self):
        with open(f"/proc/{self.child.pid}/stat", encoding="ascii") as stat:
            return stat.read().rpartition(")")[2].split()[0] == "T"

    def hand_over(self):
        self._tell({"hand_over": True})

    def notes(self, key):
        """The partner's notes of that name, oldest first."""
        lines = self._log.read_text().splitlines() if self._log.exists() else []
        return [note[key] for note in map(json.loads, lines) if key in note]

    def requests(self):
        return self.notes("asked")

    def wait_for_request(self, target):
        wait_until(lambda: target in self.requests(), 5.0, lambda: f"{target} among {self.requests()}")


class HostileRequestor(HostilePartner):
    """See partners/hostile_requestor.py."""

    script = "hostile_requestor"

    def ask(self, *targets, **how):
        return json.loads(self._tell({"ask": targets, **how}))

    def multiple(self, *targets):
        return json.loads(self._tell({"multiple": targets}))

    def begin_asking(self, *targets, **how):
        """Asks without waiting for the answers, which are returned by `finish`."""
        self._tell({"ask": targets, **how}, wait=False)

    def finish(self, timeout=30.0):
        wait_until(lambda: len(self.child.stdout_lines()) >= self._answers, timeout,
                   lambda: f"the answers: {self.child.stderr()}")
        return json.loads(self.child.stdout_lines()[self._answers - 1])


class HostileTestCase(DesktopTestCase):
    history = ("old",)

    def setUp(self):
        super().setUp()
        self.partners = []
        self.opening_seconds()  # the first opening builds the window
        self.undisturbed = min(self.opening_seconds() for _ in range(3))

    def owner(self):
        self.partners.append(HostileOwner(self.desktop))
        return self.partners[-1]

    def requestor(self):
        self.partners.append(HostileRequestor(self.desktop))
        return self.partners[-1]

    # Checks that the user notices nothing

    def opening_seconds(self):
        """From the hot key to the focused popover; closes it again."""
        start = time.monotonic()
        self.zamber.press_hot_key()
        popover = self.zamber.wait_for_popover()
        taken = time.monotonic() - start
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        wait_until(lambda: (focus := focused_window(self.desktop.display)) and focus.id != popover.id, what="the focus")
        return taken

    def assert_popover_opens_fast(self):
        longest = max(LONGEST_OPENING_SECONDS, SLOWER_THAN_UNDISTURBED * self.undisturbed)
        taken = self.opening_seconds()
        if longest <= taken < LONGEST_HICCUP_SECONDS:
            taken = self.opening_seconds()
        self.assertLess(taken, longest, f"undisturbed it took {self.undisturbed:.2f} s")

    def assert_next_copy_is_captured(self):
        """A copy of a program that keeps to the rules. Returns that program."""
        content = f"good copy {next(_numbers)}"
        copier = self.clipboard.copy_text(content)
        self.wait_for_newest(content)
        return copier

    def assert_unharmed(self):
        """To be asked while the partner misbehaves."""
        self.assert_popover_opens_fast()
        self.assert_next_copy_is_captured()
        self.assert_partners_live()

    def assert_partners_live(self):
        for partner in self.partners:
            self.assertTrue(partner.child.is_running(), partner.child.stderr())

    # The history file, which may be too large to be read again and again

    def newest(self):
        """The content of the newest entry when it is a short text, else nothing."""
        try:
            with open(self.zamber.history_path, "rb") as stream:
                head = stream.read(4096).decode("utf-8", "surrogateescape")  # it may end inside a character
        except FileNotFoundError:
            return None
        first = re.match(r"\s*\[\s*({.*?})\s*[,\]]", head, re.DOTALL)
        return json.loads(first[1])["value"] if first else None

    def wait_for_newest(self, content, timeout=8.0):
        wait_until(lambda: self.newest() == content, timeout, lambda: f"{content!r} on top; {self.newest()!r:.80} is")

    def assert_not_captured(self, content):
        self.assertNotIn(content, self.zamber.history())

    # Memory

    def memory_bytes(self):
        """The program's private memory."""
        with open(f"/proc/{self.zamber.pid}/smaps_rollup", encoding="ascii") as rollup:
            return 1024 * sum(int(line.split()[1]) for line in rollup if line.startswith("Private_"))

    def address_space_bytes(self):
        """The program's address space, used or not."""
        with open(f"/proc/{self.zamber.pid}/statm", encoding="ascii") as statm:
            return int(statm.read().split()[0]) * os.sysconf("SC_PAGE_SIZE")

    def memory_kept_by_a_sanitizer(self):
        """The address sanitizer holds on to what was freed last, so as to see who still uses it."""
        maps = pathlib.Path(f"/proc/{self.zamber.pid}/maps").read_text(encoding="utf-8")
        return 256 * MEBIBYTE if "libasan" in maps else 0

    def assert_memory_back(self, before, most=40 * MEBIBYTE, timeout=10.0):
        most += self.memory_kept_by_a_sanitizer()
        wait_until(lambda: self.memory_bytes() - before < most, timeout,
                   lambda: f"the memory to come back: {(self.memory_bytes() - before) / MEBIBYTE:.0f} MiB more")


def sha256(data):
    return hashlib.sha256(data).hexdigest()
