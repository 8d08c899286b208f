# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What holds of the program's own windows on every compositor that places them: cases that are a part of each
compositor's own classes. Those say how to see whether a window is one of Wayland's."""

import pathlib

from harness import Editor, NotifierHost, holds_for, pixels, wait_until

HISTORY = ("apple tart", "banana bread", "cherry cake")
SHADOW_LEFT, SHADOW_TOP = 26, 18
CARD = (440, 420)
GAP = 7  # from the corner to the card
STEP, SHARP_STEPS = 140, 100
GLANCE_SECONDS = 0.4
DRIVER = ("libEGL_mesa", "libgallium", "swrast_dri", "libLLVM")  # Mesa's, in the parts that Debian 12 and 13 have


def card_of(popover):
    """Left, top, width and height of what is seen of it, without the room for its shadow."""
    return (popover.x + SHADOW_LEFT, popover.y + SHADOW_TOP, popover.width - 2 * SHADOW_LEFT,
            popover.height - SHADOW_TOP - 34)


class WindowCases:
    """The questions that the cases below ask. `is_of_wayland(window)` is each compositor's own."""

    history = HISTORY

    def names(self):
        return [node.name for node in self.zamber.tree().all(role="list item")]

    def wait_for_names(self, *names):
        wait_until(lambda: self.names() == list(names), 5.0, lambda: f"{names}; it shows {self.names()}")

    def typing_reaches(self, editor):
        self.desktop.wait_until_active(editor.window)
        before = editor.text()
        self.keyboard.type_text("x")
        editor.wait_for_text(before + "x")

    def settings(self):
        return self.desktop.window("Zamber Settings")

    def wait_for_settings(self):
        wait_until(lambda: (focus := self.desktop.focused_window()) and focus.title == "Zamber Settings",
                   what="the settings with the keyboard")

    def close_by_escape(self):
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()

    def place_of(self, node):
        """The middle of a part of the popover: assistive technology is told places in a window on Wayland."""
        popover, (x, y) = self.zamber.popover(), node.centre
        return popover.x + x, popover.y + y

    def let_a_glance_pass(self):
        """The time that a hand needs to move after something has appeared. Until then the program may go on to ask for
        the focus, and would get it back."""
        self.zamber.tree()
        holds_for(self.zamber.is_running, GLANCE_SECONDS, "the program runs")

    def press_in(self, editor, count):
        """Presses near the bottom left of its window, each time elsewhere, so that no two make a double click."""
        self.let_a_glance_pass()
        place = self.desktop.window(pid=editor.child.pid)
        self.desktop.mouse.click(place.x + 20, place.y + place.height - 30 - 20 * count)

    def picture(self, left, top, width, height):
        """What is seen of a part of the screen."""
        path = pathlib.Path(self.desktop.screenshot(self.desktop.directory / "screen.png"))
        cut = path.with_name("cut.png")
        self.desktop.run(["convert", path, "-crop", f"{width}x{height}+{left}+{top}", "+repage", cut])
        data = pixels(cut.read_bytes())
        self.assertEqual(len(data), 4 * width * height)
        return data

    def open_row_menu(self, name):
        self.zamber.open_popover()
        self.wait_for_names(*self.history)
        left, top = self.place_of(self.zamber.tree().all(role="list item", name=name)[0])
        self.desktop.mouse.move(left, top)
        self.let_a_glance_pass()
        part = (left - 60, top, 120, 60)  # the menu opens further to the left where there is no room at the right
        before = self.picture(*part)
        self.desktop.mouse.click(left, top, button=3)
        wait_until(lambda: self.picture(*part) != before, what="the menu")


