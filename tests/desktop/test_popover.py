# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The popover: opening, choosing, closing, and where the keyboard is afterwards."""

from case import DesktopTestCase
from harness import Editor, holds_for, wait_until

# Longer than two clicks of a double click are apart.
DOUBLE_CLICK_SECONDS = 0.6
HISTORY = ("apple tart", "banana bread", "cherry cake")


class PopoverTest(DesktopTestCase):
    history = HISTORY

    def names(self):
        return [node.name for node in self.zamber.tree().all(role="list item")]

    def wait_for_names(self, *names):
        wait_until(lambda: self.names() == list(names), 5.0, lambda: f"{names}; it shows {self.names()}")

    def typing_reaches_the_editor(self):
        self.desktop.wait_until_active(self.editor.window)
        before = self.editor.text()
        self.keyboard.type_text("x")
        self.editor.wait_for_text(before + "x")

    def test_it_opens_whole_on_the_screen_and_shows_the_history_newest_first(self):
        popover = self.zamber.open_popover()
        self.assertGreaterEqual(min(popover.x, popover.y), 0)
        self.assertLessEqual(popover.x + popover.width, 1280)
        self.assertLessEqual(popover.y + popover.height, 800)
        self.wait_for_names(*HISTORY)

    def test_the_hot_key_again_leaves_it_open(self):
        popover = self.zamber.open_popover()
        self.zamber.press_hot_key()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.assertEqual(self.zamber.wait_for_popover().id, popover.id)
        texts = [node.text for node in self.zamber.tree().all(role="text")]
        self.assertEqual([text for text in texts if text], [], "the hot key typed into the search field")

    def test_escape_closes_it_and_the_editor_has_the_keyboard_back(self):
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.typing_reaches_the_editor()

    def test_a_click_into_another_window_closes_it(self):
        self.zamber.open_popover()
        window = self.editor.window
        self.desktop.mouse.click(window.x + 50, window.y + 100)
        self.zamber.wait_until_closed()
        self.typing_reaches_the_editor()

    def test_a_click_on_the_empty_desktop_closes_it(self):
        self.zamber.open_popover()
        self.desktop.mouse.click(20, 780)
        self.zamber.wait_until_closed()

    def test_another_window_that_becomes_active_closes_it(self):
        self.zamber.open_popover()
        self.desktop.activate(self.editor.window)
        self.zamber.wait_until_closed()
        self.typing_reaches_the_editor()

    def test_a_click_inside_leaves_it_open(self):
        popover = self.zamber.open_popover()
        # Beside the title in the header, where nothing is to be pressed.
        self.desktop.mouse.click(popover.x + popover.width // 2, popover.y + 24)
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")

    def test_a_click_on_a_row_pastes_it(self):
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        (row,) = self.zamber.tree().all(role="list item", name="cherry cake")
        self.desktop.mouse.click(*row.centre)
        self.expect_paste()
        self.editor.wait_for_text("cherry cake")

    def test_typing_filters_and_return_pastes_the_match(self):
        self.zamber.open_popover()
        self.keyboard.type_text("CHERRY")
        self.wait_for_names("cherry cake")
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("cherry cake")

    def test_return_on_a_search_without_a_match_does_nothing(self):
        self.zamber.open_popover()
        self.keyboard.type_text("nowhere")
        self.wait_for_names()
        self.choose()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.typing_reaches_the_editor()

    def test_a_new_copy_shows_up_while_it_is_open(self):
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        self.clipboard.copy_text("date scone")
        self.wait_for_names("date scone", *HISTORY)

    def test_pinning_by_assistive_technology_puts_the_entry_first(self):
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        self.keyboard.tap("Down", "Down")
        pin = wait_until(lambda: self.pin_button_in("cherry cake"), 5.0, lambda: self.zamber.tree().outline())
        self.zamber.act(pin, "Press")
        self.wait_for_names("cherry cake", "apple tart", "banana bread")
        wait_until(lambda: [record["isPinned"] for record in self.zamber.records()] == [False, False, True], 5.0,
                   lambda: f"the third record pinned: {self.zamber.records()}")

    def pin_button_in(self, name):
        for row in self.zamber.tree().all(role="list item", name=name):
            for button in row.all(role="push button", name="Pin"):
                return button
        return None


class PinnedTest(DesktopTestCase):
    history = HISTORY
    pinned = (1,)

    def test_a_pinned_entry_comes_first(self):
        self.paste_entry(0)
        self.editor.wait_for_text("banana bread")

    def test_the_rest_follows_newest_first(self):
        self.paste_entry(1)
        self.editor.wait_for_text("apple tart")


class EmptyHistoryTest(DesktopTestCase):
    def test_return_in_an_empty_popover_does_nothing(self):
        self.zamber.open_popover()
        self.choose()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)


