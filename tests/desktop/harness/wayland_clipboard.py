# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Other programs' side of a Wayland clipboard, by wl-copy and wl-paste, which are programs of their own."""

import pathlib
import subprocess
import tempfile

from .waiting import wait_until

READ_SECONDS = 5.0


class WaylandClipboard:
    """Copying returns the program that goes on serving the copy."""

    def __init__(self, desktop):
        self._desktop = desktop

    def copy_text(self, text):
        return self._copy([], text.encode())

    def copy_image(self, path, target="image/png"):
        return self._copy(["--type", target], pathlib.Path(path).read_bytes())

    def _copy(self, options, data):
        with tempfile.TemporaryFile() as source:
            source.write(data)
            source.seek(0)
            copier = self._desktop.start("wl-copy", ["wl-copy", "--foreground", *options], stdin=source)
        kind = options[-1] if options else "text/plain"
        wait_until(lambda: kind in self.targets() and self.read(kind) == data, READ_SECONDS,
                   lambda: f"wl-copy to own the clipboard: {copier.stderr()}")
        return copier

    def read(self, target="text/plain;charset=utf-8", timeout=READ_SECONDS):
        """The bytes that the owner gives for the type, or None when it gives none."""
        answer = self._paste("--no-newline", "--type", target, timeout=timeout)
        return answer.stdout if answer.returncode == 0 else None

    def text(self):
        data = self.read()
        return None if data is None else data.decode()

    def targets(self, timeout=READ_SECONDS):
        """The types that are offered, each once; empty when nobody owns the clipboard."""
        return list(dict.fromkeys(self._paste("--list-types", timeout=timeout).stdout.decode().splitlines()))

    def _paste(self, *options, timeout=READ_SECONDS):
        return subprocess.run(["wl-paste", *options], env=self._desktop.environment, stdin=subprocess.DEVNULL,
                              capture_output=True, timeout=timeout, check=False)
