# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The hot keys and the paste under locks, layouts and rivals."""

import itertools
import re
import time

from Xlib import XK, X

from case import PASTED_LINE, DesktopTestCase
from harness import CONTROL, KEY_CODES, LOCK, NUM, SHIFT, SUPER, holds_for, wait_until

DVORAK_V = 60  # where the dvorak layout has the letter
UNUSED_KEY = 248
CHANGES = 30
CHANGE_STEP_SECONDS = 0.0001


class LocksTest(DesktopTestCase):
    history = ("first", "second")
    preferences = {"quickPasteEnabled": True}

    def paste_with_locks(self, **locks):
        self.keyboard.set_locks(**locks)
        self.expected_locks = (LOCK if locks.get("caps") else 0) | (NUM if locks.get("num") else 0)
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")
        self.assert_pasted_by("v", CONTROL, mark)
        mark = self.keys.mark()
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text("firstsecond")
        self.assert_pasted_by("v", CONTROL, mark)

    def test_caps_lock(self):
        self.paste_with_locks(caps=True)

    def test_num_lock(self):
        self.paste_with_locks(num=True)

    def test_caps_lock_and_num_lock(self):
        self.paste_with_locks(caps=True, num=True)


class LayoutsTest(DesktopTestCase):
    history = ("first", "second")

    def paste_with_layout(self, layouts, group, key):
        self.desktop.set_layout(layouts, group)
        self.expected_group = group
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("second")
        self.assert_pasted_by(key, CONTROL, mark)

    def test_the_second_group_is_russian(self):
        self.paste_with_layout("us,ru", 1, "v")

    def test_the_second_group_is_greek(self):
        self.paste_with_layout("us,gr", 1, "v")

    def test_where_no_group_has_a_v_its_place_on_the_keyboard_is_pressed(self):
        self.desktop.set_layout("ru")
        self.zamber.open_popover()
        mark = self.keys.mark()
        self.choose()
        self.expect_paste()
        # GTK finds no Ctrl+V on such a keyboard, also when the user presses it; other toolkits do.
        self.assert_pasted_by("v", CONTROL, mark)

    def test_dvorak_has_its_v_elsewhere(self):
        self.paste_with_layout("us(dvorak)", 0, DVORAK_V)

    def test_dvorak_is_the_second_group(self):
        self.paste_with_layout("us,us(dvorak)", 1, DVORAK_V)


class ChangingMappingTest(DesktopTestCase):
    history = ("first",)

    def test_no_press_is_lost_when_the_mapping_has_just_changed(self):
        # As it does with every other keyboard that is typed on, and with every paste between two keys of a real one.
        for step in range(CHANGES):
            self.desktop.display.change_keyboard_mapping(UNUSED_KEY, [(XK.XK_F20 + step % 2,)])
            self.desktop.display.sync()
            pressed_at = time.perf_counter() + step * CHANGE_STEP_SECONDS
            while time.perf_counter() < pressed_at:
                pass  # too short a time for anything else
            self.zamber.open_popover()
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)
        self.assertNotIn(KEY_CODES["v"], [key["code"] for key in self.editor.keys()], "the press went to the editor")


class LayoutsBeforeStartTest(DesktopTestCase):
    history = ("first",)

    def prepare(self):
        self.desktop.set_layout("us,ru", 1)
        self.expected_group = 1

    def test_the_layout_was_there_first(self):
        self.paste_entry(0)
        self.editor.wait_for_text("first")


class RivalTest(DesktopTestCase):
    """Another program holds a combination before this one starts."""

    history = ("first", "second", "third")
    preferences = {"quickPasteEnabled": True}
    taken = ()

    def prepare(self):
        rival = self.desktop.connect()
        self.addCleanup(rival.close)
        for key in self.taken:
            for locks in (0, LOCK, NUM, LOCK | NUM):
                rival.screen().root.grab_key(
                    KEY_CODES[key], SUPER | SHIFT | locks, False, X.GrabModeAsync, X.GrabModeAsync
                )
        rival.sync()
        self.expected_errors += [re.compile(".+")] * len(self.taken)

    def quick_paste(self, digit, expected):
        self.keyboard.chord("Super_L", "Shift_L", digit)
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text(expected)


class RivalForTwoTest(RivalTest):
    taken = ("2",)

    def test_the_other_hot_keys_work(self):
        self.quick_paste("3", "third")
        self.keyboard.chord("Super_L", "Shift_L", "2")
        holds_for(lambda: self.editor.text() == "third", 0.6, "the taken hot key does nothing here")
        self.paste_entry(0)
        self.editor.wait_for_text("thirdfirst")


class RivalForThreeTest(RivalTest):
    taken = ("3",)

    def test_the_other_hot_keys_work(self):
        self.quick_paste("2", "second")
        self.paste_entry(0)
        self.editor.wait_for_text("secondfirst")


