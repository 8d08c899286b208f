# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A whole desktop that nobody else sees: X server, buses, window manager, tray, folders."""

import os
import pathlib
import select
import shutil
import socket
import subprocess
import tempfile

from Xlib import Xatom, error
from Xlib.display import Display

from . import windows
from .accessibility import Accessibility
from .authority import add_display, authority_in_environment, write_authority
from .clipboard import Clipboard
from .configurations import BUS_CONFIGURATION, I3_CONFIGURATION, OPENBOX_CONFIGURATION, TRAY_CONFIGURATION
from .keyboard import Keyboard, Mouse
from .processes import Child, adopt_orphans, end_all_with_environment, pids_with_environment, reap
from .recorder import Recorder
from .screen import screenshot
from .waiting import wait_until

START_SECONDS = 15.0
TOOL_SECONDS = 15.0
# Only what finds programs and their data comes from outside; nothing there is a person's own.
KEPT_VARIABLES = ("LD_LIBRARY_PATH", "XDG_DATA_DIRS")
WINDOW_MANAGERS = ("openbox", "xfwm4", "i3", "none")
TRAYS = ("tint2", "none")
COMPOSITORS = ("none", "picom")


def _is_listening(socket_path):
    # The socket's file is there a moment before anybody answers behind it.
    with socket.socket(socket.AF_UNIX) as caller:
        try:
            caller.connect(str(socket_path))
        except OSError:
            return False
        return True


