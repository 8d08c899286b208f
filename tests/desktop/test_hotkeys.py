# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The hot keys and the paste under locks, layouts and rivals."""

import re
import time

from Xlib import XK, X

from case import PASTED_LINE, DesktopTestCase
from harness import CONTROL, KEY_CODES, LOCK, NUM, SHIFT, SUPER, holds_for

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
        # GTK finds no Ctrl+V on such a keyboard, whoever presses it; others do.
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
    """Somebody else holds a combination before the program starts."""

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
