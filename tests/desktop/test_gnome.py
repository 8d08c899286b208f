# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program on GNOME itself, whose user answers the dialogs of its portals."""

from case import PASTED_LINE, PASTING_LINE
from harness import Editor, GnomeDesktop, WaitTimeout, Zamber, default_binary, holds_for, wait_until
from harness.zamber import READY_LINE, UNTRUSTED_LINE
from test_permission import NOT_GRANTED_LINES
from wayland_case import WaylandTestCase
from wayland_cases import OpeningCases, OwnerOfX

PERMISSION_TITLE = "Zamber — Permission Required"
GRANTED_LINE = "✅ Accessibility granted!"
SHORTCUTS_TITLE = "Add Keyboard Shortcuts"
REMOTE_TITLE = "Remote Desktop"
DIALOG_SECONDS = 20.0
CLICK_SECONDS = 2.0
SILENCE_SECONDS = 4.0  # in which a dialog would be there
# The buttons of the dialogs, from the edge of their header bar, and the switch, from the window's corner.
BUTTON_FROM_EDGE, BUTTON_FROM_TOP = 45, 23
SWITCH = (575, 157)


class GnomeTestCase(WaylandTestCase):
    oldest_debian = 13
    environment = {"NO_AT_BRIDGE": "1"}  # GTK, in Qt's theme, would show a second program to the tests
    history = ("first", "second", "third")
    ready_line = UNTRUSTED_LINE
    accepts_shortcuts = True

    def make_desktop(self):
        return GnomeDesktop(installed=[default_binary()])

    def start_zamber(self):
        """At the first start the desktop asks about the hot keys before the program tells about the permission."""
        loaded = f"📋 Loaded {len(self.history)} items from disk"
        self.expected_lines += [loaded, self.ready_line]
        self.zamber = Zamber(self.desktop, ready_line=loaded)
        self.zamber.environment = {**self.zamber.environment, **self.environment}
        self.zamber.start()
        self.answer(SHORTCUTS_TITLE, self.accepts_shortcuts)
        self.wait_for_expected_lines()
        self.wait_for_window(PERMISSION_TITLE)

    def start_again(self, ready_line):
        """Nothing is asked any more."""
        self.zamber.stop()
        self.zamber = Zamber(self.desktop, ready_line=ready_line)
        self.zamber.environment = {**self.zamber.environment, **self.environment}
        self.expected_lines = [f"📋 Loaded {len(self.zamber.records())} items from disk", ready_line]
        self.zamber.start()
        holds_for(lambda: not self.desktop.window(SHORTCUTS_TITLE), SILENCE_SECONDS, "no question about hot keys")

    def wait_for_window(self, title):
        def is_drawn():
            window = self.desktop.window(title)
            return window if window and window.width > 1 else None

        return wait_until(is_drawn, DIALOG_SECONDS, lambda: f"the window {title!r} among {self.desktop.windows()}")

    def answer(self, title, is_yes, *switches):
        """By the mouse: first on switches, then on the one button of the header bar or the other. A dialog that has just
        come up may miss a click; what is asked with a switch off has its button off."""
        def is_gone():
            window = self.desktop.window(title)
            if not window:
                return True
            for x, y in switches:
                self.desktop.mouse.click(window.x + x, window.y + y)
            x = window.width - BUTTON_FROM_EDGE if is_yes else BUTTON_FROM_EDGE
            self.desktop.mouse.click(window.x + x, window.y + BUTTON_FROM_TOP)
            try:
                return wait_until(lambda: not self.desktop.window(title), CLICK_SECONDS)
            except WaitTimeout:
                return False

        self.desktop.wait_until_active(self.wait_for_window(title))
        wait_until(is_gone, DIALOG_SECONDS, lambda: f"the dialog {title!r} to be gone among {self.desktop.windows()}")

    def ask_for_access(self):
        (button,) = wait_until(lambda: self.zamber.tree().all(role="push button", name="Grant Access"), 5.0, "the button")
        self.zamber.act(button, "Press")

    def grant(self):
        self.ask_for_access()
        self.answer(REMOTE_TITLE, True, SWITCH)
        self.expected_lines.append(GRANTED_LINE)
        self.wait_for_expected_lines()

    def paste_entry(self, position):
        self.zamber.open_popover()
        self.choose(position)
        self.expect_paste()

    def assert_only_the_clipboard_gets(self, position):
        before = self.editor.text()
        self.zamber.open_popover()
        self.choose(position)
        self.expected_lines += [PASTING_LINE, *NOT_GRANTED_LINES]
        self.wait_for_expected_lines()
        self.desktop.wait_until_active(self.editor.window)
        self.assertEqual(self.clipboard.text(), self.history[position])
        self.assertEqual(self.editor.text(), before)
        self.keyboard.chord("Control_L", "v")
        self.editor.wait_for_text(before + self.history[position])


