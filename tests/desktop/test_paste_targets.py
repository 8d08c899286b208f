# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The programs that are pasted into: real ones, the program itself, and one that shares the clipboard."""

import time

from case import PASTED_LINE, DesktopTestCase
from harness import Browser, LineEdit, Mousepad, SelectionOwner, wait_until


class PasteTargetsTest(DesktopTestCase):
    """Programs of several toolkits. The terminals are in PasteTest."""

    history = ("größe 漢字 👍", "second")
    preferences = {"quickPasteEnabled": True}

    def paste_twice_and_quick_paste(self, target):
        self.paste_entry(0)
        target.wait_for_text("größe 漢字 👍")
        self.paste_entry(1)
        target.wait_for_text("größe 漢字 👍second")
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.expected_lines.append(PASTED_LINE)
        target.wait_for_text("größe 漢字 👍secondsecond")
        self.assertEqual(self.editor.keys(), [])

    def test_a_text_field_of_a_web_page(self):
        self.paste_twice_and_quick_paste(Browser(self.desktop))

    def test_a_line_in_a_qt_program(self):
        self.paste_twice_and_quick_paste(LineEdit(self.desktop))

    def test_a_real_editor(self):
        editor = Mousepad(self.desktop)
        self.paste_entry(0)
        self.wait_for_expected_lines()
        editor.wait_for_saved_text("größe 漢字 👍")


class OwnWindowTest(DesktopTestCase):
    """The popover itself was in front when it was called up."""

    history = ("first", "second")
    preferences = {"quickPasteEnabled": True}

    def test_shown_again_it_remembers_this_program(self):
        self.zamber.open_popover()
        self.zamber.press_hot_key()
        self.zamber.wait_for_popover()
        self.choose(1)
        self.expected_lines += ["🔵 Pasting into: Zamber", PASTED_LINE]
        self.zamber.wait_until_closed()
        self.wait_for_expected_lines()
        self.assertEqual(self.clipboard.text(), "second")

    def test_a_quick_paste_in_the_open_popover_goes_into_its_search_field(self):
        self.zamber.open_popover()
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.expected_lines.append(PASTED_LINE)
        wait_until(lambda: "second" in [node.text for node in self.zamber.tree().all(role="text")],
                   what="the entry in the search field")
        self.assertEqual(self.editor.text(), "")


class SharedClipboardTest(DesktopTestCase):
    """A program that shares the clipboard with another machine (VNC, a virtual machine) owns it again a moment after
    every change, with the very text that it has got."""

    history = ("first", "second", "third")
    preferences = {"quickPasteEnabled": True}

    def prepare(self):
        self.sharer = SelectionOwner(self.desktop)

    def share(self, text, delay=0.2):
        wait_until(lambda: self.clipboard.text() == text, what=f"{text!r} on the clipboard")
        time.sleep(delay)
        self.sharer.offer({"UTF8_STRING": text.encode()})

    def test_a_paste_of_the_popover(self):
        for count, delay in enumerate((0.0, 0.1, 0.2, 0.3), 1):
            with self.subTest(delay=delay):
                self.zamber.open_popover()
                self.choose(1)
                self.expect_paste()
                self.share("second", delay)
                self.editor.wait_for_text("second" * count)

    def test_a_quick_paste_that_waits_for_the_modifiers(self):
        self.keyboard.press("Super_L", "Shift_L")
        self.keyboard.tap("3")
        self.expected_lines.append(PASTED_LINE)
        self.share("third")
        time.sleep(0.4)
        self.keyboard.release("Shift_L", "Super_L")
        self.editor.wait_for_text("third")

    def test_two_quick_pastes_while_the_first_is_shared(self):
        self.keyboard.press("Super_L", "Shift_L")
        self.keyboard.tap("2")
        self.share("second", 0.05)
        self.keyboard.tap("3")
        time.sleep(0.1)
        self.keyboard.release("Shift_L", "Super_L")
        self.expected_lines += [PASTED_LINE] * 2
        self.editor.wait_for_text("secondthird")
        self.wait_for_expected_lines()
        wait_until(lambda: self.clipboard.text() == "third", what="the last choice on the clipboard")

    def test_it_is_no_new_copy(self):
        self.paste_entry(2)
        self.editor.wait_for_text("third")
        self.share("third")
        self.let_a_poll_pass()
        time.sleep(1.2)
        self.assertEqual(self.zamber.history(), ["first", "second", "third"])

    def test_a_copy_by_hand_of_what_was_pasted_is_one(self):
        self.paste_entry(2)
        self.editor.wait_for_text("third")
        time.sleep(2.2)
        self.sharer.offer({"UTF8_STRING": b"third"})
        self.zamber.wait_for_history(["third", "first", "second"])

    def test_owned_again_every_second_the_history_is_saved(self):
        self.sharer.offer({"UTF8_STRING": b"copied"})
        end = time.monotonic() + 8
        while self.zamber.history()[0] != "copied":
            self.assertLess(time.monotonic(), end, "the history is never saved")
            time.sleep(1)
            self.sharer.offer({"UTF8_STRING": b"copied"})
        self.assertEqual(self.zamber.history(), ["copied", "first", "second", "third"])
