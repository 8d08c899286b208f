# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What private desktops of every kind stand on: folders, buses, and programs that do not outlive them."""

import os
import pathlib
import shutil
import socket
import subprocess
import tempfile

from .accessibility import Accessibility
from .configurations import BUS_CONFIGURATION
from .processes import Child, adopt_orphans, end_all_with_environment, pids_with_environment, reap
from .waiting import wait_until

START_SECONDS = 15.0
TOOL_SECONDS = 15.0
# Only what finds programs and their data comes from outside; nothing there is a person's own.
KEPT_VARIABLES = ("LD_LIBRARY_PATH", "XDG_DATA_DIRS")


def _is_listening(socket_path):
    # The socket's file is there a moment before the bus answers behind it.
    with socket.socket(socket.AF_UNIX) as caller:
        try:
            caller.connect(str(socket_path))
        except OSError:
            return False
        return True


class PrivateSession:
    """A session without a screen; a desktop derives from it and brings one up in `_come_up`. Used as a context
    manager; when it is left, nothing of it is left.

    `environment` is what programs inside are started with, `directory` a folder for whatever is needed, removed at
    the end. Everything has its time limit: a part that does not come up raises."""

    bus_services = ("org.a11y.Bus",)

    def __init__(self):
        self._children = []
        self._runtime_folders = []  # what runs inside has one of them in its environment
        self.accessibility = None

    def __enter__(self):
        adopt_orphans()
        try:
            self._make_folders()
            self._come_up()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def _come_up(self):
        """Starts whatever this kind of desktop is made of."""
        raise NotImplementedError

    def _closers(self):
        """What is to be done before the programs are ended, each a function without arguments."""
        return [self.accessibility.stop] if self.accessibility else []

    def close(self):
        """Ends whatever runs here, newest first, and removes the folders."""
        failures = []

        def attempt(action, *arguments):
            try:
                action(*arguments)
            except Exception as failure:  # the rest still has to go
                failures.append(failure)

        inside = set()
        for folder in self._runtime_folders:
            inside.update(pids_with_environment("XDG_RUNTIME_DIR", folder))
        for closer in self._closers():
            attempt(closer)
        while self._children:
            attempt(self._children.pop().stop)
        if self._runtime_folders:
            for folder in self._runtime_folders:
                attempt(end_all_with_environment, "XDG_RUNTIME_DIR", folder)
            attempt(reap, inside)
            attempt(shutil.rmtree, self.directory)
            self._runtime_folders.clear()
        if failures:
            raise failures[0]

    def _make_folders(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="zamber-desktop-"))
        self.runtime_folder = self._folder("runtime")
        self._runtime_folders.append(self.runtime_folder)
        self.home = self._folder("home")
        self.config_home = self._folder("config")
        self.data_home = self._folder("data")
        self.logs = self._folder("logs")
        programs = ["/usr/bin", "/bin"]
        programs += [folder for folder in os.environ.get("PATH", "").split(":") if folder and folder not in programs]
        self.environment = {
            "PATH": ":".join(programs),
            "LANG": "C.UTF-8",
            "LC_ALL": "C.UTF-8",
            "HOME": str(self.home),
            "TMPDIR": str(self._folder("tmp")),
            "XDG_RUNTIME_DIR": str(self.runtime_folder),
            "XDG_CONFIG_HOME": str(self.config_home),
            "XDG_DATA_HOME": str(self.data_home),
            "XDG_CACHE_HOME": str(self._folder("cache")),
            "XDG_STATE_HOME": str(self._folder("state")),
            "XDG_CONFIG_DIRS": str(self._folder("no-config")),
            "GSETTINGS_BACKEND": "memory",
            "PYTHONDONTWRITEBYTECODE": "1",
        }
        self.environment.update({name: os.environ[name] for name in KEPT_VARIABLES if name in os.environ})

    def _folder(self, name):
        path = self.directory / name
        path.mkdir(mode=0o700)
        return path

    def _start_bus(self):
        services = self._folder("services")
        for name in self.bus_services:
            shutil.copy(f"/usr/share/dbus-1/services/{name}.service", services)
        configuration = self.directory / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(runtime=self.runtime_folder, services=services))
        socket_path = self.runtime_folder / "bus"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={socket_path}"
        bus = self.start("dbus-daemon", ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"])
        wait_until(lambda: _is_listening(socket_path), START_SECONDS, lambda: f"the session bus: {bus.stderr()}")

    def _start_accessibility_bus(self):
        # It has to be there before the first program is: one that starts earlier never shows up on it.
        call = ["gdbus", "call", "--session", "-d", "org.a11y.Bus", "-o", "/org/a11y/bus", "-m"]
        self.run([*call, "org.a11y.Bus.GetAddress"])
        self.run([*call, "org.freedesktop.DBus.Properties.Set", "org.a11y.Status", "IsEnabled", "<true>"])
        self.accessibility = Accessibility(self)

    # Programs inside

    def start(self, name, command, *, environment=None, stdin=None, pass_fds=(), death_signal="KILL"):
        """Starts a program that runs until it is stopped or the desktop is left; returns its processes.Child."""
        child = Child(name, command, environment or self.environment, self.logs, stdin=stdin, pass_fds=pass_fds,
                      death_signal=death_signal, cwd=self.home)
        self._children.append(child)
        return child

    def run(self, command, timeout=TOOL_SECONDS):
        """Runs a program to its end and returns what it wrote; fails when it fails."""
        answer = subprocess.run(
            [*map(str, command)], env=self.environment, cwd=self.home, stdin=subprocess.DEVNULL, capture_output=True,
            timeout=timeout, check=False,
        )
        if answer.returncode:
            raise RuntimeError(f"{command[0]} ended with {answer.returncode}: {answer.stderr.decode()}")
        return answer.stdout.decode()

    def bus_name_has_owner(self, name):
        return "true" in self.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/", "-m",
                                   "org.freedesktop.DBus.NameHasOwner", name])

    # The screen

    def windows(self):
        """All windows that programs show, from bottom to top. Some desktops have hidden ones among them."""
        raise NotImplementedError

    def window(self, title=None, pid=None):
        """A visible window by its title or its program, or None."""
        return next((window for window in self.windows() if window.visible
                     and (title is None or window.title == title) and (pid is None or window.pid == pid)), None)
