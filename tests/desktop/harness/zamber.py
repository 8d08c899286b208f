# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program under test, seen from outside."""

import base64
import binascii
import json
import os
import pathlib
import re
import subprocess
import time

from .waiting import wait_until

READY_LINE = "✅ Accessibility: trusted"
UNTRUSTED_LINE = "⚠️ Accessibility: NOT trusted — opening System Settings"
UPDATE_FAILED = "⚠️ Update check failed: "
STALE_NODE = re.compile(r"qt\.accessibility\.atspi: .*(Accessible invalid|Could not find accessible on path)")
# Qt 6.8 where a window is told its scale and shown in one moment. Qt takes the scale then; the pictures are compared.
SCALE_IN_TIME = re.compile(r"The cached device pixel ratio value was stale on window (expose|update)\.")
START_SECONDS = 10.0
SANITIZER_VARIABLES = ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")


def _without_network():
    """What runs a program in a network of its own that leads nowhere. It asks for updates some seconds after its
    start, and no test is to reach out of the machine; X and D-Bus are spoken over sockets in the file system."""
    for command in (["unshare", "--net", "--"], ["unshare", "--user", "--map-current-user", "--net", "--"]):
        if subprocess.run([*command, "true"], capture_output=True, check=False).returncode == 0:
            return command
    return []


WITHOUT_NETWORK = _without_network()


def default_binary():
    """ZAMBER_BINARY where it is set, else the release build of this source tree."""
    built = pathlib.Path(__file__).resolve().parents[3] / "build" / "release" / "zamber"
    return pathlib.Path(os.environ.get("ZAMBER_BINARY") or built)


