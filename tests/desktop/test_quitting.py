# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program ends when it is told to, in the middle of any work: in order, with status 0."""

import pathlib
import re
import signal
import subprocess
import time

from case import PASTED_LINE, PASTING_LINE, DesktopTestCase
from harness import convert, png_bytes, wait_until

END_SECONDS = 5.0
# Around the delays of a paste (0.15 s and 0.35 s) and of the popover's coming and going.
MOMENTS = (0.0, 0.02, 0.06, 0.14, 0.16, 0.25, 0.34, 0.36, 0.45)


class QuittingTestCase(DesktopTestCase):
    history = ("first", "second", "third")
    preferences = {"quickPasteEnabled": True, "playSoundOnPaste": True}

    def start_again(self):
        if not self.zamber.is_running():
            self.expected_lines = []
            self.start_zamber()
            self.zamber_has_ended = False

    def assert_ends(self, moment, *lines, tell=signal.SIGTERM):
        """`lines` are those that may have been logged by then, in their order."""
        if tell is not None:
            self.zamber.child.process.send_signal(tell)
        try:
            status = self.zamber.child.wait(END_SECONDS)
        except subprocess.TimeoutExpired:
            self.fail(f"still running {END_SECONDS} s after the signal at {moment}")
        self.zamber_has_ended = True
        self.assertEqual(status, 0, f"at {moment}: {self.zamber.stderr_lines()}")
        self.assertEqual(self.zamber.stderr_lines(), [], moment)
        logged = self.zamber.stdout_lines()[len(self.expected_lines):]
        self.expected_lines += list(lines)[:len(logged)]
        self.assert_lines(self.zamber.stdout_lines(), self.expected_lines)
        self.keyboard.release_everything()

    def at_each_moment(self, act, *lines, moments=MOMENTS):
        for moment in moments:
            with self.subTest(moment=moment):
                self.start_again()
                act()
                time.sleep(moment)
                self.assert_ends(moment, *lines)


class QuittingTest(QuittingTestCase):
    def test_while_nothing_happens(self):
        for tell in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(tell):
                self.start_again()
                self.assert_ends("rest", tell=tell)

    def test_while_it_starts(self):
        for moment in (0.05, 0.08, 0.12, 0.2, 0.3, 0.5):
            with self.subTest(moment=moment):
                if self.zamber.is_running():
                    self.assert_ends("rest")
                environment = dict(self.desktop.environment, **self.zamber.environment)
                self.zamber.child = self.desktop.start("zamber", [self.zamber.binary], environment=environment)
                self.expected_lines = []
                self.wait_until_signals_are_taken()
                time.sleep(moment - 0.05)
                self.assert_ends(moment, "📋 Loaded 3 items from disk", self.ready_line)

    def wait_until_signals_are_taken(self):
        """Before its first instructions a signal can only kill it."""
        status = pathlib.Path(f"/proc/{self.zamber.pid}/status")

        def is_taken():
            caught = re.search(r"SigCgt:\s*(\w+)", status.read_text())
            return int(caught[1], 16) >> (signal.SIGTERM - 1) & 1

        wait_until(is_taken, what="the program to take signals")

    def test_after_an_entry_was_chosen(self):
        def act():
            self.zamber.open_popover()
            self.choose()

        self.at_each_moment(act, PASTING_LINE, PASTED_LINE)

    def test_while_a_paste_waits_for_the_modifiers(self):
        def act():
            self.zamber.open_popover()
            self.keyboard.press("Super_L", "Shift_L")
            self.choose()

        self.at_each_moment(act, PASTING_LINE, moments=(0.0, 0.1, 0.34, 0.4, 0.9))

    def test_after_a_quick_paste(self):
        self.at_each_moment(lambda: self.keyboard.chord("Super_L", "Shift_L", "2"), PASTED_LINE)

    def test_with_several_quick_pastes_waiting(self):
        def act():
            self.keyboard.play((0.0, "+Super_L"), (0.02, "+Shift_L"), (0.04, "+2"), (0.06, "-2"), (0.08, "+3"))

        self.at_each_moment(act, moments=(0.0, 0.1, 0.3))

    def test_while_the_popover_comes(self):
        self.at_each_moment(self.zamber.press_hot_key, moments=(0.0, 0.01, 0.03, 0.06, 0.1, 0.2, 0.4))

    def test_while_the_popover_goes(self):
        def act():
            self.zamber.open_popover()
            self.keyboard.tap("Escape")

        self.at_each_moment(act, moments=(0.0, 0.02, 0.1))

    def test_while_something_is_typed_into_the_search(self):
        def act():
            self.zamber.open_popover()
            self.keyboard.type_text("seco")

        self.at_each_moment(act, moments=(0.0, 0.05, 0.2))

    def test_while_the_settings_are_open(self):
        def act():
            self.zamber.open_popover()
            self.zamber.act(self.zamber.tree().all(name="Settings")[0], "Press")

        self.at_each_moment(act, moments=(0.0, 0.1, 0.4))

    def test_while_a_large_picture_is_taken_in(self):
        picture = self.desktop.directory / "large.bmp"
        picture.write_bytes(convert(png_bytes(2000, 1500), "png", "bmp"))
        self.at_each_moment(lambda: self.clipboard.copy_image(picture, "image/bmp"), moments=(0.0, 0.1, 0.3, 0.6))

    def test_while_the_history_is_about_to_be_saved(self):
        def act():
            self.clipboard.copy_text(f"a copy at {time.monotonic()}")

        self.at_each_moment(act, moments=(0.0, 0.4, 0.9, 1.4, 1.6))


class QuittingByTheMenuTest(QuittingTestCase):
    def open_menu(self):
        self.click_tray_icon(3)
        return wait_until(self.zamber.menu, what="the menu")

    def test_quit_in_the_menu_while_a_paste_is_under_way(self):
        for hold in (0.0, 0.1, 0.3):
            with self.subTest(hold=hold):
                self.start_again()
                self.zamber.open_popover()
                # The modifiers keep the paste waiting while the menu is used.
                self.keyboard.press("Super_L", "Shift_L")
                self.choose()
                self.open_menu()
                time.sleep(hold)
                self.keyboard.release("Super_L", "Shift_L")
                self.keyboard.type_text("q")
                self.assert_ends(f"menu {hold}", PASTING_LINE, PASTED_LINE, tell=None)

    def test_a_signal_while_the_menu_is_open(self):
        for moment in (0.0, 0.1, 0.5):
            with self.subTest(moment=moment):
                self.start_again()
                self.open_menu()
                time.sleep(moment)
                self.assert_ends(moment)

    def test_a_signal_while_a_rows_menu_is_open(self):
        for moment in (0.0, 0.3):
            with self.subTest(moment=moment):
                self.start_again()
                self.zamber.open_popover()
                row = wait_until(lambda: self.zamber.tree().all(role="list item"), what="rows")[1]
                self.desktop.mouse.click(*row.centre, 3)
                time.sleep(moment)
                self.assert_ends(moment)
