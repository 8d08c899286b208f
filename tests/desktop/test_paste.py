# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The way back: which keys are pressed, when, and in which window."""

import time

from case import NO_PREVIOUS_LINE, PASTED_LINE, PASTING_LINE, DesktopTestCase
from harness import (
    CONTROL, KEY_CODES, SHIFT, Browser, Editor, Gvim, LineEdit, Mousepad, SelectionOwner, Terminal, holds_for,
    wait_until,
)

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


class PasteTargetsTest(DesktopTestCase):
    """What people paste into. The terminals are in PasteTest."""

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
