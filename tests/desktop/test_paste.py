# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The way back: which keys are pressed, when, and in which window."""

import time

from case import NO_PREVIOUS_LINE, PASTED_LINE, PASTING_LINE, DesktopTestCase
from harness import CONTROL, KEY_CODES, SHIFT, Editor, Gvim, SelectionOwner, Terminal, holds_for, wait_until

# How long held modifiers are waited for before they are lifted, and the delay before that.
BOUND_MILLISECONDS = 2000
MODIFIER_CODES = [KEY_CODES[key] for key in ("Super_L", "Super_R", "Shift_L", "Shift_R", "Control_L", "Alt_L")]


class PasteTest(DesktopTestCase):
    history = ("first", "second", "third")

    def test_return_pastes_the_newest_entry_into_the_window_that_was_active(self):
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")
        down = self.assert_pasted_by("v", CONTROL, mark)
        self.assertEqual(down.held & set(KEY_CODES.values()), {KEY_CODES["Control_L"]}, self.keys.text(mark))
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)

    def test_the_keystroke_comes_no_sooner_than_the_window_has_had_time_to_come_to_the_front(self):
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")
        pasted = self.assert_pasted_by("v", CONTROL, mark)
        chosen = self.keys.presses(KEY_CODES["Return"], mark)[0]
        self.assertGreaterEqual(pasted.time - chosen.time, 350)
        self.assertLess(pasted.time - chosen.time, 1000)

    def test_arrows_choose_another_entry(self):
        self.zamber.open_popover()
        self.keyboard.tap("Down", "Down", "Down", "Down", "Up", "Return")
        self.expect_paste()
        self.editor.wait_for_text("second")

    def test_one_paste_after_another_each_arrives_once(self):
        held = ""
        for position in (0, 1, 2, 0, 2):
            self.paste_entry(position)
            held += self.history[position]
            self.editor.wait_for_text(held)

    def test_the_paste_goes_to_whichever_window_was_active(self):
        self.bystander_may_get_keys = True
        self.bystander.activate()
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose(1)
        self.expect_paste()
        self.bystander.wait_for_text("second")
        self.assert_pasted_by("v", CONTROL, mark, self.bystander.window)
        self.assertEqual(self.editor.keys(), [])

    def test_modifiers_still_held_are_waited_for(self):
        for pair in (("Super_L", "Shift_L"), ("Super_R", "Shift_R")):
            with self.subTest(pair):
                held = self.editor.text()
                self.keyboard.press(*pair)
                self.keyboard.tap("v")
                self.zamber.wait_for_popover()
                mark = self.keys.mark()
                self.choose()
                self.expect_paste()
                holds_for(lambda: not self.keys.presses(KEY_CODES["v"], mark), 0.8, "no keystroke is sent")
                self.keyboard.release(*pair)
                self.editor.wait_for_text(held + "first")
                pasted = self.assert_pasted_by("v", CONTROL, mark)
                released = [event for event in self.keys.since(mark) if event.code in map(KEY_CODES.get, pair)]
                self.assertEqual([event.pressed for event in released], [False, False], self.keys.text(mark))
                self.assertLessEqual(max(event.time for event in released), pasted.time)

    def test_modifiers_held_for_long_are_lifted_and_not_pressed_again(self):
        self.keyboard.press("Super_L", "Shift_L")
        self.keyboard.tap("v")
        self.zamber.wait_for_popover()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")
        pasted = self.assert_pasted_by("v", CONTROL, mark)
        chosen = self.keys.presses(KEY_CODES["Return"], mark)[0]
        self.assertGreaterEqual(pasted.time - chosen.time, BOUND_MILLISECONDS)
        self.assertLess(pasted.time - chosen.time, BOUND_MILLISECONDS + 1500)
        self.wait_for_expected_lines()
        for key in ("Super_L", "Shift_L"):
            events = [event for event in self.keys.since(mark) if event.code == KEY_CODES[key]]
            self.assertEqual([event.pressed for event in events], [False], self.keys.text(mark))
            self.assertLessEqual(events[0].time, pasted.time)
        self.keyboard.release("Shift_L", "Super_L")

    def test_return_still_down_does_no_harm(self):
        self.zamber.open_popover()
        self.keyboard.press("Return")
        self.expect_paste()
        self.editor.wait_for_text("first")
        self.keyboard.release("Return")
        self.wait_for_expected_lines()
        self.assertEqual(self.editor.text(), "first")

    def test_a_terminal_that_knows_no_other_paste_gets_shift_insert_and_the_primary_selection(self):
        self.desktop.primary.copy_text("selected")
        terminal = Terminal(self.desktop)
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose(1)
        self.expect_paste()
        terminal.wait_for(b"second")
        self.assert_pasted_by("Insert", SHIFT, mark, terminal.window)
        self.assertEqual(self.keys.presses(KEY_CODES["v"], mark), [])
        self.assertEqual(self.clipboard.text(), "second")
        wait_until(lambda: self.desktop.primary.text() == "selected", what="what was selected before")

    def test_an_editor_in_which_control_v_marks_columns(self):
        self.desktop.primary.copy_text("selected")
        editor = Gvim(self.desktop)
        self.paste_entry(1)
        self.wait_for_expected_lines()
        editor.wait_for_saved_text("second\n")
        wait_until(lambda: self.desktop.primary.text() == "selected", what="what was selected before")

    def test_an_editor_in_which_control_v_scrolls(self):
        editor = Editor(self.desktop, "Emacs", class_name="Emacs-gtk")
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        self.assert_pasted_by("Insert", SHIFT, mark, editor.window)

    def test_where_nothing_was_selected_nothing_is_afterwards(self):
        terminal = Terminal(self.desktop)
        self.paste_entry(1)
        terminal.wait_for(b"second")
        self.wait_for_expected_lines()
        wait_until(lambda: self.desktop.primary.owner() == 0, what="nobody to own PRIMARY")

    def test_a_hung_owner_of_the_primary_selection_delays_no_paste_for_long(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({"UTF8_STRING": b"selected"}, "PRIMARY")
        owner.child.pause()
        terminal = Terminal(self.desktop)
        self.paste_entry(1)
        terminal.wait_for(b"second")
        self.wait_for_expected_lines()

    def test_a_terminal_that_keeps_control_v_for_itself_gets_it_with_shift(self):
        terminal = Editor(self.desktop, "Terminal", class_name="Gnome-terminal")
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        self.assert_pasted_by("v", CONTROL | SHIFT, mark, terminal.window)

    def test_a_window_that_is_gone_leaves_the_keystroke_to_the_next(self):
        self.bystander_may_get_keys = True
        self.zamber.open_popover()
        self.editor.quit()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        self.bystander.wait_for_text("first")
        self.assert_pasted_by("v", CONTROL, mark, self.bystander.window)

    def test_a_window_that_is_gone_and_has_no_next_leaves_the_keystroke_to_nobody(self):
        self.bystander.quit()
        self.zamber.open_popover()
        self.editor.quit()
        mark = self.keys.mark()
        self.choose()
        self.expected_lines.append(PASTING_LINE)
        self.zamber.wait_until_closed()
        self.assert_no_keystroke_into_the_program(mark, BOUND_MILLISECONDS / 1000 + 0.8)
        self.assertEqual(self.clipboard.text(), "first")

    def test_a_popover_that_is_opened_again_meanwhile_gets_no_keystroke(self):
        self.zamber.open_popover()
        self.keyboard.press("Super_L")  # which keeps the paste waiting
        self.choose()
        self.expected_lines.append(PASTING_LINE)
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)
        mark = self.keys.mark()
        self.keyboard.chord("Shift_L", "v")
        self.zamber.wait_for_popover()
        self.keyboard.release("Super_L")
        self.assert_no_keystroke_into_the_program(mark, BOUND_MILLISECONDS / 1000 + 0.8)
        self.assertEqual([node.text for node in self.zamber.tree().all(role="text") if node.text], [])

    def test_a_popover_that_is_opened_at_the_very_moment_of_a_paste_gets_no_keystroke(self):
        arrived = ""
        for step in range(24):
            self.zamber.open_popover()
            self.choose()
            self.expected_lines.append(PASTING_LINE)
            self.zamber.wait_until_closed()
            due = time.perf_counter() + 0.32 + step * 0.003
            time.sleep(max(0.0, due - time.perf_counter() - 0.01))
            while time.perf_counter() < due:
                pass  # too short a time for anything else
            self.zamber.open_popover()
            self.assertEqual([node.text for node in self.zamber.tree().all(role="text") if node.text], [], step)
            # Closed again, it leaves the keystroke to the editor, if that has not had it before.
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
            self.expected_lines.append(PASTED_LINE)
            arrived += "first"
            self.editor.wait_for_text(arrived)
            self.desktop.wait_until_active(self.editor.window)

    def assert_no_keystroke_into_the_program(self, mark, seconds):
        def nothing_came():
            return all(event.focus is None or event.focus.pid != self.zamber.pid
                       for event in self.keys.paste_strokes(KEY_CODES["v"], CONTROL, mark))

        holds_for(nothing_came, seconds, lambda: f"no keystroke goes to the program:\n{self.keys.text(mark)}")

    def test_without_a_window_to_return_to_the_entry_is_on_the_clipboard(self):
        self.editor.quit()
        self.bystander.quit()
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose(1)
        self.expected_lines.append(NO_PREVIOUS_LINE)
        self.zamber.wait_until_closed()
        wait_until(lambda: self.clipboard.text() == "second", what="the entry on the clipboard")
        holds_for(lambda: not self.keys.presses(KEY_CODES["v"], mark), 0.6, "no keystroke is sent")

    def test_a_copy_made_meanwhile_is_not_pasted(self):
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.keyboard.press("Super_L")
        self.choose()
        self.expected_lines.append(PASTING_LINE)
        wait_until(lambda: self.clipboard.text() == "first", what="the entry on the clipboard")
        self.clipboard.copy_text("somebody else's")
        self.keyboard.release("Super_L")
        self.wait_for_expected_lines()
        holds_for(lambda: not self.keys.presses(KEY_CODES["v"], mark), 0.3, "no keystroke is sent")
        self.assertEqual(self.editor.text(), "")
