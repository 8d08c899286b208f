# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What holds of the popover's own question on every compositor that places the program's windows."""

from harness import wait_until
from wayland_window_cases import HISTORY, WindowCases


class QuestionCases(WindowCases):
    """The question whether to clear the history, which is a part of the popover."""

    def open_question(self):
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        self.keyboard.chord("Control_L", "Shift_L", "Delete")
        wait_until(lambda: self.button("Clear All"), what="the question")

    def button(self, name):
        return next(iter(self.zamber.tree().all(role="push button", name=name, states=["showing"])), None)

    def click(self, name):
        self.let_a_glance_pass()
        self.desktop.mouse.click(*self.place_of(self.button(name)))
        wait_until(lambda: self.button("Clear All") is None, what="the question to be gone")

    def test_a_click_answers_it_and_what_is_typed_then_is_searched_for(self):
        self.open_question()
        self.click("Cancel")
        self.keyboard.type_text("banana")
        self.wait_for_names("banana bread")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.tap("BackSpace")
        self.wait_for_names(*HISTORY)
        self.keyboard.chord("Control_L", "Shift_L", "Delete")
        wait_until(lambda: self.button("Clear All"), what="the question")
        self.click("Clear All")
        self.wait_for_names()
        self.zamber.wait_for_history([])
        self.close_by_escape()
        self.typing_reaches(self.editor)

    def test_escape_and_a_press_elsewhere_close_it_with_the_popover(self):
        for leave in (lambda: self.keyboard.tap("Escape"), lambda: self.press_in(self.editor, 0)):
            self.open_question()
            leave()
            self.zamber.wait_until_closed()
            self.typing_reaches(self.editor)
            self.zamber.open_popover()
            self.wait_for_names(*HISTORY)
            self.assertIsNone(self.button("Clear All"))
            self.close_by_escape()

    def test_return_pastes_while_it_is_open(self):
        self.open_question()
        self.keyboard.tap("Down", "Return")
        self.expect_paste()
        self.editor.wait_for_text("banana bread")
        self.zamber.wait_for_history(list(HISTORY))