class TrayTest(DesktopTestCase):
    history = HISTORY

    def test_a_click_opens_it_under_the_icon(self):
        icon = self.click_tray_icon()
        popover = self.zamber.wait_for_popover()
        self.assertGreaterEqual(popover.y, icon.y)
        self.assertLess(popover.y, icon.y + 120)
        holds_for(lambda: self.zamber.popover() is not None, DOUBLE_CLICK_SECONDS, "the popover stays open")

    def test_the_next_click_closes_it_and_does_not_open_it_again(self):
        for _ in range(4):
            self.click_tray_icon()
            self.zamber.wait_for_popover()
            holds_for(lambda: self.zamber.popover() is not None, DOUBLE_CLICK_SECONDS, "the popover stays open")
            self.click_tray_icon()
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, DOUBLE_CLICK_SECONDS, "the popover stays closed")

    def test_two_clicks_in_quick_succession_are_two_clicks(self):
        for _ in range(4):
            self.click_tray_icon()
            self.zamber.wait_for_popover()
            self.click_tray_icon()
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, DOUBLE_CLICK_SECONDS, "the popover stays closed")

    def test_a_click_remembers_the_window_that_was_active(self):
        self.click_tray_icon()
        self.zamber.wait_for_popover()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("banana bread")

    def open_menu(self):
        self.click_tray_icon(button=3)
        menu = wait_until(self.zamber.menu, 5.0, "the menu")
        self.assertIsNone(self.zamber.popover())
        return menu

    def test_the_last_entry_of_the_menu_quits(self):
        menu = self.open_menu()
        self.zamber_has_ended = True
        self.desktop.mouse.click(menu.x + menu.width // 2, menu.y + menu.height - 10)
        self.assertEqual(self.zamber.child.wait(5), 0)

    def test_q_quits_while_the_menu_is_open(self):
        self.open_menu()
        self.zamber_has_ended = True
        self.keyboard.type_text("q")
        self.assertEqual(self.zamber.child.wait(5), 0)

    def test_after_the_menu_a_click_opens_the_popover_again(self):
        self.open_menu()
        self.keyboard.tap("Escape")
        # The grab of the pointer ends a moment after the window has gone; no hand is faster.
        wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")
        holds_for(lambda: self.zamber.menu() is None, 0.3, "the menu stays closed")
        self.click_tray_icon()
        self.zamber.wait_for_popover()

    def test_the_tray_may_go_and_come_back(self):
        self.desktop.tray_host.stop()
        self.paste_entry(0)
        self.editor.wait_for_text("apple tart")
        self.desktop.start_tray()
        self.click_tray_icon()
        self.zamber.wait_for_popover()


class OtherDesktops:
    """Cases for every kind of desktop."""

    history = HISTORY

    def test_paste_and_return(self):
        self.paste_entry(1)
        self.editor.wait_for_text("banana bread")
        self.paste_entry(0)
        self.editor.wait_for_text("banana breadapple tart")

    def test_escape(self):
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)
        self.keyboard.type_text("x")
        self.editor.wait_for_text("x")

    def test_a_click_outside(self):
        self.zamber.open_popover()
        window = self.editor.window
        self.desktop.mouse.click(window.x + 50, window.y + 100)
        self.zamber.wait_until_closed()


class OtherWindowManagerTest(OtherDesktops, DesktopTestCase):
    window_manager = "xfwm4"


class CompositedTest(OtherDesktops, DesktopTestCase):
    compositor = "picom"


class NoWindowManagerTest(DesktopTestCase):
    window_manager = "none"
    history = HISTORY

    def test_paste_and_return(self):
        self.paste_entry(1)
        self.editor.wait_for_text("banana bread")

    def test_escape(self):
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()


class TwoEditorsTest(DesktopTestCase):
    history = HISTORY

    def test_another_program_that_opens_a_window_closes_it(self):
        self.zamber.open_popover()
        other = Editor(self.desktop, "Other", geometry="300x200+100+500")
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(other.window)