class RivalForTheMainHotKeyTest(RivalTest):
    taken = ("v",)

    def test_the_others_work_and_the_tray_icon_still_opens_the_popover(self):
        self.quick_paste("2", "second")
        self.zamber.press_hot_key()
        holds_for(lambda: self.zamber.popover() is None, 0.6, "the taken hot key opens nothing here")
        self.click_tray_icon()
        self.zamber.wait_for_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("secondfirst")


class MenuTest(DesktopTestCase):
    """A menu of the program's own is open, which has the keyboard."""

    history = ("first", "second", "third")
    preferences = {"quickPasteEnabled": True}

    def open_tray_menu(self):
        self.click_tray_icon(button=3)
        wait_until(self.zamber.menu, what="the menu")

    def open_row_menu(self):
        self.zamber.open_popover()
        row = wait_until(lambda: self.zamber.tree().all(role="list item"), what="the rows")[1]
        self.desktop.mouse.click(*row.centre, 3)
        wait_until(self.zamber.menu, what="the menu")

    def press(self, key, hold=0.15):
        self.keyboard.play((0.0, "+Super_L"), (0.03, "+Shift_L"), (0.08, f"+{key}"), (0.08 + hold, f"-{key}"),
                           (0.12 + hold, "-Shift_L"), (0.14 + hold, "-Super_L"))

    def assert_menu_closed(self):
        wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")

    def test_the_main_hot_key_in_the_trays_menu(self):
        for hold in (0.08, 0.4, 0.9):
            with self.subTest(hold=hold):
                self.open_tray_menu()
                self.press("v", hold)
                self.zamber.wait_for_popover()
                self.assert_menu_closed()
                self.choose()
                self.expect_paste()
                self.zamber.wait_until_closed()
                self.wait_for_expected_lines()
        self.editor.wait_for_text("first" * 3)

    def test_a_quick_paste_in_the_trays_menu(self):
        arrived = ""
        for hold in (0.08, 0.3, 0.9):
            with self.subTest(hold=hold):
                self.open_tray_menu()
                self.press("2", hold)
                self.expected_lines.append(PASTED_LINE)
                arrived += "second"
                self.editor.wait_for_text(arrived)
                self.assert_menu_closed()

    def test_the_key_is_held_longest(self):
        for key in ("2", "v"):
            with self.subTest(key=key):
                self.open_tray_menu()
                self.keyboard.play((0.0, "+Super_L"), (0.03, "+Shift_L"), (0.08, f"+{key}"), (0.18, "-Shift_L"),
                                   (0.2, "-Super_L"), (1.4, f"-{key}"))
                if key == "2":
                    self.expected_lines.append(PASTED_LINE)
                    self.editor.wait_for_text("second")
        self.zamber.wait_for_popover()
        self.assertEqual([node.text for node in self.zamber.tree().all(role="text") if node.text], [])
        self.assertEqual(self.editor.text(), "second")

    def test_a_quick_paste_in_the_trays_menu_with_any_order_of_release(self):
        arrived = ""
        for order in itertools.permutations(("Super_L", "Shift_L", "2")):
            with self.subTest(order=order):
                self.open_tray_menu()
                releases = ((0.2 + 0.12 * step, f"-{key}") for step, key in enumerate(order))
                self.keyboard.play((0.0, "+Super_L"), (0.03, "+Shift_L"), (0.08, "+2"), *releases)
                self.expected_lines.append(PASTED_LINE)
                arrived += "second"
                self.editor.wait_for_text(arrived)
                self.assert_menu_closed()
        holds_for(lambda: self.editor.text() == arrived, 0.5, "nothing more comes")

    def test_two_presses_in_a_row(self):
        self.open_tray_menu()
        self.press("2", 0.08)
        self.press("3", 0.08)
        self.expected_lines += [PASTED_LINE] * 2
        self.editor.wait_for_text("secondthird")

    def test_the_main_hot_key_in_a_rows_menu(self):
        self.open_row_menu()
        self.press("v")
        self.assert_menu_closed()
        self.zamber.wait_for_popover()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover stays open")

    def test_a_quick_paste_in_a_rows_menu_goes_into_whichever_window_is_in_front_then(self):
        self.open_row_menu()
        self.press("3")
        self.expected_lines.append(PASTED_LINE)

        def arrived():
            fields = [node.text for node in self.zamber.tree().all(role="text")] if self.zamber.popover() else []
            return [text for text in (*fields, self.editor.text()) if text]

        wait_until(lambda: arrived() == ["third"], what=lambda: f"the entry once; there is {arrived()}")
        self.assert_menu_closed()

    def test_switched_off_a_quick_paste_leaves_the_menu_without_effect(self):
        self.zamber.write_preferences(quickPasteEnabled=False)
        self.let_a_poll_pass()
        self.open_tray_menu()
        mark = self.keys.mark()
        self.press("2")
        holds_for(lambda: not self.keys.presses(KEY_CODES["v"], mark), 0.5, "no keystroke is sent")
