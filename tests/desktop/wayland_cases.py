# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What holds on every compositor: cases that are a part of each compositor's own classes."""

from case import PASTED_LINE, PASTING_LINE
from harness import KEY_CODES, Begun, Editor, Foot, SelectionOwner, holds_for, png_bytes, wait_until

UTF8 = "text/plain;charset=utf-8"
HINT = "x-kde-passwordManagerHint"
TEXT = "  grüße, мир, 日本語 😀👩‍👩‍👧\n\tsecond line \n"


class CaptureCases:
    """What is recorded of copies."""

    def test_a_text_that_a_wayland_program_copies_is_recorded(self):
        self.keyboard.type_text("typed and copied")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.chord("Control_L", "c")
        self.zamber.wait_for_history(["typed and copied"])

    def test_a_text_that_a_program_of_x_copies_is_recorded(self):
        Editor(self.desktop, "Of X", GDK_BACKEND="x11")
        self.keyboard.type_text("from X")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.chord("Control_L", "c")
        self.zamber.wait_for_history(["from X"])

    def test_texts_are_recorded_as_they_are(self):
        self.copy_and_wait(TEXT, [TEXT])
        large = "".join(f"line {number} of many\n" for number in range(60000))
        self.copy_and_wait(large, [large, TEXT])

    def test_a_picture_is_recorded_and_its_text_with_it_is_not_taken_for_the_entry(self):
        owner = self.owner()
        owner.offer({UTF8: b"https://zamber.example/", "image/png": png_bytes()})
        self.zamber.wait_for_history([png_bytes()])

    def test_what_is_there_at_the_start_is_no_entry(self):
        self.zamber.stop()
        self.expected_lines = []
        self.clipboard.copy_text("there before")
        self.start_zamber()
        self.let_a_poll_pass()
        self.copy_and_wait("copied", ["copied"])

    def test_a_burst_of_copies_ends_with_the_last(self):
        owner = self.owner()
        for number in range(60):
            owner.offer({UTF8: b"copy %d" % number})
        wait_until(lambda: self.zamber.history()[:1] == ["copy 59"], 6.0, "the last copy")

    def test_a_secret_is_neither_asked_for_nor_kept(self):
        owner = self.owner()
        owner.offer({HINT: b"secret", UTF8: b"my password"})
        wait_until(lambda: HINT in owner.requests(), what="the hint to be read")
        self.let_a_poll_pass()
        self.copy_and_wait("harmless", ["harmless"])
        self.assertEqual(owner.requests(), [HINT])


class OwnerOfX:
    """For cases in which a program of X is in front and copies."""

    def open_owner_of_x(self):
        self.of_x = Editor(self.desktop, "Of X", GDK_BACKEND="x11")
        self.owner_of_x = SelectionOwner(self.desktop)

    def offer_secret_of_x(self):
        asked_before = self.owner_of_x.requests().count(HINT)
        self.owner_of_x.offer({HINT: b"secret", "UTF8_STRING": b"my password"})
        wait_until(lambda: self.owner_of_x.requests().count(HINT) > asked_before, what="the hint to be read")

    def assert_secret_of_x_is_neither_asked_for_nor_kept(self):
        self.offer_secret_of_x()
        self.let_a_poll_pass()
        self.copy_and_wait("harmless", ["harmless"])
        self.assertNotIn("UTF8_STRING", self.owner_of_x.requests())


class OwnersCases:
    """Owners that hang, stop and die."""

    history = ("old",)

    def test_an_owner_that_never_delivers_costs_nothing(self):
        owner = self.owner()
        owner.offer({UTF8: None})
        wait_until(lambda: UTF8 in owner.requests(), what="the request")
        self.copy_and_wait("next", ["next", "old"])

    def test_a_stopped_owner_costs_nothing(self):
        owner = self.owner()
        owner.offer({UTF8: b"late"})
        self.zamber.wait_for_history(["late", "old"])
        owner.child.pause()
        self.copy_and_wait("next", ["next", "late", "old"])
        owner.child.resume()

    def test_an_owner_that_dies_in_the_middle_of_its_answer_leaves_no_half(self):
        owner = self.owner()
        owner.offer({UTF8: Begun(b"the first half of")})
        wait_until(lambda: UTF8 in owner.requests(), what="the request")
        owner.child.kill()
        self.let_a_poll_pass()
        self.copy_and_wait("next", ["next", "old"])

    def test_what_was_copied_outlives_the_program_that_it_was_copied_from(self):
        owner = self.owner()
        owner.offer({UTF8: b"orphan"})
        self.zamber.wait_for_history(["orphan", "old"])
        owner.child.kill()
        wait_until(lambda: self.clipboard.text() == "orphan", 5.0, "the text to be served")
        self.keyboard.chord("Control_L", "v")
        self.editor.wait_for_text("orphan")
        self.let_a_poll_pass()
        self.copy_and_wait("next", ["next", "orphan", "old"])

    def test_a_secret_dies_with_its_owner(self):
        owner = self.owner()
        owner.offer({HINT: b"secret", UTF8: b"my password"})
        wait_until(lambda: HINT in owner.requests(), what="the hint to be read")
        owner.child.kill()
        wait_until(lambda: self.clipboard.targets() == [], what="the owner to be gone")
        holds_for(lambda: self.clipboard.targets() == [], 0.8, "the clipboard is empty")

    def test_it_ends_when_it_is_asked_to_in_the_middle_of_a_reading(self):
        owner = self.owner()
        owner.offer({UTF8: Begun(b"and no more")})
        wait_until(lambda: UTF8 in owner.requests(), what="the request")
        self.assertEqual(self.zamber.stop(), 0)
        self.zamber_has_ended = True


