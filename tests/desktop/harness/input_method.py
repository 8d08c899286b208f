# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""IBus with an input method of the tests' own, which tells what it has been told."""

import itertools
import json
import socket

from .clipboard import PARTNERS
from .partners import PYTHON, START_SECONDS
from .waiting import wait_until

_numbers = itertools.count(1)


class InputMethod:
    """`name` is one of partners/input_method.py. Programs that are started after it write with it."""

    def __init__(self, desktop, name):
        number = next(_numbers)
        self._told = desktop.directory / f"input-method-{number}"
        socket_path = desktop.runtime_folder / f"ibus-{number}"
        # IBus names the file of its address by the display, which may be a path here.
        desktop.environment.update(QT_IM_MODULE="ibus", IBUS_ADDRESS_FILE=str(desktop.directory / f"ibus-{number}"))
        daemon = desktop.start("ibus-daemon", [
            "ibus-daemon", "--panel", "disable", "--config", "disable", "--emoji-extension", "disable", "--cache", "none",
            "--address", f"unix:path={socket_path}"])

        def answers():
            if not daemon.is_running():
                raise RuntimeError(f"ibus has ended: {daemon.stderr()}")
            with socket.socket(socket.AF_UNIX) as caller:
                return caller.connect_ex(str(socket_path)) == 0

        wait_until(answers, START_SECONDS, lambda: f"ibus: {daemon.stderr()}")
        child = desktop.start("input_method", [PYTHON, PARTNERS / "input_method.py", name, self._told])
        wait_until(lambda: self._all("ready") == [True], START_SECONDS, lambda: f"the input method: {child.stderr()}")

    def keys(self):
        """The names of the keys that it was given, oldest first."""
        return self._all("key")

    def wait_for_keys(self, *names):
        """Until the last keys that it was given are these."""
        wait_until(lambda: self.keys()[-len(names):] == list(names), 5.0, lambda: f"{names}; it has {self.keys()}")

    def caret(self):
        """Where it was last told that the caret is, from the left; None before that."""
        places = self._all("caret")
        return places[-1][0] if places else None

    def has_focus(self):
        """Whether a text that can be written in has the keyboard, as it was last told."""
        return self._all("focus")[-1:] == [True]

    def _all(self, what):
        if not self._told.exists():
            return []
        lines = self._told.read_text().split("\n")[:-1]  # what follows the last end of a line is still being written
        return [told[what] for told in map(json.loads, lines) if what in told]
