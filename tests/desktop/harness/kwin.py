# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A whole Plasma-like desktop that nobody else sees: KWin in the one window of a private X server, whose keyboard and
mouse are the user's hands."""

import contextlib
import os
import shutil
import subprocess

from Xlib import X

from .authority import authority_in_environment
from .configurations import KWIN_KEYBOARD_CONFIGURATION, KWIN_MENU_CONFIGURATION
from .desktop import PrivateDesktop
from .installed import install_entry
from .plasma_windows import PlasmaWindows
from .screen import screenshot
from .session import START_SECONDS
from .waiting import wait_until
from .wayland_clipboard import WaylandClipboard
from .windows import shown_windows
from .wire import Client
from .x_connection import connect

PYTHON = os.readlink("/proc/self/exe")
SILENCE_SECONDS = 2.0
CREATE_CONFIGURATION = 0  # the requests and events of KWin's protocol for the settings of screens
SET_SCALE, APPLY = 4, 5
APPLIED, FAILED = 0, 1
WHOLE = 256  # of Wayland's numbers with a fraction


class _KWinClipboard(WaylandClipboard):
    """KWin says nothing to a program that asks what is on an empty clipboard, and nothing of a dead owner of X."""

    def read(self, target="text/plain;charset=utf-8", timeout=SILENCE_SECONDS):
        try:
            return super().read(target, timeout)
        except subprocess.TimeoutExpired:
            return None

    def targets(self, timeout=SILENCE_SECONDS):
        try:
            return super().targets(timeout)
        except subprocess.TimeoutExpired:
            return []


