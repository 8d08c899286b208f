# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The search field and an input method: what is being composed belongs to the input method, what is written is searched
for, and what was still being composed when the popover went is forgotten."""

from case import DesktopTestCase
from harness import Editor, InputMethod, holds_for, wait_until
from wayland_case import SwayTestCase

HISTORY = ("apple tart", "你好世界", "拟好了", "가나다", "nihao")
GLANCE_SECONDS = 0.3
# A caret that is at the same place in so many looks, a hundredth of a second apart, stays there.
SETTLED_LOOKS = 15


class WritingCases:
    """The questions that the cases below ask. `place_of(node)` is each desktop's own, and says where a part of the
    popover is. An input method is told where the caret is, so that it can show its phrases there: this is how far what
    is composed is seen to reach."""

    history = HISTORY
    input_method = None

    def prepare(self):
        super().prepare()
        self.method = InputMethod(self.desktop, self.input_method)

    def open(self):
        """The popover with an input method that attends to its field, which is empty."""
        self.zamber.open_popover()
        wait_until(lambda: self.method.has_focus() and self.method.caret(), what="the input method")
        self.home = self.settled_caret()

    def settled_caret(self):
        """Where it is once it has been there for a moment."""
        places = [None]

        def is_settled():
            places.append(self.method.caret())
            return len(places) > SETTLED_LOOKS and set(places[-SETTLED_LOOKS:]) == {places[-1]}

        wait_until(is_settled, 5.0, lambda: f"a caret that stays; it was at {places[-SETTLED_LOOKS:]}")
        return places[-1]

    def compose(self, letters, start=None):
        """Types them, all for the input method, and waits until they are seen behind the start; returns their end."""
        start = start or self.method.caret()
        self.keyboard.type_text(letters)
        self.method.wait_for_keys(*letters)
        self.wait_for_caret_beyond(start + 5 * len(letters))
        end = self.settled_caret()
        self.assertGreaterEqual(end, start + 5 * len(letters), f"{letters!r} is seen")
        return end

    def wait_for_caret_beyond(self, place):
        wait_until(lambda: self.method.caret() >= place, 5.0,
                   lambda: f"a caret at {place} or beyond; it is at {self.method.caret()}")

    def search_and_rows(self):
        tree = self.zamber.tree()
        (field,) = tree.all(role="text")
        return field.text, [node.name for node in tree.all(role="list item")]

    def wait_for_search(self, text, *rows):
        wait_until(lambda: self.search_and_rows() == (text, list(rows)), 5.0,
                   lambda: f"{text!r} and {rows}; there are {self.search_and_rows()}")

    def searches_nothing(self):
        """The popover is open, and a hand has had the time to see otherwise."""
        holds_for(lambda: self.zamber.popover() is not None, GLANCE_SECONDS, "the popover is open")
        self.wait_for_search("", *self.history)


class PhraseCases(WritingCases):
    input_method = "phrases"

    def leave_in_the_middle(self, leave):
        """Composes, leaves, opens it again: nothing is searched for, and what is composed is what is typed then."""
        self.open()
        end = self.compose("nihao")
        leave()
        self.zamber.wait_until_closed()
        self.zamber.open_popover()
        self.searches_nothing()
        self.assertEqual(self.settled_caret(), self.home)
        self.assertEqual(self.compose("nihao"), end)
        self.keyboard.tap("space")
        self.wait_for_search("你好", "你好世界")

    def press_in_editor(self):
        place = self.desktop.window(pid=self.editor.child.pid)
        self.desktop.mouse.click(place.x + 20, place.y + place.height - 30)

    def click_row(self, name):
        self.desktop.mouse.click(*self.place_of(self.zamber.tree().all(role="list item", name=name)[0]))
        self.expect_paste()
        self.editor.wait_for_text(name)

    def test_what_is_composed_is_searched_for_once_it_is_written(self):
        self.open()
        self.compose("nihao")
        self.searches_nothing()
        self.keyboard.tap("space")
        self.wait_for_search("你好", "你好世界")
        self.compose("nih")
        self.keyboard.tap("BackSpace")
        self.method.wait_for_keys("BackSpace")
        self.wait_for_search("你好", "你好世界")
        self.keyboard.tap("Escape", "Return")
        self.expect_paste()
        self.editor.wait_for_text("你好世界")

    def test_arrows_and_digits_choose_among_its_phrases(self):
        self.open()
        self.compose("nihao")
        self.keyboard.tap("Down", "Down", "Up")
        self.method.wait_for_keys("Down", "Down", "Up")
        self.searches_nothing()
        selected = [node.name for node in self.zamber.tree().all(role="list item", states=["selected"])]
        self.assertEqual(selected, ["apple tart"])
        self.keyboard.tap("space")
        self.wait_for_search("拟好", "拟好了")
        self.keyboard.chord("Control_L", "a")
        self.compose("nihao", self.home)
        self.keyboard.tap("1")
        self.wait_for_search("你好", "你好世界")

    def test_escape_ends_the_composing_and_the_next_one_closes(self):
        self.open()
        self.compose("nihao")
        self.keyboard.tap("Escape")
        self.method.wait_for_keys("Escape")
        self.searches_nothing()
        self.assertEqual(self.settled_caret(), self.home)
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()

    def test_return_writes_the_letters_and_the_next_one_chooses(self):
        self.open()
        self.compose("nihao")
        self.keyboard.tap("Return")
        self.wait_for_search("nihao", "nihao")
        self.assertEqual(self.editor.text(), "")
        self.keyboard.tap("Return")
        self.expect_paste()
        self.editor.wait_for_text("nihao")

    def test_what_was_composed_when_another_window_was_pressed_is_forgotten(self):
        self.leave_in_the_middle(self.press_in_editor)

    def test_what_was_composed_when_another_program_came_to_the_front_is_forgotten(self):
        self.leave_in_the_middle(lambda: Editor(self.desktop, "Newcomer", geometry="300x200+40+500"))

    def test_what_was_composed_when_a_row_was_clicked_is_forgotten(self):
        self.leave_in_the_middle(lambda: self.click_row("가나다"))

    def test_the_hot_key_leaves_the_popover_and_what_is_composed(self):
        self.open()
        end = self.compose("ni")
        self.zamber.press_hot_key()
        self.searches_nothing()
        self.compose("hao", end)
        self.keyboard.tap("space")
        self.wait_for_search("你好", "你好世界")

    def test_the_clear_button_takes_what_is_composed_as_well(self):
        self.open()
        self.compose("x")
        self.keyboard.tap("space")
        self.wait_for_search("x")
        self.compose("nihao")
        (clear,) = self.zamber.tree().all(role="push button", name="Clear search", states=["showing"])
        self.desktop.mouse.click(*self.place_of(clear))
        self.searches_nothing()
        self.compose("nihao", self.home)
        self.keyboard.tap("space")
        self.wait_for_search("你好", "你好世界")

    def test_a_former_search_is_replaced_with_the_first_letter(self):
        self.open()
        self.compose("apple")
        self.keyboard.tap("space")
        self.wait_for_search("apple", "apple tart")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.zamber.open_popover()
        self.wait_for_search("apple", "apple tart")
        end = self.compose("n", self.home)
        self.assertLess(end, self.home + 20)
        self.searches_nothing()

    def test_the_program_can_be_quit_in_the_middle(self):
        self.open()
        self.compose("nihao")
        self.assertEqual(self.zamber.stop(), 0)
        self.zamber_has_ended = True
        self.assertEqual(self.zamber.history(), list(self.history))


class SyllableCases(WritingCases):
    """An input method that writes one syllable and begins the next with one key, and ends the last one with any."""

    input_method = "syllables"

    def test_a_syllable_is_searched_for_while_the_next_is_composed_and_return_chooses(self):
        self.open()
        self.compose("ga")
        self.keyboard.type_text("n")
        self.wait_for_search("가", "가나다")
        written = self.method.caret()
        self.compose("a", written)
        self.keyboard.tap("Return")
        self.expect_paste()
        self.editor.wait_for_text("가나다")


class PhrasesTest(PhraseCases, DesktopTestCase):
    def place_of(self, node):
        return node.centre


class SyllablesTest(SyllableCases, DesktopTestCase):
    pass


class SwayPhrasesTest(PhraseCases, SwayTestCase):
    def place_of(self, node):
        popover, (x, y) = self.zamber.popover(), node.centre
        return popover.x + x, popover.y + y


class SwaySyllablesTest(SyllableCases, SwayTestCase):
    pass
