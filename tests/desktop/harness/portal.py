# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Where desktops say how they want to look: a settings portal, a stand-in or the real one, and XSETTINGS."""

import json
import signal
import subprocess

from .clipboard import PARTNERS
from .waiting import wait_until

START_SECONDS = 15.0
PORTAL = "org.freedesktop.portal.Desktop"
GTK_BACKEND = "org.freedesktop.impl.portal.desktop.gtk"


class SettingsPortal:
    """Answers with the given settings. Values are GVariants in text form; the portal does not know any other setting."""

    def __init__(self, desktop):
        self.child = desktop.start("settings_portal", ["/usr/bin/python3", PARTNERS / "settings_portal.py"],
                                   stdin=subprocess.PIPE)
        self._answers = 0
        self._wait_for_answer()

    def set(self, group, key, value):
        """For programs that ask from now on."""
        self._command("set", group, key, value)

    def change(self, group, key, value):
        """Changes a setting and sends the portal's signal."""
        self._command("change", group, key, value)

    def forget(self):
        """Knows nothing any more."""
        self._command("forget")

    def _command(self, *words):
        self.child.process.stdin.write(json.dumps(words).encode() + b"\n")
        self.child.process.stdin.flush()
        self._wait_for_answer()

    def _wait_for_answer(self):
        self._answers += 1
        wait_until(lambda: len(self.child.stdout_lines()) >= self._answers, START_SECONDS,
                   lambda: f"the stand-in portal: {self.child.stderr()}")


class DesktopPortal:
    """Global shortcuts, remote control, and a user who answers the dialogs: partners/desktop_portal.py."""

    def __init__(self, desktop, **behaviour):
        self._desktop = desktop
        self.child = desktop.start("desktop_portal", ["/usr/bin/python3", PARTNERS / "desktop_portal.py"],
                                   stdin=subprocess.PIPE)
        self._answers = 0
        self._next_answer()
        for name, value in behaviour.items():
            self.set(name, value)

    def set(self, name, value):
        """Another behaviour from now on."""
        self._ask("set", name, value)

    def press(self, shortcut):
        self._ask("press", shortcut)

    def release(self, shortcut):
        self._ask("release", shortcut)

    def unassign(self, shortcut):
        """The user takes the shortcut's keys away in the desktop's settings."""
        self._ask("unassign", shortcut)

    def record(self):
        """What has been asked of the portals, oldest first."""
        return self._ask("record")

    def open_sessions(self):
        return self._ask("open sessions")

    def wait_for_record(self, *expected, timeout=6.0):
        """Until the last things asked are just these."""
        wait_until(lambda: self.record()[-len(expected):] == list(expected), timeout,
                   lambda: f"{expected}; recorded is {self.record()}")

    def _ask(self, *words):
        self.child.process.stdin.write(json.dumps(words).encode() + b"\n")
        self.child.process.stdin.flush()
        return self._next_answer()

    def _next_answer(self):
        self._answers += 1
        wait_until(lambda: len(self.child.stdout_lines()) >= self._answers, START_SECONDS,
                   lambda: f"the stand-in portals: {self.child.stderr()}")
        return json.loads(self.child.stdout_lines()[self._answers - 1])


class GtkPortal:
    """xdg-desktop-portal with its GTK backend, which reads GNOME's settings."""

    def __init__(self, desktop):
        self._desktop = desktop
        # Settings in memory are this process's alone; other processes see those in a file.
        desktop.environment.update(GSETTINGS_BACKEND="keyfile", XDG_CURRENT_DESKTOP="GNOME")
        for name, bus_name in (("xdg-desktop-portal-gtk", GTK_BACKEND), ("xdg-desktop-portal", PORTAL)):
            child = desktop.start(name, [f"/usr/libexec/{name}"])
            wait_until(lambda bus_name=bus_name: desktop.bus_name_has_owner(bus_name), START_SECONDS,
                       lambda child=child: f"{child.name}: {child.stderr()}")

    def change(self, key, value):
        """A setting of GNOME's, as its own settings program changes it."""
        self._desktop.run(["gsettings", "set", "org.gnome.desktop.interface", key, value])


class XSettings:
    """The settings that GTK programs take their theme from, as XFCE's settings daemon gives them."""

    def __init__(self, desktop, theme):
        self._path = desktop.directory / "xsettingsd.conf"
        self._write(theme)
        self.child = desktop.start("xsettingsd", ["xsettingsd", "-c", self._path])
        wait_until(lambda: desktop.selection_owner("_XSETTINGS_S0"), START_SECONDS,
                   lambda: f"xsettingsd: {self.child.stderr()}")

    def change_theme(self, theme):
        self._write(theme)
        self.child.process.send_signal(signal.SIGHUP)

    def _write(self, theme):
        self._path.write_text(f'Net/ThemeName "{theme}"\nNet/IconThemeName "Adwaita"\n')
