# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The keyboard in the popover: keys of the list, and keys of the search field."""

from case import DesktopTestCase
from harness import holds_for, wait_until

HISTORY = ("apple tart", "banana bread", "cherry cake")
# Key codes; the dead key is where the German layout has it.
KEYPAD_ENTER, DEAD_ACUTE, LETTER_E = 104, 21, 26


class KeysTest(DesktopTestCase):
    """Four keys are the popover's, wherever the focus is; all others are the search field's."""

    history = HISTORY

    def selected(self):
        return [node.name for node in self.zamber.tree().all(role="list item", states=["selected"])]

    def wait_for_selected(self, name):
        wait_until(lambda: self.selected() == [name], 5.0, lambda: f"{name!r} selected; it is {self.selected()}")

    def search_text(self):
        (field,) = self.zamber.tree().all(role="text")
        return field.text

    def wait_for_search_text(self, text):
        wait_until(lambda: self.search_text() == text, 5.0, lambda: f"{text!r}; it holds {self.search_text()!r}")

    def test_the_keypads_enter_is_not_return(self):
        self.zamber.open_popover()
        self.keyboard.tap(KEYPAD_ENTER)
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.assertEqual(self.editor.text(), "")

    def test_modifiers_do_not_matter(self):
        self.zamber.open_popover()
        self.keyboard.chord("Shift_L", "Down")
        self.wait_for_selected("banana bread")
        self.keyboard.chord("Control_L", "Down")
        self.wait_for_selected("cherry cake")
        self.keyboard.chord("Control_L", "Up")
        self.wait_for_selected("banana bread")
        self.keyboard.chord("Shift_L", "Return")
        self.expect_paste()
        self.editor.wait_for_text("banana bread")

    def test_typing_and_return_in_one_breath_paste_the_match(self):
        self.zamber.open_popover()
        for _ in range(3):
            self.keyboard.type_text("cherry")
            self.keyboard.tap("BackSpace", "BackSpace")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.type_text("banana")
        self.keyboard.tap("Return")
        self.expect_paste()
        self.editor.wait_for_text("banana bread")

    def test_all_other_keys_edit_the_search_text(self):
        self.zamber.open_popover()
        self.keyboard.type_text("abc")
        self.keyboard.tap("Left", "Left", "Delete", "Home")
        self.keyboard.type_text("x")
        self.keyboard.tap("End", "BackSpace", "Tab")
        self.keyboard.type_text("y")
        self.wait_for_search_text("xay")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.type_text("z")
        self.wait_for_search_text("z")

    def test_the_four_keys_never_reach_the_search_field(self):
        self.zamber.open_popover()
        self.keyboard.type_text("nowhere")
        self.keyboard.tap("Up", "Down", "Return", "Up")
        self.keyboard.type_text("x")
        self.wait_for_search_text("nowherex")

    def test_the_four_keys_work_while_the_question_is_open(self):
        self.zamber.open_popover()
        (clear,) = self.zamber.tree().all(role="push button", name="Clear", states=["showing"])
        self.zamber.act(clear, "Press")
        wait_until(lambda: self.zamber.tree().all(role="push button", name="Clear All", states=["showing"]), 5.0,
                   "the question")
        self.keyboard.tap("Down")
        self.wait_for_selected("banana bread")
        self.keyboard.tap("Return")
        self.expect_paste()
        self.editor.wait_for_text("banana bread")
        self.zamber.open_popover()
        self.assertEqual(len(self.names()), 3, "nothing was cleared")
        self.assertEqual(self.zamber.tree().all(role="push button", name="Clear All", states=["showing"]), [])
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()

    def names(self):
        return [node.name for node in self.zamber.tree().all(role="list item")]


