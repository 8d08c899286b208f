# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Starting at login: the entry in the autostart folder, as the desktop reads it."""

import os
import pathlib
import re
import shutil

from case import DesktopTestCase
from harness import NotifierHost, wait_until
from harness.processes import pids_with_environment

ENABLED, DISABLED = "✅ Launch at Login: enabled", "✅ Launch at Login: disabled"
CHECKED, UNCHECKED = "✓ Launch at Login", "  Launch at Login"
LAUNCH = """
import sys
import gi
from gi.repository import Gio, GLib
Gio.DesktopAppInfo.new_from_filename(sys.argv[1]).launch([], None)
"""


class LoginItemTestCase(DesktopTestCase):
    tray = "none"

    def prepare(self):
        self.host = NotifierHost(self.desktop)

    def start_zamber(self):
        super().start_zamber()
        self.host.wait_for_item()

    def title(self):
        return self.host.open_menu()["lines"][2]["label"]

    def toggle(self, expected_line):
        self.host.choose(self.title())
        self.expected_lines.append(expected_line)
        self.wait_for_expected_lines()


class LoginItemTest(LoginItemTestCase):
    def test_switching_it_on_and_off(self):
        self.assertEqual(self.title(), UNCHECKED)
        self.toggle(ENABLED)
        self.assertEqual(self.title(), CHECKED)
        self.assertTrue(self.zamber.autostart_path().is_file())
        self.toggle(DISABLED)
        self.assertEqual(self.title(), UNCHECKED)
        self.assertFalse(self.zamber.autostart_path().exists())

    def test_the_entry_is_a_valid_one(self):
        self.toggle(ENABLED)
        self.assertEqual(self.desktop.run(["desktop-file-validate", self.zamber.autostart_path()]), "")

    def test_what_the_desktop_has_switched_off_is_off_and_can_be_switched_on_again(self):
        self.toggle(ENABLED)
        entry = self.zamber.autostart_path()
        for key in ("Hidden=true", "X-GNOME-Autostart-enabled=false"):
            with self.subTest(key):
                lines = [line for line in entry.read_text().splitlines() if line.split("=")[0] != key.split("=")[0]]
                entry.write_text("\n".join([*lines, key, ""]))
                self.assertEqual(self.title(), UNCHECKED)
                self.toggle(ENABLED)
                self.assertEqual(self.title(), CHECKED)

    def test_an_entry_that_somebody_deletes_is_gone(self):
        self.toggle(ENABLED)
        self.zamber.autostart_path().unlink()
        self.assertEqual(self.title(), UNCHECKED)

    def test_a_folder_that_cannot_be_written_costs_a_line_and_changes_nothing(self):
        # A file where the folder should be keeps even the superuser from writing.
        (self.desktop.config_home / "autostart").write_text("in the way")
        for _ in range(2):
            self.toggle(re.compile("❌ Launch at Login error: .+"))
            self.assertEqual(self.title(), UNCHECKED)


class OddPlaceTest(LoginItemTestCase):
    """The program lies in a folder whose name is full of characters with a meaning to shells and desktop entries."""

    def prepare(self):
        super().prepare()
        folder = pathlib.Path(self.desktop.directory) / "it's a \"folder\" $HOME `x` \\ 100% größe & ;"
        folder.mkdir()
        self.zamber.binary = pathlib.Path(shutil.copy(self.zamber.binary, folder / "zamber"))

    def test_the_entry_starts_the_program_that_wrote_it(self):
        self.toggle(ENABLED)
        self.assertEqual(self.title(), CHECKED)
        entry = self.zamber.autostart_path()
        self.assertEqual(self.desktop.run(["desktop-file-validate", entry]), "")
        self.zamber.stop()
        self.zamber_has_ended = True
        launcher = self.desktop.start("launcher", ["/usr/bin/python3", "-c", LAUNCH, entry])
        self.assertEqual(launcher.wait(10), 0, launcher.stderr())
        wait_until(lambda: self.pids_of_the_program(), what="the program that the entry names")
        wait_until(lambda: self.host.ask(items=True), what="its item")

    def pids_of_the_program(self):
        return [pid for pid in pids_with_environment("XDG_RUNTIME_DIR", self.desktop.runtime_folder)
                if os.readlink(f"/proc/{pid}/exe") == str(self.zamber.binary)]