class GnomeOpeningTest(OpeningCases, GnomeTestCase):
    pass


class GnomePasteTest(GnomeTestCase):
    def wait_until_typed(self):
        """The entry is there when V has gone down; Ctrl comes up a moment later."""
        wait_until(lambda: self.desktop.open_portal_sessions() == 1, 3.0, "no session but that of the hot keys")

    def test_an_entry_goes_into_the_program_that_was_in_front_also_after_the_next_start(self):
        self.grant()
        self.editor.activate()
        for count in range(1, 6):
            self.paste_entry(1)
            self.editor.wait_for_text("second" * count)
            self.wait_until_typed()
        self.start_again(READY_LINE)
        self.assertIsNone(self.desktop.window(PERMISSION_TITLE))
        self.paste_entry(2)
        self.editor.wait_for_text("second" * 5 + "third")
        self.wait_until_typed()
        self.keyboard.type_text("x")
        self.editor.wait_for_text("second" * 5 + "thirdx")

    def test_a_program_of_x_gets_its_keystroke_also_without_consent(self):
        of_x = Editor(self.desktop, "Of X", GDK_BACKEND="x11")
        self.paste_entry(2)
        of_x.wait_for_text("third")
        self.assertEqual(self.editor.text(), "")

    def test_without_consent_the_entry_is_on_the_clipboard_and_the_log_says_so(self):
        self.editor.activate()
        self.assert_only_the_clipboard_gets(1)
        self.ask_for_access()
        self.answer(REMOTE_TITLE, False)
        self.editor.activate()
        self.assert_only_the_clipboard_gets(2)


class GnomeQuickPasteTest(GnomeTestCase):
    preferences = {"quickPasteEnabled": True}

    def test_a_quick_paste_as_hands_press_it_and_two_in_a_row(self):
        self.grant()
        self.editor.activate()
        self.keyboard.play((0.0, "+Super_L"), (0.08, "+Shift_L"), (0.16, "+3"), (0.3, "-3"), (0.36, "-Shift_L"),
                           (0.42, "-Super_L"))
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text("third")
        self.keyboard.press("Super_L", "Shift_L")
        self.keyboard.tap("2")
        self.keyboard.tap("3")
        self.keyboard.release("Shift_L", "Super_L")
        self.expected_lines += [PASTED_LINE] * 2
        self.editor.wait_for_text("thirdsecondthird")


class GnomeRefusedShortcutsTest(GnomeTestCase):
    accepts_shortcuts = False

    def test_the_user_is_not_asked_again_and_programs_of_x_have_the_hot_key(self):
        self.start_again(UNTRUSTED_LINE)
        Editor(self.desktop, "Of X", GDK_BACKEND="x11")
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()


class GnomeCaptureTest(OwnerOfX, GnomeTestCase):
    def test_what_programs_of_wayland_and_of_x_copy_is_recorded(self):
        self.editor.activate()
        self.keyboard.type_text("typed and copied")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.chord("Control_L", "c")
        self.zamber.wait_for_history(["typed and copied", *self.history])
        self.copy_and_wait("from X", ["from X", "typed and copied", *self.history])

    def test_a_secret_of_a_program_of_x_is_left_out(self):
        self.open_owner_of_x()
        self.offer_secret_of_x()
        self.let_a_poll_pass()
        self.copy_and_wait("harmless", ["harmless", *self.history])
