# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The paste under real hands, which hold a key for 80 to 400 ms and let go in any order."""

from case import PASTED_LINE, PASTING_LINE, DesktopTestCase
from harness import CONTROL, KEY_CODES, Editor, holds_for, wait_until

HISTORY = ("first", "second", "third", "fourth")
PRESS = ((0.0, "+Super_L"), (0.03, "+Shift_L"))
BOUND_MILLISECONDS = 2000


def entry_of(digit):
    return HISTORY[int(digit) - 1]


class HeldDigitTest(DesktopTestCase):
    """The hot key's own key is down longer than its modifiers: its grab takes all keys that are typed."""

    history = HISTORY
    preferences = {"quickPasteEnabled": True}

    def paste_with(self, *releases, digit="2"):
        held, mark = self.editor.text(), self.keys.mark()
        self.expected_lines.append(PASTED_LINE)
        self.keyboard.play(*PRESS, (0.08, f"+{digit}"), *releases)
        self.editor.wait_for_text(held + entry_of(digit))
        stroke = self.assert_pasted_by("v", CONTROL, mark)
        self.wait_for_expected_lines()
        self.assertEqual(self.editor.text(), held + entry_of(digit))
        return stroke

    def test_the_modifiers_go_first(self):
        for hold in (0.18, 0.26, 0.4):
            with self.subTest(hold=hold):
                self.paste_with((0.13, "-Super_L"), (0.14, "-Shift_L"), (0.08 + hold, "-2"))

    def test_everything_is_held_and_the_digit_goes_last(self):
        for hold in (0.2, 0.4, 0.9):
            with self.subTest(hold=hold):
                self.paste_with((hold, "-Shift_L"), (hold + 0.02, "-Super_L"), (hold + 0.12, "-2"))

    def test_any_order_of_release(self):
        for order in (("Super_L", "2", "Shift_L"), ("Shift_L", "2", "Super_L"), ("2", "Shift_L", "Super_L"),
                      ("2", "Super_L", "Shift_L"), ("Super_L", "Shift_L", "2"), ("Shift_L", "Super_L", "2")):
            with self.subTest(order=order):
                self.paste_with(*((0.2 + 0.09 * step, f"-{key}") for step, key in enumerate(order)))

    def test_the_other_digit_too(self):
        self.paste_with((0.13, "-Super_L"), (0.14, "-Shift_L"), (0.35, "-3"), digit="3")

    def test_held_beyond_every_patience_the_digit_is_lifted(self):
        mark = self.keys.mark()
        self.expected_lines.append(PASTED_LINE)
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.2, "-Super_L"), (0.21, "-Shift_L"))
        self.editor.wait_for_text("second")
        pasted = self.assert_pasted_by("v", CONTROL, mark)
        pressed = self.keys.presses(KEY_CODES["2"], mark)[0]
        self.assertGreaterEqual(pasted.time - pressed.time, BOUND_MILLISECONDS)
        holds_for(lambda: self.editor.text() == "second", 0.8, "no key repeats")
        self.keyboard.release("2")

    def test_the_same_entry_twice_with_the_modifiers_down_all_the_while(self):
        self.expected_lines += [PASTED_LINE] * 2
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.2, "-2"), (0.35, "+2"), (0.5, "-2"), (0.7, "-Super_L"),
                           (0.75, "-Shift_L"))
        self.editor.wait_for_text("secondsecond")

    def test_the_main_hot_keys_own_key_is_held_while_an_entry_is_chosen(self):
        self.expected_lines += [PASTING_LINE, PASTED_LINE]
        self.keyboard.play(*PRESS, (0.08, "+v"), (0.3, "-Super_L"), (0.31, "-Shift_L"))
        self.zamber.wait_for_popover()
        row = wait_until(lambda: next((node for node in self.zamber.tree().all(role="list item")
                                       if "second" in node.name), None), what="the row")
        self.desktop.mouse.click(*row.centre)
        self.zamber.wait_until_closed()
        holds_for(lambda: self.editor.text() == "", 0.6, "nothing is pasted while the key is held")
        self.keyboard.release("v")
        self.editor.wait_for_text("second")
        holds_for(lambda: self.editor.text() == "second", 0.5, "it is pasted once")


