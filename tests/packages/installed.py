# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The installed program, started as desktops start programs: by its entry."""

import os
import signal

from harness import wait_until
from harness.processes import STOP_SECONDS, pids_with_environment, reap
from harness.zamber import START_SECONDS, WITHOUT_NETWORK, Zamber

# The menu's way: by the entry's name, found where the session looks for entries, its Exec line run by the library.
LAUNCH_BY_NAME = """
import sys
from gi.repository import Gio
Gio.DesktopAppInfo.new(sys.argv[1]).launch([], None)
"""
# The session's way at login: by the file.
LAUNCH_BY_FILE = LAUNCH_BY_NAME.replace("DesktopAppInfo.new", "DesktopAppInfo.new_from_filename")


class Launched:
    """A program that a launcher has started and left to itself; it writes where the launcher did. Has of Child what
    the tests ask of it."""

    def __init__(self, launcher, pid):
        self._launcher, self.pid = launcher, pid
        self.stdout, self.stderr = launcher.stdout, launcher.stderr
        self.stdout_lines, self.stderr_lines = launcher.stdout_lines, launcher.stderr_lines

    def is_running(self):
        reap([self.pid])
        return os.path.exists(f"/proc/{self.pid}")

    def stop(self):
        os.kill(self.pid, signal.SIGTERM)
        wait_until(lambda: not self.is_running(), STOP_SECONDS, "the program to end")


class InstalledZamber(Zamber):
    """`binary` is where it was installed; `folders` are put before the session's own: "PATH" and "XDG_DATA_DIRS"."""

    def __init__(self, desktop, binary, **folders):
        super().__init__(desktop, binary)
        defaults = {"PATH": "/usr/bin:/bin", "XDG_DATA_DIRS": "/usr/local/share:/usr/share"}
        self._environment = dict(desktop.environment, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        for name, folder in folders.items():
            self._environment[name] = f"{folder}:{self._environment.get(name) or defaults[name]}"

    def launch(self, script, entry):
        launcher = self._desktop.start(
            "launcher", [*WITHOUT_NETWORK, "/usr/bin/python3", "-c", script, entry], environment=self._environment)
        status = launcher.wait(START_SECONDS)
        if status:
            raise AssertionError(f"the entry {entry} cannot be launched: {launcher.stderr()}")
        (pid,) = wait_until(self.pids, START_SECONDS, lambda: f"{self.binary} to run; {launcher.stderr()}")
        self.child = Launched(launcher, pid)
        wait_until(lambda: self._ready_line in self.stdout_lines(), START_SECONDS,
                   lambda: f"{self._ready_line!r}; so far {self.stdout_lines()}, {self.stderr_lines()}")

    def pids(self):
        """The processes of this desktop whose program is the installed file."""
        def program(pid):
            try:
                return os.readlink(f"/proc/{pid}/exe")
            except OSError:
                return None  # it has ended meanwhile

        return [pid for pid in pids_with_environment("XDG_RUNTIME_DIR", self._desktop.runtime_folder)
                if program(pid) == str(self.binary)]
