# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Runs a command in a private desktop and ends with its exit status."""

import argparse
import os
import signal
import subprocess
import sys

from .desktop import COMPOSITORS, TRAYS, WINDOW_MANAGERS, PrivateDesktop
from .sway import SwayDesktop

TIMED_OUT = 124


def main(arguments=None):
    parser = argparse.ArgumentParser(
        prog="private_desktop", description=__doc__,
        epilog=f"The exit status is the command's, 128 + n when signal n ended it, {TIMED_OUT} when its time was up.",
    )
    parser.add_argument("--sway", action="store_true", help="a Wayland desktop with XWayland instead of an X server")
    parser.add_argument("--window-manager", choices=WINDOW_MANAGERS, default="openbox")
    parser.add_argument("--tray", choices=TRAYS, help="tint2 where there is a window manager")
    parser.add_argument("--compositor", choices=COMPOSITORS, default="none")
    parser.add_argument("--no-accessibility", action="store_true", help="do without the accessibility bus")
    parser.add_argument("--layout", default="us", help="keyboard layouts, as setxkbmap names them")
    parser.add_argument("--size", default="1280x800", help="of the screen, in pixels")
    parser.add_argument("--timeout", type=float, default=600.0, help="seconds until the command is ended")
    parser.add_argument("command", nargs="+", metavar="COMMAND", help="after --")
    options = parser.parse_args(arguments)

    # Being asked to end is leaving the desktop the ordinary way, with all that is cleared up then.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    size = tuple(map(int, options.size.split("x")))
    common = {"accessibility": not options.no_accessibility, "layout": options.layout, "size": size}
    with SwayDesktop(**common) if options.sway else PrivateDesktop(
        window_manager=options.window_manager, tray=options.tray, compositor=options.compositor, **common
    ) as desktop:
        guarded = ["/usr/bin/setpriv", "--pdeathsig", "KILL", "--", *options.command]
        process = subprocess.Popen(guarded, env=_environment(desktop))
        try:
            status = process.wait(options.timeout)
        except subprocess.TimeoutExpired:
            print(f"ended after {options.timeout:g} s: {' '.join(options.command)}", file=sys.stderr)
            status = TIMED_OUT
        finally:
            if process.poll() is None:
                process.kill()
                process.wait()
    return 128 - status if status < 0 else status


def _environment(desktop):
    """The command sees the caller's variables, those of the desktop before them, and none of the caller's session."""
    foreign = ("WAYLAND_DISPLAY", "WAYLAND_SOCKET", "DESKTOP_STARTUP_ID", "SESSION_MANAGER", "XDG_CURRENT_DESKTOP",
               "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "GTK_MODULES")
    environment = {name: value for name, value in os.environ.items() if name not in foreign}
    environment.update(desktop.environment)
    environment["PATH"] = os.environ.get("PATH", desktop.environment["PATH"])
    return environment


if __name__ == "__main__":
    sys.exit(main())
