# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Private desktops to try desktop programs on.

A `PrivateDesktop` is an X server of its own with session bus, accessibility bus, window manager, tray and folders;
it shares nothing with whoever is logged in, and leaves nothing behind. A `SwayDesktop`, a `KWinDesktop`, a `LabwcDesktop`
and a `GnomeDesktop` are the same on Wayland. `Zamber` is the program inside. Works with Debian's own Python, python3-xlib
and python3-gi; needs no test framework.

    from harness import PrivateDesktop, Zamber

    with PrivateDesktop(compositor="picom") as desktop:
        zamber = Zamber(desktop)
        zamber.write_history("first", "second")
        zamber.start()
        zamber.open_popover()
        desktop.screenshot("popover.png")

From a shell, with this folder's parent as working directory: python3 -m harness [options] -- COMMAND …
"""

from .clipboard import PARTNERS, Begun, Clipboard, SelectionOwner, WaylandOwner
from .desktop import PrivateDesktop
from .gnome import GnomeDesktop
from .input_method import InputMethod
from .keyboard import ALT, CONTROL, KEY_CODES, LOCK, NUM, SHIFT, SUPER
from .kwin import KWinDesktop
from .labwc import LabwcDesktop
from .notifier import NotifierHost
from .partners import Browser, DesktopPart, Editor, Foot, Gvim, LineEdit, Mousepad, Partner, SessionManager, Terminal
from .portal import DesktopPortal, GtkPortal, SettingsPortal, XSettings
from .processes import Child
from .recorder import KeyEvent, Recorder
from .screen import convert, mean_color, pixels, png_bytes
from .sway import SwayDesktop
from .waiting import WaitTimeout, holds_for, wait_until
from .windows import Window
from .zamber import Zamber, default_binary

__all__ = [
    "ALT", "Begun", "Browser", "CONTROL", "Child", "Clipboard", "DesktopPart", "DesktopPortal", "Editor", "Foot",
    "GnomeDesktop", "GtkPortal", "Gvim", "InputMethod", "KEY_CODES", "KWinDesktop", "KeyEvent", "LOCK", "LabwcDesktop",
    "LineEdit", "Mousepad", "NUM", "NotifierHost", "PARTNERS", "Partner", "PrivateDesktop", "Recorder", "SHIFT",
    "SUPER", "SelectionOwner", "SessionManager", "SettingsPortal", "SwayDesktop", "Terminal", "WaitTimeout",
    "WaylandOwner", "Window", "XSettings", "Zamber", "convert", "default_binary", "holds_for", "mean_color", "pixels",
    "png_bytes", "wait_until",
]
