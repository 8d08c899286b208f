# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A whole GNOME: its shell without a screen, with XWayland beside it and GNOME's own portals."""

import contextlib
import json
import pathlib

from gi.repository import Gio, GLib

from .authority import authority_in_environment
from .clipboard import Clipboard
from .configurations import SYSTEM_BUS_CONFIGURATION
from .installed import install_entry
from .keyboard import HandsOnKeys, key_code
from .portal import PORTAL
from .portal import START_SECONDS as PORTAL_SECONDS
from .session import START_SECONDS, PrivateSession
from .virtual_input import Layout
from .waiting import wait_until
from .windows import Window
from .x_connection import connect

SOCKETS_OF_X = pathlib.Path("/tmp/.X11-unix")
ANSWER_MS = 10_000
EVDEV_OFFSET = 8  # X's key codes are the kernel's and eight more
GNOME_BACKEND = "org.freedesktop.impl.portal.desktop.gnome"
DESKTOP_VARIABLES = ("WAYLAND_DISPLAY", "DISPLAY", "XAUTHORITY", "XDG_CURRENT_DESKTOP", "GSETTINGS_BACKEND",
                     "DBUS_SYSTEM_BUS_ADDRESS")
LISTED_WINDOW = """({id: w.get_id(), title: w.get_title() || '', pid: w.get_pid(), class: w.get_wm_class() || '',
    place: (r => [r.x, r.y, r.width, r.height])(w.get_frame_rect()), visible: !w.minimized && a.visible})"""


class Shell:
    """Asks GNOME's shell, which runs in its unsafe mode, and moves its keyboard and mouse."""

    def __init__(self, address):
        self._bus = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None,
            None)

    def call(self, path, interface, method, arguments=None):
        return self._bus.call_sync("org.gnome.Shell", path, interface, method, arguments, None,
                                   Gio.DBusCallFlags.NO_AUTO_START, ANSWER_MS, None).unpack()

    def evaluate(self, script):
        is_done, answer = self.call("/org/gnome/Shell", "org.gnome.Shell", "Eval", GLib.Variant("(s)", (script,)))
        if not is_done:
            raise RuntimeError(f"the shell says {answer!r} to {script!r}")
        return json.loads(answer) if answer else None

    def close(self):
        self._bus.close_sync(None)


class ShellKeyboard(HandsOnKeys):
    """Keys by a device of the shell's own making, which programs and the shell cannot tell from a real one. US layout."""

    def __init__(self, shell):
        self._shell = shell
        self._held = set()
        self._layout = Layout("us")
        shell.evaluate("""
            globalThis.hands = (({Clutter, GLib}) => {
                const seat = Clutter.get_default_backend().get_default_seat();
                return {keys: seat.create_virtual_device(Clutter.InputDeviceType.KEYBOARD_DEVICE),
                        mouse: seat.create_virtual_device(Clutter.InputDeviceType.POINTER_DEVICE),
                        now: () => GLib.get_monotonic_time()};
            })(imports.gi); null""")

    def press(self, *keys):
        for key in keys:
            self._turn(key_code(key), True)

    def release(self, *keys):
        for key in keys:
            self._turn(key_code(key), False)

    def _turn(self, code, is_down):
        (self._held.add if is_down else self._held.discard)(code)
        self._shell.evaluate(f"hands.keys.notify_key(hands.now(), {code - EVDEV_OFFSET}, {int(is_down)}); null")

    def _find(self, character):
        return self._layout.find(character)

    def held_keys(self):
        return set(self._held)


class ShellMouse:
    def __init__(self, shell):
        self._shell = shell

    def move(self, x, y):
        self._shell.evaluate(f"hands.mouse.notify_absolute_motion(hands.now(), {int(x)}, {int(y)}); null")

    def press(self, button=1):
        self._turn(button, 1)

    def release(self, button=1):
        self._turn(button, 0)

    def click(self, x, y, button=1):
        self.move(x, y)
        self.press(button)
        self.release(button)

    def _turn(self, button, state):
        self._shell.evaluate(f"hands.mouse.notify_button(hands.now(), {button}, {state}); null")


