# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program on Wayland: what is recorded of other programs' copies, and what they get back."""

from harness import Begun, Editor, holds_for, png_bytes, wait_until
from wayland_case import SwayTestCase

UTF8 = "text/plain;charset=utf-8"
HINT = "x-kde-passwordManagerHint"
TEXT = "  grüße, мир, 日本語 😀👩‍👩‍👧\n\tsecond line \n"


class SwayCaptureTest(SwayTestCase):
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


class SwayOwnersTest(SwayTestCase):
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

