# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A whole desktop for one test: X server, buses, window manager, tray, folders."""

import contextlib
import os
import pathlib
import random
import select

from Xlib import Xatom, error

from . import windows
from .authority import add_display, authority_in_environment, write_authority
from .clipboard import Clipboard
from .configurations import I3_CONFIGURATION, OPENBOX_CONFIGURATION, TRAY_CONFIGURATION
from .keyboard import Keyboard, Mouse
from .recorder import Recorder
from .screen import screenshot
from .session import START_SECONDS, PrivateSession
from .waiting import wait_until
from .x_connection import connect

WINDOW_MANAGERS = ("openbox", "xfwm4", "i3", "none")
TRAYS = ("tint2", "none")
COMPOSITORS = ("none", "picom")
DISPLAY_NUMBERS = range(100, 10_000)  # beyond those that compositors try for their XWayland


class PrivateDesktop(PrivateSession):
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
        super().__init__()
        self._display_lock = None
        self._recorders = []
        self.display = None

    # Coming and going

    @property
    def bus_services(self):
        return ("org.a11y.Bus", "org.xfce.Xfconf") if self.window_manager == "xfwm4" else ("org.a11y.Bus",)

    def _come_up(self):
        self._authority = self.directory / "authority"
        self.environment.update(XDG_SESSION_TYPE="x11", XAUTHORITY=str(self._authority))
        self._start_server()
        self._start_bus()
        if self._with_accessibility:
            self._start_accessibility_bus()
        self.start_window_manager()
        self.start_tray()
        self.start_compositor()
        if self._layout != "us":
            self.set_layout(self._layout)

    def _closers(self):
        connection, self.display = self.display, None
        return [*(recorder.stop for recorder in self._recorders), *super()._closers(),
                *([connection.close] if connection else [])]

    def close(self):
        try:
            super().close()
        finally:
            self._release_display_number()  # once the server has removed its socket

    def _start_server(self):
        cookie = write_authority(self._authority)
        number = self._reserve_display_number()
        reader, writer = os.pipe()
        try:
            width, height = self._size
            # Ended by SIGTERM even when this process is killed: only so it removes its socket and lock file.
            self.server = self.start(
                "Xvfb",
                ["Xvfb", f":{number}", "-displayfd", writer, "-screen", "0", f"{width}x{height}x24",
                 "-auth", self._authority, "-nolisten", "tcp", "-noreset", "-dpi", "96",
                 *([] if self._with_xtest else ["-extension", "XTEST"])],
                pass_fds=(writer,), death_signal="TERM",
            )
            os.close(writer)
            writer = None
            self._wait_for_server(reader)
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

    def _reserve_display_number(self):
        """Takes the lock file of a free number, as an X server does that is told its number. One that chooses by itself
        takes none: then the socket of a new server is removed by an old one of that number, which is just ending."""
        while self._display_lock is None:
            number = random.choice(DISPLAY_NUMBERS)
            lock = pathlib.Path(f"/tmp/.X{number}-lock")
            with contextlib.suppress(FileExistsError), open(lock, "x", encoding="ascii") as stream:
                stream.write(f"{os.getpid():10}\n")
                self._display_lock = lock
        return number

    def _release_display_number(self):
        if self._display_lock:
            self._display_lock.unlink(missing_ok=True)
            self._display_lock = None

    def _wait_for_server(self, reader):
        answer = b""
        while not answer.endswith(b"\n"):
            ready, _, _ = select.select([reader], [], [], START_SECONDS)
            chunk = os.read(reader, 16) if ready else b""
            if not chunk:
                raise RuntimeError(f"the X server does not start: {self.server.stderr()}")
            answer += chunk

    def connect(self):
        """Another connection to the X server."""
        with authority_in_environment(self._authority):
            return connect(self.display_name)

    def start_window_manager(self):
        """Part of coming up. A test that has stopped `window_manager_process` calls it again."""
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
        """Part of coming up. A test that has stopped `tray_host`, or wants one later, calls it again."""
        if (tray or self.tray) == "none":
            return
        configuration = self.directory / "tint2rc"
        configuration.write_text(TRAY_CONFIGURATION)
        self.tray_host = self.start("tint2", ["tint2", "-c", configuration])
        wait_until(lambda: self.selection_owner("_NET_SYSTEM_TRAY_S0"), START_SECONDS,
                   lambda: f"the tray: {self.tray_host.stderr()}")

    def start_compositor(self):
        """Part of coming up. A test that has stopped `compositor_process` calls it again."""
        if self.compositor == "none":
            return
        compositor = self.compositor_process = self.start("picom", ["picom", "--backend", "xrender", "--config", "/dev/null"])
        wait_until(lambda: self.selection_owner("_NET_WM_CM_S0"), START_SECONDS,
                   lambda: f"the compositor: {compositor.stderr()}")

    def selection_owner(self, name):
        """The window that owns the selection, or 0."""
        owner = self.display.get_selection_owner(self.display.intern_atom(name))
        return getattr(owner, "id", owner)

    def set_layout(self, layouts, group=0):
        """Keyboard layouts as their files name them, "us,ru" for two, "us(dvorak)" for a variant, and which is active."""
        names = [layout.rstrip(")").partition("(") for layout in layouts.split(",")]
        self.run(["setxkbmap", "-layout", ",".join(layout for layout, _, _ in names),
                  "-variant", ",".join(variant for _, _, variant in names)])
        self.keyboard.set_group(group)
        wait_until(lambda: self.keyboard.state().group == group, what=f"layout group {group}")

    # The screen

    def windows(self):
        return windows.shown_windows(self.display)

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
