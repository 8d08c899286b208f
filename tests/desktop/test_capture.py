# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Texts that other programs copy: which of them become entries, and that they are pasted unchanged."""

import time

from case import DesktopTestCase
from harness import CONTROL, Mousepad, SelectionOwner, wait_until

POLL_SECONDS = 0.5
SAVE_DELAY_SECONDS = 1.0
TEXT = "  grüße, мир, 日本語 😀👩‍👩‍👧\n\tsecond line \n"


class CaptureTest(DesktopTestCase):
    def test_a_copied_text_is_pasted_back_as_it_was(self):
        self.copy_and_wait(TEXT, [TEXT])
        self.copy_and_wait("later", ["later", TEXT])
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text(TEXT)
        self.assert_pasted_by("v", CONTROL, mark)
        self.assertEqual(self.clipboard.text(), TEXT)

    def test_a_large_text_is_pasted_back_as_it_was(self):
        large = "".join(f"line {number} of many\n" for number in range(60000))
        self.clipboard.copy_text(large)
        self.zamber.wait_for_history([large])
        self.clipboard.copy_text("small")
        self.zamber.wait_for_history(["small", large])
        self.paste_entry(1)
        self.editor.wait_for_text(large)

    def test_the_same_text_copied_again_is_one_entry_at_the_top(self):
        self.copy_and_wait("once", ["once"])
        self.copy_and_wait("between", ["between", "once"])
        self.copy_and_wait("once", ["once", "between"])
        self.paste_entry(0)
        self.editor.wait_for_text("once")

    def test_of_two_copies_within_half_a_second_the_later_is_recorded(self):
        owner = SelectionOwner(self.desktop)
        self.copy_and_wait("before", ["before"])
        for attempt in range(5):
            # The save comes one second after the poll that captured; from its time the polls' own times are known.
            poll = self.zamber.history_path.stat().st_mtime - SAVE_DELAY_SECONDS
            wait_until(lambda: 0.05 < (time.time() - poll) % POLL_SECONDS < 0.15, 2.0, "the time after a poll")
            owner.offer({"UTF8_STRING": b"earlier %d" % attempt})
            owner.offer({"UTF8_STRING": b"later %d" % attempt})
            between_polls = 0.05 < (time.time() - poll) % POLL_SECONDS < 0.4
            wait_until(lambda: self.zamber.history()[:1] == [f"later {attempt}"], 6.0, "the later copy")
            if between_polls:
                self.assertEqual(self.zamber.history()[1].split()[0], "later" if attempt else "before")
                return
        self.fail("this machine is too slow to copy twice within a fifth of a second")

    def test_an_entry_that_was_put_back_is_not_captured_again(self):
        self.copy_and_wait("old", ["old"])
        self.copy_and_wait("new", ["new", "old"])
        stamps = [record["timestamp"] for record in self.zamber.records()]
        self.paste_entry(1)
        self.editor.wait_for_text("old")
        self.let_a_poll_pass()
        self.copy_and_wait("newest", ["newest", "new", "old"])
        self.assertEqual([record["timestamp"] for record in self.zamber.records()][1:], stamps)

    def test_an_empty_text_is_no_entry_and_a_blank_is_one(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({"UTF8_STRING": b""})
        self.let_a_poll_pass()
        owner.offer({"UTF8_STRING": b" "})
        self.zamber.wait_for_history([" "])

    def test_a_selection_that_was_only_marked_is_no_entry(self):
        self.desktop.primary.copy_text("marked, not copied")
        self.let_a_poll_pass()
        self.copy_and_wait("copied", ["copied"])

    def test_the_entry_goes_into_a_real_editor(self):
        mousepad = Mousepad(self.desktop)
        self.copy_and_wait("into mousepad", ["into mousepad"])
        self.zamber.open_popover()
        self.choose()
        self.expected_lines += ["🔵 Pasting into: Mousepad", "✅ Pasted via CGEvent"]
        self.wait_for_expected_lines()
        mousepad.wait_for_saved_text("into mousepad")

    def test_the_history_is_private_to_its_user(self):
        self.copy_and_wait("mine", ["mine"])
        self.assertEqual(self.zamber.history_path.stat().st_mode & 0o777, 0o600)
        self.assertEqual(self.zamber.data_folder.stat().st_mode & 0o777, 0o700)

    def test_the_history_outlives_the_program(self):
        self.copy_and_wait("kept", ["kept"])
        self.zamber.stop()
        self.expected_lines = []
        self.start_zamber()
        self.paste_entry(0)
        self.editor.wait_for_text("kept")


class CaptureAtStartTest(DesktopTestCase):
    def prepare(self):
        self.clipboard.copy_text("there before")

    def test_what_is_on_the_clipboard_at_the_start_is_no_entry(self):
        self.let_a_poll_pass()
        self.copy_and_wait("copied", ["copied"])
