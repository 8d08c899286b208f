# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The desktop's own shortcut, as the settings offer it: set and taken away by the user's switch alone."""

import pathlib
import re
import subprocess

from harness import wait_until
from test_settings import SettingsTestCase

SWITCH = "Use the desktop's own shortcut"
# What XFCE has written by the end of its first start.
SHORTCUTS = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="commands" type="empty">
    <property name="custom" type="empty">
      <property name="override" type="bool" value="true"/>
    </property>
  </property>
</channel>
"""


class DesktopShortcutTest(SettingsTestCase):
    """Under XFCE, with its real store of settings."""

    def prepare(self):
        folder = self.desktop.config_home / "xfce4" / "xfconf" / "xfce-perchannel-xml"
        folder.mkdir(parents=True)
        (folder / "xfce4-keyboard-shortcuts.xml").write_text(SHORTCUTS)
        service = pathlib.Path("/usr/share/dbus-1/services/org.xfce.Xfconf.service").read_text()
        self.desktop.start("xfconfd", [re.search("^Exec=(.+)$", service, re.MULTILINE)[1]])
        wait_until(lambda: self.desktop.bus_name_has_owner("org.xfce.Xfconf"), 10.0, "the store")
        # Qt takes GTK's look there, and GTK would be a second program to assistive technology, without windows.
        self.zamber.environment = dict(self.zamber.environment, XDG_CURRENT_DESKTOP="XFCE", NO_AT_BRIDGE="1")

    def command(self):
        """What the desktop would run; empty for nothing."""
        answer = subprocess.run(["xfconf-query", "-c", "xfce4-keyboard-shortcuts", "-p",
                                 "/commands/custom/<Shift><Super>v"], env=self.desktop.environment,
                                capture_output=True, text=True, check=False)
        return answer.stdout.strip()

    def open_shortcuts(self):
        self.open_from_menu()
        self.go_to_page("Shortcuts")

    def test_the_shortcut_comes_and_goes_with_the_switch_and_opens_the_history(self):
        self.open_shortcuts()
        self.assertEqual(self.command(), "", "set without having been asked")
        self.toggle(SWITCH)
        wait_until(self.command, 5.0, "the shortcut")
        self.desktop.run(["sh", "-c", self.command()])
        self.zamber.wait_for_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()

        self.open_from_menu()
        self.toggle(SWITCH)
        wait_until(lambda: not self.command(), 5.0, "the shortcut to be gone")

    def test_it_outlives_the_program(self):
        self.open_shortcuts()
        self.toggle(SWITCH)
        command = wait_until(self.command, 5.0, "the shortcut")
        self.zamber.stop()
        self.zamber_has_ended = True
        self.assertEqual(self.command(), command)


class NoDesktopShortcutTest(SettingsTestCase):
    def test_a_desktop_whose_shortcuts_are_not_known_is_offered_none(self):
        self.open_from_menu()
        self.go_to_page("Shortcuts")
        self.assertEqual(self.node().all(role="check box", name=SWITCH), [])