class KWinDesktop(PrivateDesktop):
    """As `PrivateDesktop`, with the same questions and hands. `display`, `keyboard` and `mouse` are those of the X
    server around KWin; programs get the display of the XWayland inside.

    KWin lets only those programs see windows and type whose desktop entry asks for it. The programs in `installed` get
    the entry that installing writes; the tests' own Python may see the windows. `size`, of each of the `screens`, which
    stand side by side, is in pixels; places of windows are in points, of which one is `scale` pixels."""

    def __init__(self, *, size=(1280, 800), accessibility=True, layout="us", installed=(), xwayland=True, scale=1,
                 screens=1):
        super().__init__(window_manager="none", size=size, accessibility=accessibility)
        self._layouts, self._with_xwayland, self._scale = layout, xwayland, scale
        self._installed, self._screens = installed, screens
        self._plasma_windows = None

    def _come_up(self):
        super()._come_up()
        self.window_manager = "kwin"
        self._outside = dict(self.environment)
        # KWin gets key events only while the key is down, as from a real keyboard.
        self.display.change_keyboard_control(auto_repeat_mode=X.AutoRepeatModeOff)
        self._configure()
        self.start_kwin()

    def _closers(self):
        connection, self._plasma_windows = self._plasma_windows, None
        return [*super()._closers(), *([connection.close] if connection else [])]

    def _configure(self):
        self.environment.update(XDG_SESSION_TYPE="wayland", XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")
        (self.config_home / "kxkbrc").write_text(KWIN_KEYBOARD_CONFIGURATION.format(layouts=self._layouts))
        menus = self.directory / "no-config" / "menus"
        menus.mkdir()
        for name in ("kf5-applications.menu", "applications.menu"):  # of KDE's libraries 5 and 6
            (menus / name).write_text(KWIN_MENU_CONFIGURATION)
        entries = self.data_home / "applications"
        entries.mkdir()
        # By this name it replaces Debian's own entry: of two entries of one program KWin takes any.
        (entries / f"{os.path.basename(PYTHON)}.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Tests\nExec={PYTHON}\nNoDisplay=true\n"
            "X-KDE-Wayland-Interfaces=org_kde_plasma_window_management\n")
        for program in self._installed:
            install_entry(self, program)

    def start_kwin(self):
        """Part of coming up; called again by whoever has stopped `compositor_process`."""
        if self._plasma_windows:
            self._plasma_windows.close()
            self._plasma_windows = None
        told, script = self.directory / "kwin-told", self.directory / "kwin-tells"
        told.unlink(missing_ok=True)
        script.write_text(f'#!/bin/sh\nprintf "%s\\n" "$WAYLAND_DISPLAY" "$DISPLAY" "$XAUTHORITY" "." >{told}\n')
        script.chmod(0o755)
        # The installed file has a capability, which some containers refuse, and which ends the death signal.
        program = self.directory / "kwin_wayland"
        if not program.exists():
            shutil.copyfile(shutil.which("kwin_wayland"), program)
            program.chmod(0o755)
        environment = dict(self.environment, KWIN_COMPOSE="Q", DISPLAY=self.display_name,
                           XAUTHORITY=self._outside["XAUTHORITY"])
        environment.pop("WAYLAND_DISPLAY", None)
        width, height = (round(pixels / self._scale) for pixels in self._size)
        process = self.compositor_process = self.start(
            "kwin", [program, "--x11-display", self.display_name, "--width", width, "--height", height,
                     "--scale", self._scale, "--output-count", self._screens, "--no-lockscreen", *(["--xwayland"] if self._with_xwayland else []),
                     "--socket", "wayland-kwin", script],
            environment=environment, death_signal="TERM")

        def answers():
            if not process.is_running():
                raise RuntimeError(f"kwin has ended: {process.stderr()}")
            return told.read_text().splitlines() if told.exists() and told.read_text().endswith("\n.\n") else None

        wayland, display, authority = wait_until(answers, START_SECONDS, lambda: f"kwin: {process.stderr()}")[:3]
        self.environment["WAYLAND_DISPLAY"] = wayland
        if self._with_xwayland:
            self.environment["DISPLAY"] = display
        else:
            self.environment.pop("DISPLAY", None)
        if authority:
            self.environment["XAUTHORITY"] = authority
        else:  # whoever is the same user may connect
            self.environment.pop("XAUTHORITY", None)
        if self._scale != 1:
            self._set_scale()
        self._plasma_windows = PlasmaWindows(self.environment)
        self.clipboard = _KWinClipboard(self)

    def _set_scale(self):
        """As the system's settings do: KWin 6 does not heed the scale that it is started with."""
        answers = []
        with contextlib.closing(Client(self.environment)) as client:
            screen, management = client.bind("kde_output_device_v2"), client.bind("kde_output_management_v2")
            configuration = client.new()
            configuration.handlers = {answer: lambda _, answer=answer: answers.append(answer)
                                      for answer in (APPLIED, FAILED)}
            management.send(CREATE_CONFIGURATION, configuration)
            configuration.send(SET_SCALE, screen, round(self._scale * WHOLE))
            configuration.send(APPLY)
            wait_until(lambda: client.round_trip() or answers, START_SECONDS, "KWin to take the scale")
        if answers != [APPLIED]:
            raise RuntimeError(f"KWin refuses the scale {self._scale}")

    # The screen

    def windows(self):
        return [window for window, _ in self._plasma_windows.look()]

    def windows_of_x(self):
        """Those of XWayland's that are seen."""
        authority = self.environment.get("XAUTHORITY")
        with authority_in_environment(authority) if authority else contextlib.nullcontext():
            connection = connect(self.environment["DISPLAY"])
        with contextlib.closing(connection):
            return shown_windows(connection)

    def active_window(self):
        return next((window for window, is_active in self._plasma_windows.look() if is_active), None)

    focused_window = active_window

    def activate(self, window):
        self._plasma_windows.activate(window)
        self.wait_until_active(window)

    def fill_screen(self, window):
        """Has the window fill the screen, over panels, as its program would."""
        self._plasma_windows.fill_screen(window)

    def move_to_screen(self, number):
        """Moves the active window, which there has to be, to the screen of that number, the first being 0, as the user
        does by its menu."""
        script = self.directory / "move.js"
        script.write_text("const window = workspace.activeWindow || workspace.activeClient;\n"  # KWin 6's and 5's names
                          f"const screen = workspace.screens ? workspace.screens[{number}] : {number};\n"
                          "workspace.sendClientToScreen(window, screen);\n")
        call = ["gdbus", "call", "--session", "-d", "org.kde.KWin", "-o", "/Scripting", "-m"]
        self.run([*call, "org.kde.kwin.Scripting.loadScript", script, "move"])
        self.run([*call, "org.kde.kwin.Scripting.start"])
        self.run([*call, "org.kde.kwin.Scripting.unloadScript", "move"])

    def screenshot(self, path):
        return screenshot(self, path, environment=self._outside)

    # The keyboard

    def use_layout(self, number):
        """Chooses one of several layouts, the first being 0, as the user does by the indicator in the panel."""
        call = ["gdbus", "call", "--session", "-d", "org.kde.keyboard", "-o", "/Layouts", "-m"]
        self.run([*call, "org.kde.KeyboardLayouts.setLayout", number])
        wait_until(lambda: f" {number}," in self.run([*call, "org.kde.KeyboardLayouts.getLayout"]), what="the layout")