class PopoverCases(WindowCases):
    def test_it_is_a_window_of_wayland_and_beside_the_corner_from_its_first_frame(self):
        for _ in range(3):
            popover = self.zamber.open_popover()
            self.assertTrue(self.is_of_wayland(popover), popover)
            self.assertEqual(card_of(popover), (1280 - GAP - CARD[0] + 1, GAP, *CARD))
            self.close_by_escape()

    def test_it_is_drawn_without_the_graphics_driver(self):
        """Loading one takes a tenth of a second from the first opening, and 30 MiB for good."""
        self.zamber.open_popover()
        maps = pathlib.Path(f"/proc/{self.zamber.pid}/maps").read_text().splitlines()
        loaded = {line.rsplit("/", 1)[1] for line in maps if "/" in line}
        self.assertTrue(any(name.startswith("libQt6WaylandClient") for name in loaded), loaded)
        self.assertEqual([name for name in loaded if name.startswith(DRIVER)], [])

    def test_what_is_typed_at_once_is_searched_for(self):
        for _ in range(3):
            self.zamber.open_popover()
            self.keyboard.type_text("banana")
            self.wait_for_names("banana bread")
            self.keyboard.chord("Control_L", "a")
            self.keyboard.tap("BackSpace")
            self.wait_for_names(*HISTORY)
            self.close_by_escape()
        self.assertEqual(self.editor.text(), "")

    def test_the_hot_key_again_leaves_it_open(self):
        popover = self.zamber.open_popover()
        self.zamber.press_hot_key()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.assertEqual(self.zamber.wait_for_popover().id, popover.id)

    def test_escape_closes_it_and_the_editor_has_the_keyboard_back(self):
        self.zamber.open_popover()
        self.close_by_escape()
        self.typing_reaches(self.editor)

    def test_a_press_in_another_window_closes_it(self):
        other = Editor(self.desktop, "Other", geometry="900x600+0+0")
        for count in range(3):
            self.editor.activate()
            self.zamber.open_popover()
            self.press_in(other, count)
            self.zamber.wait_until_closed()
            self.typing_reaches(other)

    def test_a_program_that_comes_to_the_front_closes_it(self):
        self.zamber.open_popover()
        self.let_a_glance_pass()
        Editor(self.desktop, "Newcomer")
        self.zamber.wait_until_closed()

    def test_a_click_on_a_row_pastes_it(self):
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        row = self.zamber.tree().all(role="list item", name="cherry cake")[0]
        self.desktop.mouse.click(*self.place_of(row))
        self.expect_paste()
        self.editor.wait_for_text("cherry cake")

    def test_a_right_click_opens_the_rows_menu_which_leaves_the_popover_open(self):
        self.open_row_menu("banana bread")
        self.keyboard.tap("Up", "Return")
        self.wait_for_names("apple tart", "cherry cake")
        self.assertIsNotNone(self.zamber.popover())
        self.zamber.wait_for_history(["apple tart", "cherry cake"])

    def test_escape_in_the_rows_menu_closes_the_menu_alone(self):
        self.open_row_menu("banana bread")
        self.keyboard.tap("Escape")
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.keyboard.type_text("cherry")
        self.wait_for_names("cherry cake")

    def test_a_press_in_another_window_closes_it_also_when_its_menu_was_open_before(self):
        self.open_row_menu("banana bread")
        self.keyboard.tap("Escape")
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.press_in(self.editor, 0)
        self.zamber.wait_until_closed()
        self.typing_reaches(self.editor)

    def test_over_a_window_in_full_screen_it_is_seen_and_has_the_keyboard(self):
        self.desktop.fill_screen(self.editor.window)
        wait_until(lambda: self.desktop.window(pid=self.editor.child.pid).height == 800, what="the full screen")
        bare = self.picture(840, 60, 430, 360)
        self.zamber.open_popover()
        self.keyboard.type_text("banana")
        self.wait_for_names("banana bread")
        self.assertNotEqual(self.picture(840, 60, 430, 360), bare)
        self.close_by_escape()
        self.typing_reaches(self.editor)

    def test_a_copy_out_of_the_search_field_is_recorded_and_can_be_pasted_into_it(self):
        self.zamber.open_popover()
        self.keyboard.type_text("bread")
        self.wait_for_names("banana bread")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.chord("Control_L", "c")
        self.zamber.wait_for_history(["bread", *HISTORY])
        self.keyboard.chord("Control_L", "v")
        self.keyboard.type_text("s")
        self.keyboard.tap("BackSpace")
        self.wait_for_names("bread", "banana bread")