class Zamber:
    """`ready_line` is the last line of its start: another one where it may not press keys."""

    # The tests read its windows as a screen reader does.
    environment = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def __init__(self, desktop, binary=None, ready_line=READY_LINE):
        self._desktop = desktop
        self._ready_line = ready_line
        self.binary = pathlib.Path(binary or default_binary())
        if not self.binary.is_file():
            raise FileNotFoundError(f"no program at {self.binary}: build it, or set ZAMBER_BINARY")
        self.started_by = WITHOUT_NETWORK
        self.child = None

    @property
    def data_folder(self):
        return self._desktop.data_home / "Zamber"

    @property
    def history_path(self):
        return self.data_folder / "clipboard_history.json"

    @property
    def preferences_path(self):
        return self._desktop.config_home / "Zamber" / "Zamber.conf"

    def write_preferences(self, **values):
        """Replaces the preferences: write_preferences(quickPasteEnabled=True, maxItems=50). In one step, as QSettings
        does for every other process of the program."""
        self.preferences_path.parent.mkdir(parents=True, exist_ok=True)
        lines = [f"{key}={str(value).lower() if isinstance(value, bool) else value}" for key, value in values.items()]
        beside = self.preferences_path.with_suffix(".new")
        beside.write_text("\n".join(["[General]", *lines, ""]))
        beside.replace(self.preferences_path)

    def write_history(self, *contents, pinned=()):
        """A history file, newest first: texts as str, images as bytes. `pinned` holds the positions of pinned ones.
        The entries are a minute apart, the first of them a minute old."""
        self.data_folder.mkdir(parents=True, exist_ok=True, mode=0o700)
        now = time.time()
        records = [
            {
                "type": "text" if isinstance(content, str) else "image",
                "value": content if isinstance(content, str) else base64.b64encode(content).decode(),
                "timestamp": now - 60.0 * (index + 1),
                "isPinned": index in pinned,
            }
            for index, content in enumerate(contents)
        ]
        self.history_path.write_text(json.dumps(records, ensure_ascii=False))

    def start(self):
        environment = dict(self._desktop.environment, **self.environment)
        environment.update({name: os.environ[name] for name in SANITIZER_VARIABLES if name in os.environ})
        self.child = self._desktop.start("zamber", [*self.started_by, self.binary], environment=environment)
        wait_until(
            lambda: not self.is_running() or self._ready_line in self.stdout_lines(), START_SECONDS,
            lambda: f"{self._ready_line!r}; so far {self.stdout_lines()}, {self.stderr_lines()}",
        )
        if not self.is_running():
            raise RuntimeError(f"ended at once with {self.child.process.returncode}: {self.stderr_lines()}")
        return self

    def stop(self):
        return self.child.stop()

    def is_running(self):
        return self.child is not None and self.child.is_running()

    @property
    def pid(self):
        return self.child.pid

    def stdout_lines(self):
        """The log, without the line about the update service, which is always out of reach here."""
        return [line for line in self.child.stdout_lines() if not line.startswith(UPDATE_FAILED)]

    def has_asked_for_updates(self):
        return any(line.startswith(UPDATE_FAILED) for line in self.child.stdout_lines())

    def stderr_lines(self):
        """What went wrong, but for what Qt says of a reader, as the tests are, that asks for a node just gone, and of a
        scale that it has noticed."""
        return [line for line in self.child.stderr_lines()
                if not STALE_NODE.match(line) and not SCALE_IN_TIME.match(line)]

    def records(self):
        """The history file's records, newest first; empty while there is none or it is just being written."""
        try:
            return json.loads(self.history_path.read_text())
        except (FileNotFoundError, json.JSONDecodeError):
            return []

    def history(self):
        """The entries in the history file, newest first: texts as str, images as bytes; empty as the records are."""
        try:
            return [record["value"] if record["type"] == "text" else base64.b64decode(record["value"])
                    for record in self.records()]
        except binascii.Error:
            return []  # read while it was written: the beginning of the new and the end of the old

    def wait_for_history(self, expected, timeout=6.0):
        """Waits until the file, which is written a second after the last change, holds just these entries."""
        wait_until(lambda: self.history() == expected, timeout,
                   lambda: f"the history {expected!r}; it is {self.history()!r}")

    def windows(self):
        return [window for window in self._desktop.windows() if window.pid == self.pid and window.visible]

    def popover(self):
        """The popover's window while it is shown, else None."""
        return next((window for window in self.windows() if window.title == "Zamber" and window.width > 300), None)

    def menu(self):
        """The tray icon's menu while it is open, else None; assistive technology is not shown it by Qt. The icon's tool
        tip, a line of text, is none."""
        return next((window for window in self.windows() if 60 < window.width <= 300 and window.height > 60), None)

    def autostart_path(self):
        return self._desktop.config_home / "autostart" / "app.zamber.Zamber.desktop"

    def activate_by_bus(self):
        """As another start of the program does, and the desktop when it starts programs by the bus."""
        self._desktop.run(["gdbus", "call", "--session", "-d", "app.zamber.Zamber", "-o", "/app/zamber/Zamber", "-m",
                           "org.freedesktop.Application.Activate", "{}"])

    def press_hot_key(self):
        self._desktop.keyboard.chord("Super_L", "Shift_L", "v")

    def wait_for_popover(self, timeout=5.0):
        """The popover, once it is shown and takes the keys."""

        def ready():
            popover = self.popover()
            focus = self._desktop.focused_window()
            return popover if popover and focus and focus.id == popover.id else None

        def seen():
            return (f"the popover with the focus; shown {self.popover()}, focus {self._desktop.focused_window()}, "
                    f"active {self._desktop.active_window()}, stderr {self.stderr_lines()}")

        return wait_until(ready, timeout, seen)

    def open_popover(self):
        self.press_hot_key()
        return self.wait_for_popover()

    def wait_until_closed(self, timeout=5.0):
        wait_until(lambda: self.popover() is None, timeout, "the popover to be gone")

    def tree(self, timeout=5.0):
        """The accessibility tree of the program."""
        return wait_until(lambda: self._desktop.accessibility.tree(self.pid), timeout, "an accessibility tree")

    def act(self, node, action):
        wait_until(lambda: self._desktop.accessibility.act(self.pid, node, action), 2.0,
                   f"an action {action} on {node.role} {node.name!r}")