class OpeningCases:
    history = ("first", "second", "third")

    def test_the_hot_key_opens_the_history_whatever_is_in_front(self):
        self.open_and_close()
        self.desktop.wait_until_active(self.editor.window)
        of_x = Editor(self.desktop, "Of X", GDK_BACKEND="x11")
        self.open_and_close()
        self.assertEqual(self.editor.text() + of_x.text(), "")

    def open_and_close(self):
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()


class HotKeysCases(OpeningCases):
    """Hot keys of the program's own, whose keys are the user's where the program does not need them."""

    def test_it_is_given_back_at_the_end(self):
        self.assertEqual(self.zamber.stop(), 0)
        self.zamber_has_ended = True
        self.zamber.press_hot_key()
        self.wait_for_press("v")

    def test_the_keys_of_quick_paste_are_the_users_own_while_it_is_off(self):
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.wait_for_press("2")

    def wait_for_press(self, name):
        wait_until(lambda: any(key["code"] == KEY_CODES[name] and key["pressed"] for key in self.editor.keys()),
                   what="the key to reach the editor")


class PasteCases:
    """The way of an entry into other programs."""

    history = ("first", "second", "third")

    def paste_entry(self, position=0):
        self.zamber.open_popover()
        self.choose(position)
        self.expect_paste()

    def test_an_entry_goes_into_the_program_that_was_in_front(self):
        bystander = Editor(self.desktop, "Bystander")
        self.editor.activate()
        for count in range(1, 6):
            self.paste_entry(1)
            self.editor.wait_for_text("second" * count)
        self.keyboard.type_text("x")
        self.editor.wait_for_text("second" * 5 + "x")
        self.assertEqual(bystander.keys(), [])
        self.assertEqual(self.clipboard.text(), "second")

    def test_an_entry_goes_into_a_program_of_x(self):
        of_x = Editor(self.desktop, "Of X", GDK_BACKEND="x11")
        self.paste_entry(2)
        of_x.wait_for_text("third")
        self.assertEqual(self.editor.text(), "")

    def test_a_terminal_gets_its_own_keystroke(self):
        foot = Foot(self.desktop)
        self.paste_entry()
        foot.wait_for(b"first")

    def test_a_picture_goes_into_the_program_that_was_in_front(self):
        self.owner().offer({"image/png": png_bytes()})
        self.zamber.wait_for_history([png_bytes(), "first", "second", "third"])
        self.copy_and_wait("later", ["later", png_bytes(), "first", "second", "third"])
        self.paste_entry(1)
        self.editor.wait_for_image(png_bytes())

    def test_a_copy_that_comes_before_the_keystroke_is_not_overwritten(self):
        owner = self.owner()
        self.zamber.open_popover()
        self.choose(1)
        self.expected_lines.append(PASTING_LINE)
        wait_until(lambda: self.clipboard.text() == "second", what="the choice on the clipboard")
        owner.offer({UTF8: b"newer"})
        self.zamber.wait_for_history(["newer", "first", "second", "third"])
        self.assertEqual(self.clipboard.text(), "newer")


class QuickPasteCases(PasteCases):
    preferences = {"quickPasteEnabled": True}

    def test_a_quick_paste_with_the_modifiers_still_held(self):
        self.keyboard.play((0.0, "+Super_L"), (0.08, "+Shift_L"), (0.16, "+3"), (0.4, "-3"), (0.8, "-Shift_L"),
                           (0.9, "-Super_L"))
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text("third")
        self.keyboard.type_text("x")
        self.editor.wait_for_text("thirdx")

    def test_two_quick_pastes_each_paste_their_own(self):
        self.keyboard.press("Super_L", "Shift_L")
        self.keyboard.tap("2")
        self.keyboard.tap("3")
        self.keyboard.release("Shift_L", "Super_L")
        self.expected_lines += [PASTED_LINE] * 2
        self.editor.wait_for_text("secondthird")


class EndCases:
    """The end of the compositor."""

    def test_it_ends_with_its_compositor(self):
        self.desktop.compositor_process.kill()
        wait_until(lambda: not self.zamber.is_running(), 5.0, "the program to end")
        self.zamber_has_ended = True
        self.expected_errors = self.zamber.stderr_lines()
