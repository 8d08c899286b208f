# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Other programs' side of the clipboard: their copies, and the answers that they get."""

import json
import pathlib
import subprocess
import tempfile

from .waiting import wait_until

PARTNERS = pathlib.Path(__file__).resolve().parent.parent / "partners"
READ_SECONDS = 5.0


class Clipboard:
    """The selection is CLIPBOARD unless another is named. Copying returns the program that goes on serving the copy."""

    def __init__(self, desktop, selection="clipboard"):
        self._desktop = desktop
        self.selection = selection

    def owner(self):
        """The id of the owning window, 0 when no window owns the selection."""
        display = self._desktop.display
        owner = display.get_selection_owner(display.intern_atom(self.selection.upper()))
        return getattr(owner, "id", owner)

    def copy_text(self, text):
        return self._copy([], text.encode())

    def copy_image(self, path, target="image/png"):
        return self._copy(["-t", target], pathlib.Path(path).read_bytes())

    def _copy(self, options, data):
        before = self.owner()
        with tempfile.TemporaryFile() as source:
            source.write(data)
            source.seek(0)
            # "quiet" is xclip's word for staying in the foreground, where it can be ended as every other child.
            copier = self._desktop.start(
                "xclip", ["xclip", "-quiet", "-selection", self.selection, *options], stdin=source
            )
        wait_until(lambda: self.owner() not in (0, before), READ_SECONDS, "xclip to own the selection")
        return copier

    def read(self, target="UTF8_STRING", timeout=READ_SECONDS):
        """The bytes that the owner gives for the target, or None when it gives none."""
        answer = subprocess.run(
            ["xclip", "-o", "-selection", self.selection, "-t", target], env=self._desktop.environment,
            stdin=subprocess.DEVNULL, capture_output=True, timeout=timeout, check=False,
        )
        return answer.stdout if answer.returncode == 0 else None

    def text(self):
        data = self.read()
        return None if data is None else data.decode()

    def targets(self):
        return (self.read("TARGETS") or b"").decode().split()


class SelectionOwner:
    """A partner that offers exactly the given types, and notes each type that it is asked for."""

    script = "owner.py"

    def __init__(self, desktop):
        self._log = desktop.directory / f"owner-{id(self)}.log"
        self.child = desktop.start(
            "owner", ["/usr/bin/python3", PARTNERS / self.script, "--log", self._log], stdin=subprocess.PIPE
        )
        self._answers = 0
        self._tell({"hello": True})

    def offer(self, contents, selection="CLIPBOARD"):
        """Takes the selection. `contents` maps targets to bytes; a target that maps to None never gets its data."""
        self._tell({"offer": {name: _in_json(data) for name, data in contents.items()}, "selection": selection})

    def release(self):
        """Gives the selection up on purpose: it is empty then."""
        self._tell({"release": True})

    def requests(self):
        """The targets asked for since the start, in their order."""
        return self._log.read_text().split() if self._log.exists() else []

    def _tell(self, message):
        self.child.process.stdin.write(json.dumps(message).encode() + b"\n")
        self.child.process.stdin.flush()
        self._answers += 1
        wait_until(
            lambda: len(self.child.stdout_lines()) >= self._answers, READ_SECONDS,
            lambda: f"the selection owner to answer: {self.child.stderr()}",
        )


class WaylandOwner(SelectionOwner):
    """The same on a Wayland desktop, by data control. Of a type that maps to Begun only that beginning comes."""

    script = "wayland_owner.py"


class Begun(bytes):
    """The first bytes of an answer that never comes to its end."""


def _in_json(data):
    if isinstance(data, Begun):
        return {"begin": data.hex()}
    return None if data is None else data.hex()
