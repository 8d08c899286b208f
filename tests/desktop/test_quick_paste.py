# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Quick paste: the second and the third entry by a hot key, without the popover."""

from case import PASTED_LINE, DesktopTestCase
from harness import CONTROL, KEY_CODES, holds_for, wait_until


class QuickPasteTest(DesktopTestCase):
    history = ("first", "second", "third")
    preferences = {"quickPasteEnabled": True}

    def quick_paste(self, digit, expected, held=""):
        mark = self.keys.mark()
        self.keyboard.chord("Super_L", "Shift_L", digit)
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text(held + expected)
        self.assert_pasted_by("v", CONTROL, mark)
        self.assertIsNone(self.zamber.popover())

    def test_the_second_and_the_third_entry(self):
        self.quick_paste("2", "second")
        self.quick_paste("3", "third", held="second")
        self.quick_paste("2", "second", held="secondthird")

    def test_modifiers_still_held_are_waited_for(self):
        mark = self.keys.mark()
        self.keyboard.press("Super_L", "Shift_L")
        self.keyboard.tap("2")
        self.expected_lines.append(PASTED_LINE)
        holds_for(lambda: not self.keys.presses(KEY_CODES["v"], mark), 0.8, "no keystroke is sent")
        self.keyboard.release("Shift_L", "Super_L")
        self.editor.wait_for_text("second")
        self.assert_pasted_by("v", CONTROL, mark)

    def test_a_search_that_was_typed_counts(self):
        self.zamber.open_popover()
        self.keyboard.type_text("ir")
        wait_until(lambda: len(self.zamber.tree().all(role="list item")) == 2, what="first and third")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)
        self.quick_paste("2", "third")


class QuickPasteOfShortHistoryTest(DesktopTestCase):
    history = ("first", "second")
    preferences = {"quickPasteEnabled": True}

    def test_an_entry_that_is_not_there_changes_nothing(self):
        before = self.clipboard.owner()
        self.keyboard.chord("Super_L", "Shift_L", "3")
        holds_for(lambda: not self.keys.presses(KEY_CODES["v"]), 0.6, "no keystroke is sent")
        self.assertEqual(self.clipboard.owner(), before)


class QuickPasteOffTest(DesktopTestCase):
    history = ("first", "second", "third")

    def test_the_keys_do_nothing_until_it_is_switched_on(self):
        before = self.clipboard.owner()
        self.keyboard.chord("Super_L", "Shift_L", "2")
        holds_for(lambda: not self.keys.presses(KEY_CODES["v"]), 0.6, "no keystroke is sent")
        self.assertEqual(self.clipboard.owner(), before)
        self.assertEqual(self.editor.text(), "")

    def test_switched_on_and_off_it_takes_effect_with_the_next_press(self):
        self.zamber.write_preferences(quickPasteEnabled=True)
        self.let_a_poll_pass()
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text("second")
        self.zamber.write_preferences(quickPasteEnabled=False)
        self.let_a_poll_pass()
        mark = self.keys.mark()
        self.keyboard.chord("Super_L", "Shift_L", "3")
        holds_for(lambda: not self.keys.presses(KEY_CODES["v"], mark), 0.6, "no keystroke is sent")
