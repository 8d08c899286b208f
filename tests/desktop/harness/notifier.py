# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A panel that shows status notifier items, and reports their state."""

import json
import subprocess

from .clipboard import PARTNERS
from .waiting import wait_until

START_SECONDS = 10.0
ANSWER_SECONDS = 6.0


class NotifierHost:
    """Watcher and host of status notifier items on the desktop's session bus, from its making to `stop`."""

    def __init__(self, desktop):
        self._desktop = desktop
        self.child = desktop.start(
            "notifier_host", ["/usr/bin/python3", PARTNERS / "notifier_host.py"], stdin=subprocess.PIPE
        )
        self._answers = 1
        self.square = self._answer(START_SECONDS)["ready"]

    def stop(self):
        return self.child.stop()

    def ask(self, **command):
        self.child.process.stdin.write(json.dumps(command).encode() + b"\n")
        self.child.process.stdin.flush()
        self._answers += 1
        answer = self._answer(ANSWER_SECONDS)
        if "error" in answer:
            raise RuntimeError(answer["error"])
        return answer["value"]

    def _answer(self, timeout):
        wait_until(
            lambda: len(self.child.stdout_lines()) >= self._answers, timeout,
            lambda: f"the panel to answer: {self.child.stderr()}",
        )
        return json.loads(self.child.stdout_lines()[self._answers - 1])

    def wait_for_item(self, timeout=5.0):
        wait_until(lambda: self.ask(items=True), timeout, "an item at the panel")

    def click(self, button=1):
        """With the mouse, on the item's square in the panel."""
        self._desktop.mouse.click(*self.square, button)

    def open_menu(self):
        return self.ask(menu=True)

    def choose(self, label):
        line = next(line for line in self.open_menu()["lines"] if line.get("label") == label)
        return self.ask(choose=line["id"])