class PrivateDesktop:
    """Use it as a context manager; when it is left, nothing of it is left.

        with PrivateDesktop() as desktop:
            editor = desktop.start("editor", ["mousepad"])
            desktop.keyboard.type_text("hello")

    `environment` is what programs inside are started with, `directory` a folder for whatever is needed, removed at
    the end; `display` a python-xlib connection. Everything has its time limit: a part that does not come up raises.
    Without `xtest` the X server has no XTEST extension: no program can press keys there, the tests' neither.
    """

    def __init__(self, *, window_manager="openbox", tray=None, compositor="none", accessibility=True,
                 size=(1280, 800), layout="us", xtest=True):
        if tray is None:
            tray = "none" if window_manager == "none" else "tint2"
        if (window_manager, tray) == ("none", "tint2"):
            raise ValueError("tint2 waits for a window manager before it opens its tray")
        for choice, known in ((window_manager, WINDOW_MANAGERS), (tray, TRAYS), (compositor, COMPOSITORS)):
            if choice not in known:
                raise ValueError(f"{choice!r} is none of {known}")
        self.window_manager, self.tray, self.compositor = window_manager, tray, compositor
        self._with_accessibility = accessibility
        self._size, self._layout, self._with_xtest = size, layout, xtest
        self._children = []
        self._recorders = []
        self.display = None
        self.accessibility = None

    # Coming and going

    def __enter__(self):
        adopt_orphans()
        try:
            self._make_folders()
            self._start_server()
            self._start_bus()
            if self._with_accessibility:
                self._start_accessibility_bus()
            self.start_window_manager()
            self.start_tray()
            self.start_compositor()
            if self._layout != "us":
                self.set_layout(self._layout)
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Ends whatever runs here, newest first, and removes the folders."""
        failures = []

        def attempt(action, *arguments):
            try:
                action(*arguments)
            except Exception as failure:  # the rest still has to go
                failures.append(failure)

        inside = set()
        if hasattr(self, "runtime_folder"):
            inside.update(pids_with_environment("XDG_RUNTIME_DIR", self.runtime_folder))
        for recorder in self._recorders:
            attempt(recorder.stop)
        self._recorders.clear()
        if self.accessibility:
            attempt(self.accessibility.stop)
        if self.display:
            attempt(self.display.close)
            self.display = None
        while self._children:
            attempt(self._children.pop().stop)
        if hasattr(self, "runtime_folder"):
            attempt(end_all_with_environment, "XDG_RUNTIME_DIR", self.runtime_folder)
            attempt(reap, inside)
            attempt(shutil.rmtree, self.directory)
            del self.runtime_folder
        if failures:
            raise failures[0]

    def _make_folders(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="zamber-desktop-"))
        self.runtime_folder = self._folder("runtime")
        self.home = self._folder("home")
        self.config_home = self._folder("config")
        self.data_home = self._folder("data")
        self.logs = self._folder("logs")
        self._authority = self.directory / "authority"
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
            "XDG_SESSION_TYPE": "x11",
            "GSETTINGS_BACKEND": "memory",
            "XAUTHORITY": str(self._authority),
            "PYTHONDONTWRITEBYTECODE": "1",
        }
        self.environment.update({name: os.environ[name] for name in KEPT_VARIABLES if name in os.environ})

    def _folder(self, name):
        path = self.directory / name
        path.mkdir(mode=0o700)
        return path

    def _start_server(self):
        cookie = write_authority(self._authority)
        reader, writer = os.pipe()
        try:
            width, height = self._size
            # Ended by SIGTERM even when this process is killed: only so it removes its socket and lock file.
            self.server = self.start(
                "Xvfb",
                ["Xvfb", "-displayfd", writer, "-screen", "0", f"{width}x{height}x24", "-auth", self._authority,
                 "-nolisten", "tcp", "-noreset", "-dpi", "96", *([] if self._with_xtest else ["-extension", "XTEST"])],
                pass_fds=(writer,), death_signal="TERM",
            )
            os.close(writer)
            writer = None
            number = self._read_display_number(reader)
        finally:
            os.close(reader)
            if writer is not None:
                os.close(writer)
        self.display_name = f":{number}"
        self.environment["DISPLAY"] = self.display_name
        add_display(self._authority, cookie, number)
        self.display = self.connect()
        self.keyboard = Keyboard(self.display, self.display_name, self._authority)
        self.mouse = Mouse(self.display)
        # With its first key a keyboard announces its layout to everybody, as if it had just been plugged in.
        if self._with_xtest:
            self.keyboard.tap("Shift_L")
        self.clipboard = Clipboard(self)
        self.primary = Clipboard(self, "primary")

    def _read_display_number(self, reader):
        answer = b""
        while not answer.endswith(b"\n"):
            ready, _, _ = select.select([reader], [], [], START_SECONDS)
            chunk = os.read(reader, 16) if ready else b""
            if not chunk:
                raise RuntimeError(f"the X server does not start: {self.server.stderr()}")
            answer += chunk
        return int(answer)

    def connect(self):
        """Another connection to the X server."""
        with authority_in_environment(self._authority):
            return Display(self.display_name)

    def _start_bus(self):
        services = self._folder("services")
        wanted = ["org.a11y.Bus"] + (["org.xfce.Xfconf"] if self.window_manager == "xfwm4" else [])
        for name in wanted:
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

    def start_window_manager(self):
        """Part of coming up; called again by whoever has stopped `window_manager_process`."""
        if self.window_manager == "none":
            return
        command = ["xfwm4", "--compositor=off"]
        if self.window_manager == "openbox":
            configuration = self.directory / "openbox.xml"
            configuration.write_text(OPENBOX_CONFIGURATION)
            command = ["openbox", "--config-file", configuration]
        elif self.window_manager == "i3":
            configuration = self.directory / "i3.conf"
            configuration.write_text(I3_CONFIGURATION)
            command = ["i3", "-c", configuration]
        manager = self.window_manager_process = self.start(self.window_manager, command)
        wait_until(self._has_window_manager, START_SECONDS, lambda: f"{self.window_manager}: {manager.stderr()}")

    def _has_window_manager(self):
        atom = self.display.intern_atom("_NET_SUPPORTING_WM_CHECK")
        try:
            reply = self.display.screen().root.get_full_property(atom, Xatom.WINDOW)
            if not reply:
                return False
            check = self.display.create_resource_object("window", reply.value[0])
            reply = check.get_full_property(atom, Xatom.WINDOW)
            return reply is not None and reply.value[0] == check.id
        except error.XError:
            return False

    def start_tray(self, tray=None):
        """Part of coming up; called again by whoever has stopped `tray_host`, or wants one later."""
        if (tray or self.tray) == "none":
            return
        configuration = self.directory / "tint2rc"
        configuration.write_text(TRAY_CONFIGURATION)
        self.tray_host = self.start("tint2", ["tint2", "-c", configuration])
        wait_until(lambda: self.selection_owner("_NET_SYSTEM_TRAY_S0"), START_SECONDS,
                   lambda: f"the tray: {self.tray_host.stderr()}")

    def start_compositor(self):
        """Part of coming up; called again by whoever has stopped `compositor_process`."""
        if self.compositor == "none":
            return
        compositor = self.compositor_process = self.start("picom", ["picom", "--backend", "xrender", "--config", "/dev/null"])
        wait_until(lambda: self.selection_owner("_NET_WM_CM_S0"), START_SECONDS,
                   lambda: f"the compositor: {compositor.stderr()}")

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

    def selection_owner(self, name):
        """The window that owns the selection, or 0."""
        owner = self.display.get_selection_owner(self.display.intern_atom(name))
        return getattr(owner, "id", owner)

    def bus_name_has_owner(self, name):
        return "true" in self.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/", "-m",
                                   "org.freedesktop.DBus.NameHasOwner", name])

    def set_layout(self, layouts, group=0):
        """Keyboard layouts as their files name them, "us,ru" for two, "us(dvorak)" for a variant, and which is active."""
        names = [layout.rstrip(")").partition("(") for layout in layouts.split(",")]
        self.run(["setxkbmap", "-layout", ",".join(layout for layout, _, _ in names),
                  "-variant", ",".join(variant for _, _, variant in names)])
        self.keyboard.set_group(group)
        wait_until(lambda: self.keyboard.state().group == group, what=f"layout group {group}")

    # What can be seen

    def windows(self):
        return windows.top_level_windows(self.display)

    def window(self, title=None, pid=None):
        """A visible window by its title or its program, or None."""
        return next((window for window in self.windows() if window.visible
                     and (title is None or window.title == title) and (pid is None or window.pid == pid)), None)

    def tray_icon(self, pid=None):
        """The icon in the tray, or None while there is none; of one program when there are several."""
        return next((icon for icon in windows.embedded_windows(self.display)
                     if pid is None or icon.pid in (0, pid)), None)

    def active_window(self):
        return windows.active_window(self.display)

    def focused_window(self):
        return windows.focused_window(self.display)

    def wait_until_active(self, window, timeout=5.0):
        """Until the window is the active one and has the keyboard."""

        def is_active():
            focus, active = self.focused_window(), self.active_window()
            managed = self.window_manager != "none"
            return focus and focus.id == window.id and (not managed or (active and active.id == window.id))

        wait_until(is_active, timeout, lambda: f"{window.title!r} to be active; active {self.active_window()}, "
                                               f"focus {self.focused_window()}")

    def activate(self, window):
        """Brings a window to the front, as a click on it would; it has the keyboard when this returns."""
        if self.window_manager == "none":
            self.run(["xdotool", "windowfocus", window.id])
        else:
            self.run(["xdotool", "windowactivate", window.id])
        self.wait_until_active(window)

    def record(self):
        """A running recorder of key events; it stops with the desktop."""
        recorder = Recorder(self.connect).start()
        self._recorders.append(recorder)
        return recorder

    def screenshot(self, path):
        return screenshot(self, path)
