# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program on KWin, as Plasma has it: copies, hot keys, and pasting by the permission of its desktop entry."""

import itertools

from case import PASTED_LINE
from harness import CONTROL, KEY_CODES, SHIFT, SUPER, Editor, holds_for, wait_until
from harness.zamber import UNTRUSTED_LINE
from wayland_case import KWinTestCase
from wayland_cases import UTF8, CaptureCases, EndCases, HotKeysCases, OwnerOfX, OwnersCases, QuickPasteCases
from wayland_window_cases import WindowCases

KGLOBALACCEL = ["gdbus", "call", "--session", "-d", "org.kde.kglobalaccel", "-o", "/kglobalaccel", "-m"]
META, SHIFTED = 0x10000000, 0x02000000  # as Qt numbers combinations
KEY_CODE_OF_J = 44


class KWinCaptureTest(CaptureCases, KWinTestCase):
    pass


class KWinOwnersTest(OwnersCases, KWinTestCase):
    pass


class KWinOwnersOfXTest(OwnerOfX, KWinTestCase):
    """KWin passes on what a program of X copies while it is in front, and does not notice when that program dies."""

    def prepare(self):
        self.editor = Editor(self.desktop)
        self.open_owner_of_x()

    def test_a_secret_is_neither_asked_for_nor_kept(self):
        self.assert_secret_of_x_is_neither_asked_for_nor_kept()

    def test_what_was_copied_outlives_a_program_of_x_that_dies(self):
        self.owner_of_x.offer({"UTF8_STRING": b"orphan"})
        self.zamber.wait_for_history(["orphan"])
        self.owner_of_x.child.kill()
        wait_until(lambda: self.clipboard.text() == "orphan", 8.0, "the text to be served")
        self.editor.activate()
        self.keyboard.chord("Control_L", "v")
        self.editor.wait_for_text("orphan")
        self.assertEqual(self.zamber.history(), ["orphan"])

    def test_a_secret_is_not_served_after_its_program_has_died(self):
        self.offer_secret_of_x()
        self.owner_of_x.child.kill()
        self.let_a_poll_pass()
        self.copy_and_wait("harmless", ["harmless"])

    def test_the_end_of_a_program_of_x_whose_copy_was_replaced_changes_nothing(self):
        self.owner_of_x.offer({"UTF8_STRING": b"older"})
        self.zamber.wait_for_history(["older"])
        self.editor.activate()
        newer = self.owner()
        newer.offer({UTF8: b"newer", "text/html": b"<b>newer</b>"})
        self.zamber.wait_for_history(["newer", "older"])
        self.owner_of_x.child.kill()
        holds_for(lambda: "text/html" in self.clipboard.targets(), 2.0, "the owner of the newer copy has it")


class KWinHotKeysTest(HotKeysCases, KWinTestCase):
    def test_it_works_again_in_whatever_order_the_keys_came_up(self):
        for order in (("v", "Shift_L", "Super_L"), ("Shift_L", "v", "Super_L"), ("Super_L", "Shift_L", "v")):
            for _ in range(2):
                self.keyboard.press("Super_L", "Shift_L", "v")
                self.keyboard.release(*order)
                self.zamber.wait_for_popover()
                self.keyboard.tap("Escape")
                self.zamber.wait_until_closed()
        self.assertEqual(self.editor.text(), "")

    def test_the_key_that_the_user_chooses_in_plasmas_settings_is_kept(self):
        action = "['app.zamber.Zamber', 'history', 'Zamber', 'Show the clipboard history']"
        self.desktop.run([*KGLOBALACCEL, "org.kde.KGlobalAccel.setForeignShortcut", action, f"[{META + ord('J')}]"])
        self.assert_chosen_key_works()
        self.assertEqual(self.zamber.stop(), 0)
        self.expected_lines = []
        self.start_zamber()
        self.assert_chosen_key_works()

    def assert_chosen_key_works(self):
        self.keyboard.chord("Super_L", KEY_CODE_OF_J)
        self.zamber.wait_for_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()


class KWinMenuTest(WindowCases, KWinTestCase):
    """A menu of the program's own is open, which has the keyboard."""

    history = ("first", "second", "third")
    preferences = {"quickPasteEnabled": True}

    def setUp(self):
        super().setUp()
        self.open_row_menu("second")

    def test_the_main_hot_key_closes_it_and_keeps_the_history_open(self):
        self.zamber.press_hot_key()
        self.zamber.wait_for_popover()
        wait_until(self.takes_typing, 3.0, "what is typed to be searched for")

    def takes_typing(self):
        self.keyboard.tap("x")
        return any(node.text.startswith("x") for node in self.zamber.tree().all(role="text"))

    def test_a_quick_paste_closes_it(self):
        self.keyboard.chord("Super_L", "Shift_L", "3")
        self.expected_lines.append(PASTED_LINE)

        def arrived():
            fields = [node.text for node in self.zamber.tree().all(role="text")] if self.zamber.popover() else []
            return [text for text in (*fields, self.editor.text()) if text]

        wait_until(lambda: arrived() == ["third"], what=lambda: f"the entry once; there is {arrived()}")


