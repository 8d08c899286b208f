# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The programs that a user would be working in, each with a way to see the keys and pastes that reached it."""

import itertools
import json
import pathlib
import subprocess

from .clipboard import PARTNERS
from .waiting import wait_until

PYTHON = "/usr/bin/python3"
START_SECONDS = 10.0

_numbers = itertools.count(1)


class Partner:
    """A program with one window, which is active and has the keyboard once it has been started."""

    def __init__(self, desktop, name, command, **environment):
        self._desktop = desktop
        self.child = desktop.start(name, command, environment=dict(desktop.environment, **environment))
        self.window = wait_until(
            lambda: desktop.window(pid=self.child.pid), START_SECONDS, lambda: f"{name}: {self.child.stderr()}"
        )
        if desktop.window_manager == "none":
            desktop.activate(self.window)
        else:
            desktop.wait_until_active(self.window)

    def activate(self):
        self._desktop.activate(self.window)

    def quit(self):
        """Ends the program; its window is gone when this returns."""
        self.child.stop()
        wait_until(lambda: self._desktop.window(pid=self.child.pid) is None, what="the window to be gone")


class Editor(Partner):
    """On a Wayland desktop a Wayland program, unless it is told to be one of X."""

    def __init__(self, desktop, title="Editor", *, class_name="Editor", geometry="480x300+40+80", **environment):
        folder = desktop.directory / f"editor-{next(_numbers)}"
        folder.mkdir()
        self._text_file, self._key_log, self._image_file = folder / "text", folder / "keys", folder / "image"
        super().__init__(desktop, title.lower(), [
            PYTHON, PARTNERS / "editor.py", "--title", title, "--class-name", class_name, "--geometry", geometry,
            "--text-file", self._text_file, "--key-log", self._key_log, "--image-file", self._image_file,
        ], **environment)

    def text(self):
        return self._text_file.read_bytes().decode()

    def keys(self):
        """The key events that the window received, oldest first."""
        return [json.loads(line) for line in self._key_log.read_text().splitlines()]

    def image(self):
        """The bytes of the picture that was pasted last, or None."""
        return self._image_file.read_bytes() if self._image_file.exists() else None

    def wait_for_text(self, expected, timeout=6.0):
        wait_until(lambda: self.text() == expected, timeout, lambda: f"{expected!r}; the editor holds {self.text()!r}")

    def wait_for_image(self, expected, timeout=6.0):
        wait_until(lambda: self.image() == expected, timeout,
                   lambda: f"a picture of {len(expected)} bytes; the editor has {self.image()!r:.80}")


class DesktopPart:
    """On a Wayland desktop: its "backdrop", or a "panel" at the bottom, which takes no focus. Neither is a window that
    is listed."""

    def __init__(self, desktop, part, height=40):
        shown = desktop.directory / f"{part}-shown"
        shown.unlink(missing_ok=True)
        self.child = desktop.start(part, [PYTHON, PARTNERS / "desktop_part.py", part, "--height", height,
                                          "--shown-file", shown])
        wait_until(shown.exists, START_SECONDS, lambda: f"the {part}: {self.child.stderr()}")


class Mousepad(Partner):
    """A real editor, whose text is read from the file that it saves."""

    def __init__(self, desktop):
        self.path = desktop.home / f"mousepad-{next(_numbers)}.txt"
        self.path.touch()
        super().__init__(desktop, "mousepad", ["mousepad", "--disable-server", self.path])

    def wait_for_saved_text(self, expected, timeout=6.0):
        def saved():
            self._desktop.keyboard.chord("Control_L", "s")
            return self.path.read_text() == expected

        self._desktop.wait_until_active(self.window)
        wait_until(saved, timeout, lambda: f"{expected!r}; mousepad saved {self.path.read_text()!r}")


class Gvim(Partner):
    """A real editor in which Ctrl+V marks columns; it is typing text in when it is ready."""

    def __init__(self, desktop):
        self.path = desktop.home / f"gvim-{next(_numbers)}.txt"
        self.path.touch()
        super().__init__(desktop, "gvim", ["gvim", "-f", "-n", "-c", "startinsert", self.path])

    def wait_for_saved_text(self, expected, timeout=6.0):
        def saved():
            self._desktop.keyboard.tap("Escape")
            self._desktop.keyboard.type_text(":w\n")
            return self.path.read_text() == expected

        self._desktop.wait_until_active(self.window)
        wait_until(saved, timeout, lambda: f"{expected!r}; gvim saved {self.path.read_text()!r}")


class TextField(Partner):
    """A program with a single text field, of another toolkit, in a window of its own."""

    def __init__(self, desktop, script):
        self._text_file = desktop.directory / f"field-{next(_numbers)}"
        super().__init__(desktop, script.removesuffix(".py"), [PYTHON, PARTNERS / script, self._text_file])
        wait_until(self._text_file.exists, START_SECONDS, lambda: f"the field to have the focus: {self.child.stderr()}")

    def text(self):
        return self._text_file.read_text()

    def wait_for_text(self, expected, timeout=6.0):
        wait_until(lambda: self.text() == expected, timeout, lambda: f"{expected!r}; the field holds {self.text()!r}")


class Browser(TextField):
    def __init__(self, desktop):
        super().__init__(desktop, "web_page.py")


class LineEdit(TextField):
    def __init__(self, desktop):
        super().__init__(desktop, "line_edit.py")


class Terminal(Partner):
    """An xterm in which every byte that arrives is written to a file."""

    def __init__(self, desktop):
        self._path = pathlib.Path(desktop.directory) / f"terminal-{next(_numbers)}"
        super().__init__(desktop, "xterm", [
            "xterm", "-fa", "DejaVu Sans Mono", "-fs", "10", "-geometry", "60x15+60+120",
            "-e", PYTHON, PARTNERS / "terminal_reader.py", self._path,
        ])
        wait_until(self._path.exists, START_SECONDS, "the reader in the terminal")

    def received(self):
        return self._path.read_bytes()

    def wait_for(self, expected, timeout=6.0):
        wait_until(lambda: self.received() == expected, timeout,
                   lambda: f"{expected!r}; the terminal sent {self.received()!r}")


class Foot(Partner):
    """A terminal of Wayland in which every byte that arrives is written to a file."""

    def __init__(self, desktop):
        self._path = pathlib.Path(desktop.directory) / f"foot-{next(_numbers)}"
        super().__init__(desktop, "foot", ["foot", "--config=/dev/null", PYTHON, PARTNERS / "terminal_reader.py", self._path])
        wait_until(self._path.exists, START_SECONDS, "the reader in the terminal")

    def wait_for(self, expected, timeout=6.0):
        wait_until(lambda: self._path.read_bytes() == expected, timeout,
                   lambda: f"{expected!r}; the terminal sent {self._path.read_bytes()!r}")


class SessionManager:
    """What programs ask to be told of the end of the session, by the address in SESSION_MANAGER."""

    def __init__(self, desktop):
        self._child = desktop.start("session_manager", [PYTHON, PARTNERS / "session_manager.py"], stdin=subprocess.PIPE)
        wait_until(self._child.stdout_lines, START_SECONDS, lambda: f"the session manager: {self._child.stderr()}")
        self.address = self._child.stdout_lines()[0]

    def told(self):
        """What programs have told it of themselves, one set of properties after the other."""
        return [json.loads(line) for line in self._child.stdout_lines()[1:]]

    def save(self):
        """Has every program save itself."""
        self._command("save")

    def log_out(self):
        """Ends every program."""
        self._command("die")

    def _command(self, word):
        self._child.process.stdin.write(f"{word}\n".encode())
        self._child.process.stdin.flush()
