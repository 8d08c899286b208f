# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Where the desktop has a clipboard manager, the last paste outlives the program."""

import json
import signal
import time

from case import DesktopTestCase
from harness import SessionManager, png_bytes, wait_until
from harness.clipboard import PARTNERS
from hostile import sha256

# How long quitting may take: the wait for a manager that hangs, and as much again for a busy machine.
LONGEST_END_SECONDS = 6.0


class ManagerTestCase(DesktopTestCase):
    picture = png_bytes(90, 60, seed=41)
    large = "".join(f"line {number} of many\n" for number in range(60000))
    history = (picture, large, "naïve words")
    manager_options = ()

    def prepare(self):
        self.manager = self.desktop.start(
            "clipboard_manager", ["/usr/bin/python3", PARTNERS / "clipboard_manager.py", *self.manager_options])
        wait_until(lambda: self.manager.stdout_lines() == ["ready"], 5.0, self.manager.stderr)

    def paste_and_quit(self, position):
        self.paste_entry(position)
        self.wait_for_expected_lines()
        return self.quit()

    def quit(self):
        """How many seconds the end has taken."""
        self.click_tray_icon(button=3)
        wait_until(self.zamber.menu, what="the menu")
        self.zamber_has_ended = True
        started = time.monotonic()
        self.keyboard.type_text("q")
        self.assertEqual(self.zamber.child.wait(LONGEST_END_SECONDS), 0)
        return time.monotonic() - started

    def end(self, tell):
        """The end as somebody else tells it: a signal, or the session manager."""
        self.zamber_has_ended = True
        started = time.monotonic()
        tell()
        self.assertEqual(self.zamber.child.wait(LONGEST_END_SECONDS), 0)
        return time.monotonic() - started

    def wait_for_manager(self, read, content):
        """Between the program's end and the manager's notice of it nobody serves the clipboard."""
        wait_until(lambda: read() == content, 5.0, lambda: f"{content!r:.80} on the clipboard, where {read()!r:.80} is")

    def saved(self):
        """What the manager has saved, by type. It says so after its answer, at which the program ends."""
        wait_until(lambda: len(self.manager.stdout_lines()) == 2, 5.0,
                   lambda: f"one save; the manager says {self.manager.stdout_lines()}")
        return json.loads(self.manager.stdout_lines()[1])


class ClipboardManagerTest(ManagerTestCase):
    def test_a_text(self):
        self.paste_and_quit(2)
        self.wait_for_manager(self.clipboard.text, "naïve words")
        self.assertLessEqual({"UTF8_STRING", "STRING", "text/plain"}, set(self.saved()))

    def test_a_text_that_goes_piece_by_piece(self):
        self.paste_and_quit(1)
        # The stand-in could not serve so much itself.
        self.assertEqual(self.saved()["UTF8_STRING"], sha256(self.large.encode()))

    def test_a_picture_and_no_more_of_it_than_is_needed(self):
        self.paste_and_quit(0)
        self.wait_for_manager(lambda: self.clipboard.read("image/png"), self.picture)
        self.assertEqual(set(self.saved()), {"image/png"})

    def test_what_another_program_holds_is_not_ours_to_hand_over(self):
        self.paste_entry(2)
        self.editor.wait_for_text("naïve words")
        self.copy_and_wait("another's", ["another's", *self.history])
        self.quit()
        self.assertEqual(self.clipboard.text(), "another's")
        self.assertEqual(self.manager.stdout_lines(), ["ready"])

    def test_an_entry_that_was_chosen_just_before(self):
        self.zamber.open_popover()
        self.choose(2)
        self.expect_paste()
        self.editor.wait_for_text("naïve words")
        self.quit()
        self.wait_for_manager(self.clipboard.text, "naïve words")


    def test_the_program_is_told_to_end_by_a_signal(self):
        for told in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(told):
                if self.zamber_has_ended:
                    self.manager.stop()
                    self.prepare()
                    self.expected_lines = []
                    self.start_zamber()
                    self.zamber_has_ended = False
                self.paste_entry(2)
                self.wait_for_expected_lines()
                self.end(lambda: self.zamber.child.process.send_signal(told))
                self.wait_for_manager(self.clipboard.text, "naïve words")
                self.saved()


class ClipboardManagerAtLogoutTest(ManagerTestCase):
    """The session ends, and with it the program, before the clipboard manager."""

    def prepare(self):
        super().prepare()
        self.session = SessionManager(self.desktop)
        self.zamber.environment = dict(self.zamber.environment, SESSION_MANAGER=self.session.address)

    def test_it_has_what_was_pasted_last(self):
        self.paste_entry(2)
        self.wait_for_expected_lines()
        self.assertLess(self.end(self.session.log_out), LONGEST_END_SECONDS)
        self.wait_for_manager(self.clipboard.text, "naïve words")

    def test_a_picture(self):
        self.paste_entry(0)
        self.wait_for_expected_lines()
        self.end(self.session.log_out)
        self.wait_for_manager(lambda: self.clipboard.read("image/png"), self.picture)


class ClipboardManagerThatHangsTest(ManagerTestCase):
    manager_options = ("--hang",)

    def test_nor_does_a_signal_wait_for_it(self):
        self.paste_entry(2)
        self.wait_for_expected_lines()
        self.assertLess(self.end(self.zamber.child.process.terminate), LONGEST_END_SECONDS)

    def test_the_program_ends_all_the_same(self):
        self.assertLess(self.paste_and_quit(2), LONGEST_END_SECONDS)

    def test_one_that_has_died_is_not_waited_for(self):
        self.manager.kill()
        self.assertLess(self.paste_and_quit(2), 2.0)