class KWinTakenHotKeyTest(KWinTestCase):
    history = ("first",)

    def prepare(self):
        super().prepare()
        self.take("other", META + SHIFTED + ord("V"))
        self.expected_errors.append("zamber: the hot key Super+Shift+V is held by another program")

    def take(self, component, combination):
        """As another program does that was there before."""
        action = f"['{component}', 'act', 'Other', 'Act']"
        self.desktop.run([*KGLOBALACCEL, "org.kde.KGlobalAccel.doRegister", action])
        granted = self.desktop.run([*KGLOBALACCEL, "org.kde.KGlobalAccel.setShortcut", action, f"[{combination}]", "6"])
        self.assertIn(str(combination), granted)

    def test_what_another_program_has_is_left_to_it(self):
        self.zamber.press_hot_key()
        holds_for(lambda: self.zamber.popover() is None, 0.8, "the history stays closed")
        second = self.desktop.start("second", [self.zamber.binary])
        self.assertEqual(second.wait(5), 0)
        self.zamber.wait_for_popover()


class KWinRussianHotKeysTest(KWinTestCase):
    history = ("first", "second", "third")
    preferences = {"quickPasteEnabled": True}
    layout = "ru"

    def test_the_keys_are_where_they_are_on_every_keyboard(self):
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text("second")


class KWinPasteTest(QuickPasteCases, KWinTestCase):
    def test_a_terminal_gets_its_own_keystroke(self):
        """By a stand-in with a terminal's id: foot fails on an output of no size, as KWin's is here."""
        terminal = Editor(self.desktop, "Terminal", class_name="foot")
        self.paste_entry()
        wait_until(lambda: self.presses_of_v(terminal), what="the keystroke")
        self.assertEqual([state & (SHIFT | CONTROL | SUPER) for state in self.presses_of_v(terminal)],
                         [SHIFT | CONTROL])

    def presses_of_v(self, editor):
        return [key["state"] for key in editor.keys() if key["pressed"] and key["code"] == KEY_CODES["v"]]

    def test_the_same_digit_again_pastes_again_in_whatever_order_the_keys_came_up(self):
        arrived = ""
        for order in itertools.permutations(("Super_L", "Shift_L", "2")):
            releases = ((0.3 + 0.1 * step, f"-{key}") for step, key in enumerate(order))
            self.keyboard.play((0.0, "+Super_L"), (0.06, "+Shift_L"), (0.12, "+2"), *releases)
            self.expected_lines.append(PASTED_LINE)
            arrived += "second"
            self.editor.wait_for_text(arrived)

    def test_two_digits_one_after_the_other_with_the_modifiers_down(self):
        self.keyboard.play((0.0, "+Super_L"), (0.06, "+Shift_L"), (0.12, "+2"), (0.24, "-2"), (0.38, "+3"), (0.5, "-3"),
                           (0.6, "-Shift_L"), (0.66, "-Super_L"))
        self.expected_lines += [PASTED_LINE] * 2
        self.editor.wait_for_text("secondthird")
        self.keyboard.type_text("x")
        self.editor.wait_for_text("secondthirdx")

    def test_a_digit_that_is_held_for_long_pastes_once(self):
        self.keyboard.play((0.0, "+Super_L"), (0.08, "+Shift_L"), (0.16, "+2"), (2.2, "-2"), (2.3, "-Shift_L"),
                           (2.4, "-Super_L"))
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text("second")
        holds_for(lambda: self.editor.text() == "second", 1.0, "the entry is there once")


class KWinRussianPasteTest(KWinTestCase):
    history = ("first",)
    layout = "ru"

    def test_an_entry_arrives_in_a_layout_without_latin_letters(self):
        self.zamber.open_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")
        self.keyboard.tap("v")
        self.editor.wait_for_text("firstм")


class KWinSecondLayoutPasteTest(KWinRussianPasteTest):
    layout = "us,ru"

    def prepare(self):
        super().prepare()
        self.desktop.use_layout(1)


class KWinNotInstalledTest(KWinTestCase):
    """Without the desktop entry KWin lets the program neither type nor see what is in front."""

    is_installed = False
    history = ("first",)
    ready_line = UNTRUSTED_LINE

    def prepare(self):
        super().prepare()
        self.expected_errors.append(
            "zamber: KWin lets Zamber paste into other programs only when it is installed: its desktop entry asks for "
            "that, and names the program by its whole path")

    def test_the_permission_window_is_there_and_a_choice_is_on_the_clipboard(self):
        wait_until(lambda: self.desktop.window(title="Zamber — Permission Required", pid=self.zamber.pid),
                   what="the permission window")
        self.keyboard.type_text("x")
        self.editor.wait_for_text("x")
        self.zamber.open_popover()
        self.choose()
        self.expected_lines.append("❌ No previous app to paste into")
        wait_until(lambda: self.clipboard.text() == "first", what="the choice on the clipboard")


class KWinEndTest(EndCases, KWinTestCase):
    pass


if __name__ == "__main__":
    import unittest

    unittest.main()
