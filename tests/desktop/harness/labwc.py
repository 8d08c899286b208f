# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A whole desktop of a compositor that offers programs no commands and no places: labwc without a screen, with or
without XWayland beside it."""

import contextlib
import re
import shlex
import subprocess
import xml.sax.saxutils

from .configurations import LABWC_CONFIGURATION, LABWC_PLACE
from .session import START_SECONDS, PrivateSession
from .toplevels import ACTIVATED, FULL_SCREEN, MINIMIZED, Toplevels
from .virtual_input import VirtualKeyboard, VirtualMouse
from .waiting import wait_until
from .wayland_clipboard import WaylandClipboard
from .windows import Window, shown_windows
from .wire import Client
from .x_connection import connect

# Where windows are put, by their titles. Right of them there is nothing but the popover.
PLACES = {"Editor": (40, 80, 480, 300), "Bystander": (40, 460, 300, 200), "Other": (0, 0, 700, 600),
          "Newcomer": (60, 120, 480, 300), "Of X": (40, 80, 480, 300), "Zamber Settings": (20, 20, 0, 0)}
OTHERS_END = 740
SHADOW = (26, 18, 26, 34)  # around the popover's card: left, top, right, bottom
POPOVER_SIZE = (492, 472)
PROGRAM_ID = "app.zamber.Zamber"

HEAD, DONE, CREATE_CONFIGURATION = 0, 1, 0
ENABLE_HEAD, APPLY = 0, 2
SUCCEEDED, FAILED, CANCELLED = range(3)
SET_CUSTOM_MODE, SET_SCALE = 1, 4
WHOLE = 256  # of Wayland's numbers with a fraction


class LabwcDesktop(PrivateSession):
    """As `PrivateDesktop`, with the same questions and hands. labwc tells of no window's place or program. Places are
    those that its configuration names; a window belongs to the program that was started last before it was opened.

    The popover may be on a layer, of which nobody tells, or XWayland's. Then its window is what is seen of it: the
    desktop is black, so that its shadow is not seen, and whatever else is seen at the right is its card.

    Super+Shift+V runs `hot_key_command`. The screen's size and all places are in points, of which one is `scale` pixels."""

    window_manager = "labwc"

    def __init__(self, *, hot_key_command="true", xwayland=True, size=(1280, 800), scale=1, layout="us"):
        super().__init__()
        self._hot_key_command, self._with_xwayland = hot_key_command, xwayland
        self._size, self._scale, self._layout = size, scale, layout
        self.keyboard = self.mouse = self._toplevels = None
        self._owners = {}

    def _come_up(self):
        self.environment.update(XDG_SESSION_TYPE="wayland", XDG_CURRENT_DESKTOP="labwc:wlroots")
        self._start_bus()
        self._start_accessibility_bus()
        self.start_compositor()

    def _closers(self):
        return [*super()._closers(), self._disconnect]

    def _disconnect(self):
        for connection in (self.keyboard, self.mouse, self._toplevels):
            if connection:
                connection.close()
        self.keyboard = self.mouse = self._toplevels = None

    def start_compositor(self):
        """Part of coming up; called again by whoever has stopped `compositor_process`."""
        self._disconnect()
        self._owners.clear()
        folder = self.directory / "labwc"
        folder.mkdir(exist_ok=True)
        told, script = folder / "told", folder / "tell"
        told.unlink(missing_ok=True)
        places = "".join(LABWC_PLACE.format(title=title, x=x, y=y, width=width or "", height=height or "")
                         for title, (x, y, width, height) in PLACES.items())
        (folder / "rc.xml").write_text(LABWC_CONFIGURATION.format(
            hot_key_command=xml.sax.saxutils.escape(self._hot_key_command), places=places))
        script.write_text(f'#!/bin/sh\nprintf "%s\\n" "$WAYLAND_DISPLAY" "$DISPLAY" "." >{shlex.quote(str(told))}\n')
        script.chmod(0o755)
        environment = dict(self.environment, WLR_BACKENDS="headless", WLR_LIBINPUT_NO_DEVICES="1",
                           WLR_RENDERER="pixman", XKB_DEFAULT_LAYOUT=self._layout)
        for stale in ("WAYLAND_DISPLAY", "DISPLAY"):
            environment.pop(stale, None)
        if not self._with_xwayland:
            environment["WLR_XWAYLAND"] = "/bin/false"
        process = self.compositor_process = self.start(
            "labwc", ["labwc", "-C", folder, "-s", script], environment=environment, death_signal="TERM")

        def answers():
            if not process.is_running():
                raise RuntimeError(f"labwc has ended: {process.stderr()}")
            return told.read_text().splitlines() if told.exists() and told.read_text().endswith("\n.\n") else None

        wayland, display = wait_until(answers, START_SECONDS, lambda: f"labwc: {process.stderr()}")[:2]
        self.environment["WAYLAND_DISPLAY"] = wayland
        self.environment.pop("DISPLAY", None)
        if self._with_xwayland:
            self.environment["DISPLAY"] = display
        self.set_screen(self._scale)
        self._toplevels = Toplevels(self.environment)
        self.keyboard = VirtualKeyboard(self.environment, self._layout)
        self.mouse = VirtualMouse(self.environment, self._size)
        self.clipboard = WaylandClipboard(self)

    def set_screen(self, scale):
        """As the user's settings do: it has as many points as before."""
        self._scale = scale
        heads, serials, answers = [], [], []
        with contextlib.closing(Client(self.environment)) as client:
            manager = client.bind("zwlr_output_manager_v1")
            manager.handlers = {HEAD: lambda event: heads.append(event.new_object()),
                                DONE: lambda event: serials.append(event.integer())}
            wait_until(lambda: client.round_trip() or serials, START_SECONDS, "labwc to tell of its screen")
            configuration = client.new()
            configuration.handlers = {answer: lambda _, answer=answer: answers.append(answer)
                                      for answer in (SUCCEEDED, FAILED, CANCELLED)}
            manager.send(CREATE_CONFIGURATION, configuration, serials[-1])
            head = client.new()
            configuration.send(ENABLE_HEAD, head, heads[0])
            head.send(SET_CUSTOM_MODE, *self._pixels(), 0)
            head.send(SET_SCALE, round(scale * WHOLE))
            configuration.send(APPLY)
            wait_until(lambda: client.round_trip() or answers, START_SECONDS, "labwc to take the screen's settings")
        if answers != [SUCCEEDED]:
            raise RuntimeError(f"labwc refuses the scale {scale}")

    # The screen

    def _pixels(self):
        return [round(points * self._scale) for points in self._size]

    def windows(self):
        described = [self._described(toplevel) for toplevel in self._toplevels.look()]
        popover = self._popover()
        return [*described, *([popover] if popover else [])]

    def _described(self, toplevel):
        x, y, width, height = PLACES.get(toplevel.title, (0, 0, 0, 0))
        if _is_popover(toplevel):
            x, y, width, height = self._centred(*POPOVER_SIZE)
        if FULL_SCREEN in toplevel.states:
            x, y, (width, height) = 0, 0, self._size
        return Window(toplevel.number, toplevel.title, self._owner(toplevel), toplevel.application, x, y, width, height,
                      MINIMIZED not in toplevel.states)

    def _centred(self, width, height):
        """labwc puts a window there of which it is told nothing."""
        return (self._size[0] - width) // 2, (self._size[1] - height) // 2, width, height

    def _owner(self, toplevel):
        if toplevel.application == PROGRAM_ID:
            return self._program_pid()
        if toplevel.number not in self._owners:
            self._owners[toplevel.number] = next(
                child.pid for child in reversed(self._children) if child.name not in ("zamber", "wl-copy"))
        return self._owners[toplevel.number]

    def _program_pid(self):
        return next((child.pid for child in reversed(self._children) if child.name == "zamber" and child.is_running()), 0)

    def _popover(self):
        pid = 0 if any(map(_is_popover, self._toplevels.look())) else self._program_pid()
        card = self._what_is_seen_at_the_right() if pid else None
        if not card:
            return None
        x, y, width, height = (length / self._scale for length in card)
        left, top, right, bottom = SHADOW
        return Window(0, "Zamber", pid, PROGRAM_ID, round(x) - left, round(y) - top, round(width) + left + right,
                      round(height) + top + bottom, True)

    def _what_is_seen_at_the_right(self):
        path, start = self.screenshot(self.directory / "look.png"), round(OTHERS_END * self._scale)
        width, height = self._pixels()
        answer = subprocess.run(
            ["convert", path, "-crop", f"{width - start}x{height}+{start}+0", "+repage", "-bordercolor", "black", "-border",
             "1", "-format", "%@", "info:"], capture_output=True, text=True, check=False, timeout=START_SECONDS)
        found = re.fullmatch(r"(\d+)x(\d+)\+(\d+)\+(\d+)", answer.stdout)
        width, height, x, y = map(int, found.groups()) if found else (0, 0, 0, 0)
        return (x - 1 + start, y - 1, width, height) if width > 1 and height > 1 else None

    def windows_of_x(self):
        """Those of XWayland's that are seen."""
        with contextlib.closing(connect(self.environment["DISPLAY"])) as connection:
            return shown_windows(connection)

    def focused_window(self):
        popover = self._popover()
        if popover and self._has_keyboard(popover):
            return popover
        return next((self._described(toplevel) for toplevel in self._toplevels.look() if ACTIVATED in toplevel.states),
                    None)

    active_window = focused_window

    def _has_keyboard(self, popover):
        tree = self.accessibility.tree(popover.pid)
        return tree is not None and any(child.name == "Zamber" and "active" in child.states for child in tree.children)

    def wait_until_active(self, window, timeout=5.0):
        def is_active():
            focus = self.focused_window()
            return focus and focus.id == window.id

        wait_until(is_active, timeout, lambda: f"{window.title!r} to be active; it is {self.focused_window()}")

    def activate(self, window):
        self._toplevels.activate(window.id)
        self.wait_until_active(window)

    def fill_screen(self, window):
        """Has the window fill the screen, over panels, as its program would."""
        self._toplevels.fill_screen(window.id)

    def screenshot(self, path):
        subprocess.run(["grim", str(path)], env=self.environment, check=True, timeout=START_SECONDS)
        return path


def _is_popover(toplevel):
    """Is it the popover as an ordinary window of Wayland's?"""
    return (toplevel.title, toplevel.application) == ("Zamber", PROGRAM_ID)