class GnomeDesktop(PrivateSession):
    """As `PrivateDesktop`, with the same questions and hands. `clipboard` and `display` are XWayland's.

    The portals know a program by its desktop entry; the programs in `installed` get the one that installing writes."""

    window_manager = "gnome-shell"
    bus_services = ("org.a11y.Bus", "org.freedesktop.impl.portal.PermissionStore",
                    "org.gnome.Settings.GlobalShortcutsProvider")

    def __init__(self, *, size=(1280, 800), installed=()):
        super().__init__()
        self._size, self._installed = size, installed
        self.shell = self.keyboard = self.mouse = self.display = None

    def _come_up(self):
        self.environment.update(XDG_SESSION_TYPE="wayland", XDG_CURRENT_DESKTOP="GNOME", GSETTINGS_BACKEND="keyfile")
        self._start_bus()
        self._start_system_bus()
        self._start_accessibility_bus()
        for program in self._installed:
            install_entry(self, program)
        self.run(["gsettings", "set", "org.gnome.desktop.interface", "enable-animations", "false"])
        self.start_compositor()
        self._start_portals()

    def _closers(self):
        return [*super()._closers(), self._disconnect]

    def _disconnect(self):
        for connection in (self.shell, self.display):
            if connection:
                connection.close()
        self.shell = self.keyboard = self.mouse = self.display = None

    def _start_system_bus(self):
        """With a stand-in for logind, without which the shell does not start."""
        configuration, socket = self.directory / "system-bus.conf", self.runtime_folder / "system-bus"
        configuration.write_text(SYSTEM_BUS_CONFIGURATION.format(socket=socket))
        self.start("system-bus", ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"])
        wait_until(socket.exists, START_SECONDS, "the system bus")
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={socket}"
        login = self.start("logind", ["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind"])
        wait_until(lambda: "true" in self.run(
            ["gdbus", "call", "--system", "-d", "org.freedesktop.DBus", "-o", "/", "-m",
             "org.freedesktop.DBus.NameHasOwner", "org.freedesktop.login1"]), START_SECONDS,
            lambda: f"logind: {login.stderr()}")

    def start_compositor(self):
        with contextlib.suppress(FileExistsError):
            SOCKETS_OF_X.mkdir()
            SOCKETS_OF_X.chmod(0o1777)  # the shell would make it as its umask has it, and then refuse it
        process = self.compositor_process = self.start(
            "gnome-shell",
            ["gnome-shell", "--headless", "--wayland", "--wayland-display", "wayland-gnome", "--unsafe-mode",
             "--virtual-monitor", "{}x{}".format(*self._size)], death_signal="TERM")

        def answers():
            if not process.is_running():
                raise RuntimeError(f"gnome-shell has ended: {process.stderr()}")
            try:
                return not self.shell.evaluate("Main.layoutManager._startingUp")
            except GLib.Error:
                return False

        self.shell = Shell(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        wait_until(answers, START_SECONDS * 2, lambda: f"gnome-shell: {process.stderr()}")
        self.shell.evaluate("Main.overview.hide(); null")
        wait_until(lambda: not self.shell.evaluate("Main.overview.visible"), START_SECONDS, "the overview to be gone")
        self.environment["WAYLAND_DISPLAY"] = "wayland-gnome"
        self.environment["DISPLAY"] = self.shell.evaluate("imports.gi.GLib.getenv('DISPLAY')")
        authority = next(self.runtime_folder.glob(".mutter-Xwaylandauth.*"))
        self.environment["XAUTHORITY"] = str(authority)
        self.keyboard, self.mouse = ShellKeyboard(self.shell), ShellMouse(self.shell)
        with authority_in_environment(str(authority)):
            self.display = connect(self.environment["DISPLAY"])
        self.clipboard = Clipboard(self)

    def _start_portals(self):
        # The bus starts the dialogs' programs, with what it has been told of the desktop.
        told = [f"{name}={self.environment[name]}" for name in DESKTOP_VARIABLES]
        self.run(["dbus-update-activation-environment", *told])
        for name, bus_name in (("xdg-desktop-portal-gnome", GNOME_BACKEND), ("xdg-desktop-portal", PORTAL)):
            child = self.start(name, [f"/usr/libexec/{name}"])
            wait_until(lambda bus_name=bus_name: self.bus_name_has_owner(bus_name), PORTAL_SECONDS,
                       lambda child=child: f"{child.name}: {child.stderr()}")

    # The screen

    def windows(self):
        listed = self.shell.evaluate(
            f"global.get_window_actors().map(a => [a, a.meta_window]).map(([a, w]) => {LISTED_WINDOW})")
        return [_window(window) for window in listed]

    def active_window(self):
        listed = self.shell.evaluate("(w => w && (a => " + LISTED_WINDOW +
                                     ")(w.get_compositor_private()))(global.display.focus_window) || null")
        return _window(listed) if listed else None

    focused_window = active_window

    def wait_until_active(self, window, timeout=5.0):
        def is_active():
            focus = self.focused_window()
            return focus and focus.id == window.id

        wait_until(is_active, timeout, lambda: f"{window.title!r} to be active; it is {self.focused_window()}")

    def activate(self, window):
        self.shell.evaluate(f"global.get_window_actors().find(a => a.meta_window.get_id() == {window.id})"
                            ".meta_window.activate(global.get_current_time()); null")
        self.wait_until_active(window)

    def open_portal_sessions(self):
        """The sessions that programs have with the portals."""
        described = self.run(["gdbus", "introspect", "--session", "--recurse", "-d", PORTAL, "-o",
                              "/org/freedesktop/portal/desktop/session"])
        return described.count("interface org.freedesktop.portal.Session ")

    def screenshot(self, path):
        done, _ = self.shell.call("/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot", "Screenshot",
                                  GLib.Variant("(bbs)", (False, False, str(pathlib.Path(path).absolute()))))
        if not done:
            raise RuntimeError("the shell takes no picture")
        return path


def _window(listed):
    return Window(listed["id"], listed["title"], listed["pid"], listed["class"], *listed["place"], listed["visible"])