class OneAfterTheOtherTest(DesktopTestCase):
    """Each paste inserts the entry that was chosen for it, though others are chosen before its turn comes."""

    history = HISTORY
    preferences = {"quickPasteEnabled": True}

    def expect_pastes(self, *digits):
        self.expected_lines += [PASTED_LINE] * len(digits)
        self.editor.wait_for_text("".join(map(entry_of, digits)))
        self.wait_for_expected_lines()
        self.assertEqual(self.clipboard.text(), entry_of(digits[-1]))

    def test_two_and_three_with_the_modifiers_down(self):
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.2, "-2"), (0.4, "+3"), (0.55, "-3"), (0.6, "-Super_L"),
                           (0.65, "-Shift_L"))
        self.expect_pastes("2", "3")

    def test_three_in_a_row(self):
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.18, "-2"), (0.3, "+3"), (0.4, "-3"), (0.5, "+2"), (0.6, "-2"),
                           (0.75, "-Shift_L"), (0.8, "-Super_L"))
        self.expect_pastes("2", "3", "2")

    def test_faster_than_the_delay_before_a_keystroke(self):
        self.keyboard.play(*PRESS, (0.06, "+2"), (0.09, "-2"), (0.11, "+3"), (0.14, "-3"), (0.2, "-Super_L"),
                           (0.21, "-Shift_L"))
        self.expect_pastes("2", "3")

    def test_the_second_digit_goes_down_before_the_first_comes_up(self):
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.2, "+3"), (0.24, "-2"), (0.34, "-3"), (0.4, "-Super_L"),
                           (0.41, "-Shift_L"))
        self.expect_pastes("2", "3")

    def test_the_second_digit_stays_down_longest(self):
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.2, "+3"), (0.24, "-2"), (0.3, "-Super_L"), (0.31, "-Shift_L"),
                           (1.3, "-3"))
        self.expect_pastes("2", "3")

    def test_both_digits_are_held_beyond_every_patience(self):
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.2, "+3"), (0.3, "-Super_L"), (0.31, "-Shift_L"))
        self.expect_pastes("2", "3")
        holds_for(lambda: self.editor.text() == "secondthird", 0.8, "no key repeats")
        self.keyboard.release("2")
        self.keyboard.release("3")

    def test_a_fourth_and_a_fifth_while_the_first_ones_arrive(self):
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.16, "-2"), (0.2, "-Super_L"), (0.21, "-Shift_L"),
                           (0.25, "+Super_L"), (0.26, "+Shift_L"), (0.3, "+3"), (0.38, "-3"), (0.4, "-Super_L"),
                           (0.41, "-Shift_L"), (0.45, "+Super_L"), (0.46, "+Shift_L"), (0.5, "+2"), (0.58, "-2"),
                           (0.6, "+3"), (0.68, "-3"), (0.7, "-Super_L"), (0.71, "-Shift_L"))
        self.expect_pastes("2", "3", "2", "3")


class WhoeverIsInFrontTest(DesktopTestCase):
    history = HISTORY
    preferences = {"quickPasteEnabled": True}

    def test_a_quick_paste_is_for_the_window_that_has_come_to_the_front_meanwhile(self):
        self.bystander_may_get_keys = True
        mark = self.keys.mark()
        self.expected_lines.append(PASTED_LINE)
        self.keyboard.play(*PRESS, (0.08, "+2"))
        self.bystander.activate()
        self.keyboard.play((0.0, "-2"), (0.05, "-Shift_L"), (0.1, "-Super_L"))
        self.bystander.wait_for_text("second")
        pasted = self.assert_pasted_by("v", CONTROL, mark, self.bystander.window)
        pressed = self.keys.presses(KEY_CODES["2"], mark)[0]
        self.assertLess(pasted.time - pressed.time, 1200)
        self.assertEqual(self.editor.text(), "")

    def test_a_window_that_opens_between_the_press_and_the_keystroke(self):
        self.expected_lines.append(PASTED_LINE)
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.12, "-2"))
        newcomer = Editor(self.desktop, "Newcomer", class_name="Newcomer")
        self.keyboard.play((0.0, "-Shift_L"), (0.05, "-Super_L"))
        newcomer.wait_for_text("second")
        self.assertEqual(self.editor.text(), "")


class OpenPopoverTest(DesktopTestCase):
    """As long as a hot key is down, its grab has the keyboard; the window with the focus has not been left for that."""

    history = HISTORY
    preferences = {"quickPasteEnabled": True}

    def test_the_main_hot_key_keeps_an_open_popover_open(self):
        self.zamber.open_popover()
        for hold in (0.08, 0.25, 0.9):
            with self.subTest(hold=hold):
                self.keyboard.play(*PRESS, (0.08, "+v"), (0.08 + hold, "-v"), (0.1 + hold, "-Shift_L"),
                                   (0.12 + hold, "-Super_L"))
                holds_for(lambda: self.zamber.popover() is not None, 0.5, "the popover stays open")

    def test_a_quick_paste_goes_into_its_search_field(self):
        self.zamber.open_popover()
        self.expected_lines.append(PASTED_LINE)
        self.keyboard.play(*PRESS, (0.08, "+2"), (0.35, "-2"), (0.4, "-Shift_L"), (0.42, "-Super_L"))
        wait_until(lambda: "second" in [node.text for node in self.zamber.tree().all(role="text")],
                   what="the entry in the search field")
        self.assertEqual(self.editor.text(), "")
