# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A whole Wayland desktop that nobody else sees: sway without a screen, with or without XWayland beside it."""

import json
import os
import socket
import struct
import subprocess

from . import windows
from .configurations import SWAY_CONFIGURATION
from .session import START_SECONDS, PrivateSession
from .virtual_input import VirtualKeyboard, VirtualMouse
from .waiting import wait_until
from .wayland_clipboard import WaylandClipboard
from .x_connection import connect

IPC_COMMAND, IPC_WORKSPACES, IPC_TREE = 0, 1, 4
NOBODY = 65534
IPC_MAGIC = b"i3-ipc"


class SwayDesktop(PrivateSession):
    """As `PrivateDesktop`, with the same questions and hands. `configuration` is added to sway's own.

    With XWayland `display` is a python-xlib connection to it, else None."""

    window_manager = "sway"

    def __init__(self, *, xwayland=True, size=(1280, 800), accessibility=True, layout="us", configuration=""):
        super().__init__()
        self._with_xwayland, self._size, self._with_accessibility = xwayland, size, accessibility
        self._layout, self._configuration = layout, configuration
        self.display = self.keyboard = self.mouse = None

    def _come_up(self):
        self.environment.update(XDG_SESSION_TYPE="wayland", XDG_CURRENT_DESKTOP="sway")
        self._start_bus()
        if self._with_accessibility:
            self._start_accessibility_bus()
        self.start_compositor()

    def _closers(self):
        return [*super()._closers(), self._disconnect]

    def _disconnect(self):
        for connection in (self.display, self.keyboard, self.mouse):
            if connection:
                connection.close()
        self.display = self.keyboard = self.mouse = None

    def start_compositor(self):
        """Part of coming up; called again by whoever has stopped `compositor_process`."""
        self._disconnect()
        width, height = self._size
        configuration, folder = self.directory / "sway.conf", self.directory / "sway"
        told = folder / "told"
        told.unlink(missing_ok=True)
        if not folder.exists():
            folder.mkdir(mode=0o700)
            self._runtime_folders.append(folder)
        configuration.write_text(SWAY_CONFIGURATION.format(
            xwayland="force" if self._with_xwayland else "disable", width=width, height=height, layout=self._layout,
            told=told, more=self._configuration))
        environment = dict(self.environment, WLR_BACKENDS="headless", WLR_LIBINPUT_NO_DEVICES="1", WLR_RENDERER="pixman",
                           XDG_RUNTIME_DIR=str(folder))
        for stale in ("WAYLAND_DISPLAY", "SWAYSOCK", "DISPLAY"):
            environment.pop(stale, None)
        as_user = self._as_nobody(folder, environment) if os.geteuid() == 0 else []
        process = self.compositor_process = self.start(
            "sway", [*as_user, "sway", "--config", configuration], environment=environment, death_signal="TERM")

        def answers():
            if not process.is_running():
                raise RuntimeError(f"sway has ended: {process.stderr()}")
            return told.read_text().splitlines() if told.exists() and told.read_text().endswith("\n\n") else None

        wayland, ipc, x11 = wait_until(answers, START_SECONDS, lambda: f"sway: {process.stderr()}")[:3]
        self.environment.update(WAYLAND_DISPLAY=str(folder / wayland), SWAYSOCK=ipc)
        if self._with_xwayland:
            self.environment["DISPLAY"] = x11
            self.display = connect(x11)
        self.keyboard = VirtualKeyboard(self.environment, self._layout)
        self.mouse = VirtualMouse(self.environment, self._size)
        self.clipboard = WaylandClipboard(self)

    def _as_nobody(self, folder, environment):
        """How a command is started that refuses root: as the user nobody, with an X server that lets root in."""
        self.directory.chmod(0o711)
        os.chown(folder, NOBODY, NOBODY)
        open_server = self.directory / "Xwayland"
        open_server.write_text('#!/bin/sh\nexec Xwayland "$@" -ac\n')
        open_server.chmod(0o755)
        environment["WLR_XWAYLAND"] = str(open_server)
        # The kernel forgets with another user which signal a parent's end is to send.
        return ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", "--pdeathsig", "TERM", "--"]

    def tell(self, command):
        """A command as in sway's configuration; fails when sway refuses it."""
        answers = self._ask(IPC_COMMAND, command)
        refused = [answer for answer in answers if not answer["success"]]
        if refused:
            raise RuntimeError(f"{command}: {refused[0].get('error')}")

    def _ask(self, kind, payload=""):
        data = payload.encode()
        with socket.socket(socket.AF_UNIX) as connection:
            connection.settimeout(START_SECONDS)
            connection.connect(self.environment["SWAYSOCK"])
            connection.sendall(IPC_MAGIC + struct.pack("=II", len(data), kind) + data)
            with connection.makefile("rb") as stream:
                length, _ = struct.unpack("=II", stream.read(14)[6:])
                return json.loads(stream.read(length))

    # The screen

    def nodes(self):
        """The tree's windows, as sway describes them."""
        found = []

        def look(node):
            if node.get("pid"):
                found.append(node)
            for child in [*node["nodes"], *node["floating_nodes"]]:
                look(child)

        look(self._ask(IPC_TREE))
        return found

    def workspaces(self):
        """As sway describes them: what panels leave free of each is its "rect"."""
        return self._ask(IPC_WORKSPACES)

    def windows(self):
        return [_described(node) for node in self.nodes()]

    def focused_window(self):
        return next((_described(node) for node in self.nodes() if node["focused"]), None)

    active_window = focused_window

    def wait_until_active(self, window, timeout=5.0):
        def is_active():
            focus = self.focused_window()
            return focus and focus.id == window.id

        wait_until(is_active, timeout, lambda: f"{window.title!r} to be active; it is {self.focused_window()}")

    def activate(self, window):
        self.tell(f"[con_id={window.id}] focus")
        self.wait_until_active(window)

    def fill_screen(self, window):
        """Has the window fill the screen, over panels, as its program would."""
        self.tell(f"[con_id={window.id}] fullscreen enable")

    def screenshot(self, path):
        subprocess.run(["grim", str(path)], env=self.environment, check=True, timeout=START_SECONDS)
        return path


def _described(node):
    place = node["rect"]
    name = node.get("app_id") or (node.get("window_properties") or {}).get("class") or ""
    return windows.Window(node["id"], node.get("name") or "", node["pid"], name, place["x"], place["y"], place["width"],
                          place["height"], node.get("visible", False))