class EmptyDesktopCases(WindowCases):
    def prepare(self):
        pass

    def test_a_press_on_the_empty_desktop_closes_it(self):
        for count in range(3):
            self.zamber.open_popover()
            self.let_a_glance_pass()
            self.desktop.mouse.click(100, 700 - 20 * count)
            self.zamber.wait_until_closed()
        self.zamber.open_popover()


class SharpnessCases(WindowCases):
    """Where lines of one pixel are drawn as such, neighbours differ far more than in a picture that was enlarged."""

    def steps_in_a_picture_of_the_popover(self, scale):
        """Of one that was open before: the window is told its scale each time."""
        self.zamber.open_popover()
        self.close_by_escape()
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        self.let_a_glance_pass()
        card = card_of(self.zamber.popover())
        self.assertEqual(card[0] % 1, 0)
        self.assertEqual(card[2], CARD[0])
        left, top, width, height = (round(value * scale) for value in card)
        data = self.picture(left, top, width, height)
        self.close_by_escape()
        light = [sum(data[place:place + 3]) // 3 for place in range(0, len(data), 4)]
        return sum(abs(light[row + column] - light[row + column + 1]) >= STEP
                   for row in range(0, width * height, width) for column in range(left % 2, width - 1, 2))


class SettingsCases(WindowCases):
    def open_settings(self):
        self.zamber.open_popover()
        self.keyboard.chord("Control_L", "comma")
        self.wait_for_settings()
        self.let_a_glance_pass()

    def test_they_come_to_the_front_however_often_they_are_asked_for(self):
        for _ in range(3):
            self.open_settings()
            self.zamber.wait_until_closed()
            self.editor.activate()
        self.assertEqual(len([window for window in self.desktop.windows() if window.title == "Zamber Settings"]), 1)

    def test_a_choice_in_them_takes_effect(self):
        self.open_settings()
        choice = wait_until(lambda: self.zamber.tree().all(role="radio button", name="Large"), what="the choices")[0]
        window, (left, top) = self.settings(), self.frame_of_settings()
        self.desktop.mouse.click(window.x + left + choice.centre[0], window.y + top + choice.centre[1])
        wait_until(lambda: "popoverSize=large" in self.zamber.preferences_path.read_text()
                   if self.zamber.preferences_path.exists() else False, what="the choice to be written")
        self.zamber.open_popover()
        wait_until(lambda: card_of(self.zamber.popover()) == (1280 - GAP - 500 + 1, GAP, 500, 520), 3.0,
                   lambda: f"the larger popover; it is {self.zamber.popover()}")

    def frame_of_settings(self):
        """How wide the compositor's frame is, which belongs to the window's place: left and top."""
        return 0, 0

    def test_when_they_are_closed_the_editor_has_the_keyboard_back(self):
        for _ in range(2):
            self.open_settings()
            self.keyboard.chord("Control_L", "w")
            wait_until(lambda: self.settings() is None, what="the settings to be gone")
            self.typing_reaches(self.editor)

    def test_the_popover_opens_over_them_and_leaves_the_keyboard_to_them(self):
        self.open_settings()
        self.zamber.open_popover()
        self.keyboard.type_text("banana")
        wait_until(lambda: self.names()[:2] == ["banana bread", "General"], what="what is typed to be searched for")
        self.close_by_escape()
        self.desktop.wait_until_active(self.settings())
        self.keyboard.chord("Control_L", "w")
        wait_until(lambda: self.settings() is None, what="the settings to be gone")
        self.typing_reaches(self.editor)

    def test_they_come_to_the_front_of_a_window_in_full_screen(self):
        part = (540, 300, 200, 200)  # in the middle of the screen, as they are
        for _ in range(2):
            self.desktop.fill_screen(self.editor.window)
            self.editor.activate()
            wait_until(lambda: self.desktop.window(pid=self.editor.child.pid).height == 800, what="the full screen")
            self.let_a_glance_pass()
            bare = self.picture(*part)
            self.open_settings()
            self.assertNotEqual(self.picture(*part), bare)


class TrayMenuCases(WindowCases):
    """A panel that asks the program to draw its menu, as sway's bar does."""

    def prepare(self):
        self.host = NotifierHost(self.desktop)
        super().prepare()

    def start_zamber(self):
        super().start_zamber()
        self.host.wait_for_item()

    def open_menu(self):
        self.host.ask(call="ContextMenu", arguments=[1, 2])
        menu = wait_until(self.zamber.menu, what="the menu")
        self.desktop.wait_until_active(menu)
        self.let_a_glance_pass()
        return menu

    def wait_until_menu_is_gone(self):
        wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")

    def test_it_opens_beside_the_corner_and_is_worked_by_keys(self):
        menu = self.open_menu()
        self.assertTrue(1000 < menu.x and menu.x + menu.width <= 1280 + SHADOW_LEFT and menu.y < 60, menu)
        self.keyboard.tap("Down", "Return")
        wait_until(lambda: self.desktop.window("Zamber Settings"), what="the settings")
        self.wait_until_menu_is_gone()

    def test_the_settings_come_out_from_behind_a_full_screen(self):
        """Asked for in a panel's menu: no window of the program has the keyboard then, and the one that is covered gets
        no frames."""
        for _ in range(3):
            self.host.choose("Settings…")
            self.wait_for_settings()
            self.let_a_glance_pass()
            self.desktop.fill_screen(self.editor.window)
            self.editor.activate()
            wait_until(lambda: self.desktop.window(pid=self.editor.child.pid).height == 800, what="the full screen")
            self.let_a_glance_pass()

    def test_it_opens_in_the_same_place_while_it_is_open(self):
        first = self.open_menu()
        self.host.ask(call="ContextMenu", arguments=[1, 2])
        second = wait_until(lambda: (menu := self.zamber.menu()) and menu.id != first.id and menu, what="another menu")
        self.desktop.wait_until_active(second)
        self.assertEqual((second.x, second.y), (first.x, first.y))

    def test_escape_closes_it_and_so_does_a_press_elsewhere(self):
        for count in range(3):
            self.open_menu()
            self.keyboard.tap("Escape")
            self.wait_until_menu_is_gone()
            self.typing_reaches(self.editor)
            self.open_menu()
            self.press_in(self.editor, count)
            self.wait_until_menu_is_gone()
            self.typing_reaches(self.editor)

    def test_it_takes_the_place_of_the_popover(self):
        self.zamber.open_popover()
        self.open_menu()
        self.zamber.wait_until_closed()
        self.zamber.open_popover()
        self.wait_until_menu_is_gone()

    def test_its_quit_ends_the_program(self):
        self.open_menu()
        self.keyboard.tap("q")
        wait_until(lambda: not self.zamber.is_running(), what="the program to end")
        self.zamber_has_ended = True

    def test_a_click_on_the_icon_opens_it_and_the_next_closes_it(self):
        for _ in range(3):
            self.host.ask(call="Activate", arguments=[1, 2])
            self.zamber.wait_for_popover()
            self.host.ask(call="Activate", arguments=[1, 2])
            self.zamber.wait_until_closed()


class WithoutXCases(WindowCases):
    xwayland = False

    def test_it_records_and_pastes(self):
        self.copy_and_wait("copied", ["copied", *HISTORY])
        self.zamber.open_popover()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("apple tart")


class WindowsOfXCases(WindowCases):
    """Without Qt's plug-in for Wayland, or where the user has it so, windows are XWayland's."""

    environment = {"QT_QPA_PLATFORM": "xcb"}

    def test_it_opens_and_pastes(self):
        popover = self.zamber.open_popover()
        self.assertFalse(self.is_of_wayland(popover), popover)
        self.choose(2)
        self.expect_paste()
        self.editor.wait_for_text("cherry cake")


class SecondStartCases(WindowCases):
    def test_a_second_start_shows_it_with_the_keyboard(self):
        for token in ("", "made-up"):
            environment = {**self.desktop.environment, "XDG_ACTIVATION_TOKEN": token}
            second = self.desktop.start("second", [self.zamber.binary], environment=environment)
            self.assertEqual(second.wait(5), 0)
            self.zamber.wait_for_popover()
            self.close_by_escape()
