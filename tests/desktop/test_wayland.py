# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program on sway: what is recorded of other programs' copies, what they get back, hot keys."""

from harness import holds_for, wait_until
from wayland_case import SwayTestCase
from wayland_cases import HINT, UTF8, CaptureCases, EndCases, HotKeysCases, OwnerOfX, OwnersCases, QuickPasteCases


class SwayCaptureTest(CaptureCases, SwayTestCase):
    pass


class SwaySecretsOfXTest(OwnerOfX, SwayTestCase):
    """sway does not pass on what a program of X marks its copy with."""

    def setUp(self):
        super().setUp()
        self.open_owner_of_x()

    def test_a_secret_of_a_program_of_x_is_neither_asked_for_nor_kept(self):
        self.assert_secret_of_x_is_neither_asked_for_nor_kept()

    def test_a_hint_that_says_otherwise_is_no_secret(self):
        self.owner_of_x.offer({HINT: b"public", "UTF8_STRING": b"harmless"})
        self.zamber.wait_for_history(["harmless"])

    def test_a_copy_of_a_wayland_program_after_it_is_recorded(self):
        owner = self.owner()
        for number in range(5):
            self.offer_secret_of_x()
            owner.offer({UTF8: b"copy %d" % number, "text/plain": b"copy %d" % number})
            wait_until(lambda: self.zamber.history()[:1] == [f"copy {number}"], 6.0, "the next copy")


class SwayEndTest(EndCases, SwayTestCase):
    pass


class SwayOwnersTest(OwnersCases, SwayTestCase):
    pass


class SwayHotKeysTest(HotKeysCases, SwayTestCase):
    def test_held_as_hands_hold_it_it_opens_once(self):
        self.keyboard.play((0.0, "+Super_L"), (0.08, "+Shift_L"), (0.16, "+v"), (0.5, "-Super_L"), (0.6, "-v"),
                           (0.7, "-Shift_L"))
        self.zamber.wait_for_popover()
        holds_for(lambda: self.zamber.popover() is not None, 0.5, "the history is open")
        self.assertEqual(self.editor.text(), "")

    def test_it_is_there_again_when_the_configuration_has_been_read_anew(self):
        self.desktop.tell("reload")
        wait_until(lambda: self.opens(), 8.0, "the history to open after the reload")

    def opens(self):
        self.zamber.press_hot_key()
        try:
            self.zamber.wait_for_popover(1.0)
        except AssertionError:
            return False
        return True


class SwayTakenHotKeyTest(SwayTestCase):
    history = ("first",)
    configuration = "set $mod Mod4\nbindsym $mod+Shift+v exec touch $XDG_RUNTIME_DIR/pressed"

    def prepare(self):
        super().prepare()
        self.expected_errors.append("zamber: the hot key Mod4+Shift+55 is bound by sway's configuration")

    def test_what_the_users_configuration_binds_is_left_alone(self):
        self.zamber.press_hot_key()
        wait_until(lambda: list(self.desktop.directory.rglob("pressed")), what="the user's own command")
        self.assertIsNone(self.zamber.popover())
        second = self.desktop.start("second", [self.zamber.binary])
        self.assertEqual(second.wait(5), 0)
        self.zamber.wait_for_popover()


class SwayPasteTest(QuickPasteCases, SwayTestCase):
    pass


class SwayRussianPasteTest(SwayTestCase):
    history = ("first",)
    layout = "ru"

    def test_the_keystroke_is_right_in_a_layout_without_latin_letters(self):
        self.zamber.open_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")
        self.keyboard.tap("v")
        self.editor.wait_for_text("firstм")