class CommandKeysTest(DesktopTestCase):
    """What a hand on the mouse can do, a hand on the keyboard can do as well."""

    history = HISTORY
    command = "Super_L"

    def rows(self):
        return [node.name for node in self.zamber.tree().all(role="list item")]

    def wait_for_rows(self, *names):
        wait_until(lambda: self.rows() == list(names), 5.0, lambda: f"{names}; there are {self.rows()}")

    def wait_for_menu(self):
        wait_until(self.zamber.menu, 5.0, "the menu")

    def test_pin_delete_and_clear(self):
        self.zamber.open_popover()
        self.keyboard.tap("Down")
        self.keyboard.chord("Control_L", "p")
        self.wait_for_rows("banana bread", "apple tart", "cherry cake")
        self.keyboard.chord(self.command, "Shift_L", "d")
        self.wait_for_rows("banana bread", "cherry cake")
        self.keyboard.chord("Control_L", "Shift_L", "Delete")
        clear_all = wait_until(
            lambda: self.zamber.tree().all(role="push button", name="Clear All", states=["showing"]), 5.0, "the question")
        self.zamber.act(clear_all[0], "Press")
        self.wait_for_rows("banana bread")
        self.zamber.wait_for_history(["banana bread"])

    def test_the_menu_key_opens_the_menu_of_the_selected_row(self):
        for open_menu in (lambda: self.keyboard.tap("Menu"), lambda: self.keyboard.chord("Shift_L", "F10")):
            self.zamber.open_popover()
            self.keyboard.tap("Down")
            open_menu()
            self.wait_for_menu()
            self.keyboard.tap("Return")
            self.expect_paste()
            wait_until(lambda: "banana bread" in self.editor.text(), 5.0, lambda: self.editor.text())
            self.keyboard.chord("Control_L", "a")
            self.keyboard.tap("Delete")
        self.zamber.open_popover()
        self.keyboard.tap("Menu")
        self.wait_for_menu()
        self.keyboard.tap("Down", "Down", "Return")
        wait_until(lambda: len(self.rows()) == 2, 5.0, lambda: f"one row less; there are {self.rows()}")
        self.assertIsNotNone(self.zamber.popover(), "the menu closes the menu alone")
        self.keyboard.tap("Menu")
        self.wait_for_menu()
        self.keyboard.tap("Escape")
        wait_until(lambda: self.zamber.menu() is None, 5.0, "no menu")
        holds_for(lambda: self.zamber.popover() is not None, 0.3, "the popover is open")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()


class CommandKeysOfAnotherScriptTest(CommandKeysTest):
    """Where the letters are Cyrillic, a combination is the key that has the letter on the other layout."""

    layout = "ru,us"
    command = "Control_L"  # a letter with ⌘ is looked for on the first layout alone


class DeadKeysTest(DesktopTestCase):
    layout = "de"
    history = ("plain", "café au lait")

    def test_a_dead_key_and_its_letter_search_for_the_accented_letter(self):
        self.zamber.open_popover()
        self.keyboard.type_text("caf")
        # Qt delivers the letter of a dead key at once, before other letters that still wait.
        wait_until(lambda: [node.text for node in self.zamber.tree().all(role="text")] == ["caf"], 5.0, "the letters")
        self.keyboard.tap(DEAD_ACUTE, LETTER_E)
        wait_until(lambda: [node.name for node in self.zamber.tree().all(role="list item")] == ["café au lait"], 5.0,
                   lambda: self.zamber.tree().outline())
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("café au lait")

    def test_a_dead_key_that_waits_for_its_letter_when_another_window_is_pressed_is_forgotten(self):
        self.zamber.open_popover()
        self.keyboard.tap(DEAD_ACUTE)
        self.desktop.mouse.click(self.editor.window.x + 20, self.editor.window.y + self.editor.window.height - 20)
        self.zamber.wait_until_closed()
        self.zamber.open_popover()
        self.keyboard.tap(LETTER_E)
        wait_until(lambda: [node.text for node in self.zamber.tree().all(role="text")] == ["e"], 5.0,
                   lambda: self.zamber.tree().outline())
