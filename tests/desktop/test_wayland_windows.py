# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program's windows on Wayland: focused at once, in their place, sharp, and gone when something else is wanted."""

import pathlib

from case import PASTED_LINE, PASTING_LINE
from harness import Editor, NotifierHost, holds_for, pixels, wait_until
from wayland_case import SwayTestCase

HISTORY = ("apple tart", "banana bread", "cherry cake")
SHADOW_LEFT, SHADOW_TOP = 26, 18
CARD = (440, 420)
GAP = 7  # from the corner to the card
STEP, SHARP_STEPS = 140, 100


def card_of(popover):
    """Left, top, width and height of what is seen of it, without the room for its shadow."""
    return (popover.x + SHADOW_LEFT, popover.y + SHADOW_TOP, popover.width - 2 * SHADOW_LEFT,
            popover.height - SHADOW_TOP - 34)


class SwayWindowTestCase(SwayTestCase):
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

    def place_of(self, node):
        """The middle of a part of the popover: assistive technology is told places in a window on Wayland."""
        popover, (x, y) = self.zamber.popover(), node.centre
        return popover.x + x, popover.y + y

    def picture(self):
        return self.desktop.screenshot(self.desktop.directory / "screen.png").read_bytes()

    def wait_for_change(self, before):
        wait_until(lambda: self.picture() != before, what="something new on the screen")

    def node_of(self, window):
        return next(node for node in self.desktop.nodes() if node["id"] == window.id)


class SwayPopoverTest(SwayWindowTestCase):
    def test_it_is_a_window_of_wayland_and_beside_the_corner_from_its_first_frame(self):
        for _ in range(3):
            popover = self.zamber.open_popover()
            self.assertEqual(self.node_of(popover)["shell"], "xdg_shell")
            self.assertEqual(card_of(popover), (1280 - GAP - CARD[0] + 1, GAP, *CARD))
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()

    def test_what_is_typed_at_once_is_searched_for(self):
        for _ in range(3):
            self.zamber.open_popover()
            self.keyboard.type_text("banana")
            self.wait_for_names("banana bread")
            self.keyboard.chord("Control_L", "a")
            self.keyboard.tap("BackSpace")
            self.wait_for_names(*HISTORY)
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
        self.assertEqual(self.editor.text(), "")

    def test_the_hot_key_again_leaves_it_open(self):
        popover = self.zamber.open_popover()
        self.zamber.press_hot_key()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.assertEqual(self.zamber.wait_for_popover().id, popover.id)

    def test_escape_closes_it_and_the_editor_has_the_keyboard_back(self):
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.typing_reaches(self.editor)

    def test_a_press_in_another_window_closes_it(self):
        other = Editor(self.desktop, "Other")
        for count in range(3):
            self.editor.activate()
            self.zamber.open_popover()
            place = self.desktop.window(pid=other.child.pid)
            self.desktop.mouse.click(place.x + 20, place.y + 600 + 20 * count)
            self.zamber.wait_until_closed()
            self.typing_reaches(other)

    def test_a_program_that_comes_to_the_front_closes_it(self):
        self.zamber.open_popover()
        Editor(self.desktop, "Newcomer")
        self.zamber.wait_until_closed()

    def test_a_click_on_a_row_pastes_it(self):
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        row = self.zamber.tree().all(role="list item", name="cherry cake")[0]
        self.desktop.mouse.click(*self.place_of(row))
        self.expected_lines += [PASTING_LINE, PASTED_LINE]
        self.editor.wait_for_text("cherry cake")

    def open_row_menu(self, name):
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        place = self.place_of(self.zamber.tree().all(role="list item", name=name)[0])
        self.desktop.mouse.move(*place)
        holds_for(lambda: self.zamber.popover() is not None, 0.3, "the popover is open")
        before = self.picture()
        self.desktop.mouse.click(*place, button=3)
        self.wait_for_change(before)

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

    def test_over_a_window_in_full_screen_it_is_seen_and_has_the_keyboard(self):
        self.desktop.tell(f"[con_id={self.editor.window.id}] fullscreen enable")
        self.zamber.open_popover()
        self.keyboard.type_text("banana")
        self.wait_for_names("banana bread")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
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


class SwayEmptyDesktopTest(SwayWindowTestCase):
    def prepare(self):
        pass

    def test_a_press_on_the_empty_desktop_closes_it(self):
        self.zamber.open_popover()
        self.desktop.mouse.click(100, 700)
        self.zamber.wait_until_closed()
        self.zamber.open_popover()


class SwayScreensTest(SwayWindowTestCase):
    def test_it_opens_on_the_screen_that_the_user_is_on(self):
        self.desktop.tell("create_output")
        self.desktop.tell("output HEADLESS-2 resolution 1024x768 position 1280 0")
        for output, right in (("HEADLESS-2", 1280 + 1024), ("HEADLESS-1", 1280), ("HEADLESS-2", 1280 + 1024)):
            with self.subTest(output):
                self.desktop.tell(f"focus output {output}")
                popover = self.zamber.open_popover()
                wait_until(lambda: card_of(self.zamber.popover())[:2] == (right - GAP - CARD[0] + 1, GAP), 3.0,
                           lambda: f"the corner of {output}; it is at {card_of(self.zamber.popover())}")
                self.assertEqual(card_of(popover)[2:], CARD)
                self.keyboard.tap("Escape")
                self.zamber.wait_until_closed()


class SwayBarTest(SwayWindowTestCase):
    configuration = "bar {\n position bottom\n tray_output none\n status_command true\n}"

    def test_it_opens_beside_the_bar(self):
        self.zamber.open_popover()
        free = self.desktop.workspaces()[0]["rect"]
        self.assertLess(free["height"], 800)
        left, top, width, height = card_of(self.zamber.popover())
        self.assertEqual((width, height), CARD)
        self.assertEqual(left + width, 1280 - GAP + 1)
        self.assertTrue(free["height"] - 2 * GAP <= top + height <= free["height"], (top, free))


class SwaySharpnessTest(SwayWindowTestCase):
    """Where lines of one pixel are drawn as such, neighbours differ far more than in a picture that was enlarged."""

    def steps_in_a_picture_of_the_popover(self, scale):
        self.desktop.tell(f"output HEADLESS-1 scale {scale}")
        self.zamber.open_popover()
        self.wait_for_names(*HISTORY)
        holds_for(lambda: self.zamber.popover() is not None, 0.3, "the popover is open")
        popover = self.zamber.popover()
        path = pathlib.Path(self.desktop.screenshot(self.desktop.directory / "screen.png"))
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        left, top, width, height = (round(value * scale) for value in card_of(popover))
        self.assertEqual((width, height), tuple(round(value * scale) for value in (CARD[0], card_of(popover)[3])))
        cut = path.with_name("card.png")
        self.desktop.run(["convert", path, "-crop", f"{width}x{height}+{left}+{top}", "+repage", cut])
        data = pixels(cut.read_bytes())
        self.assertEqual(len(data), 4 * width * height)
        light = [sum(data[place:place + 3]) // 3 for place in range(0, len(data), 4)]
        return sum(abs(light[row + column] - light[row + column + 1]) >= STEP
                   for row in range(0, width * height, width) for column in range(left % 2, width - 1, 2))

    def test_it_is_sharp_at_every_scale(self):
        for scale in (1, 1.5, 2):
            with self.subTest(scale):
                self.assertGreater(self.steps_in_a_picture_of_the_popover(scale), SHARP_STEPS)


class SwaySettingsTest(SwayWindowTestCase):
    def settings(self):
        return self.desktop.window("Zamber Settings")

    def open_settings(self):
        self.zamber.open_popover()
        self.keyboard.chord("Control_L", "comma")
        wait_until(lambda: self.settings() and self.desktop.focused_window().title == "Zamber Settings",
                   what="the settings with the keyboard")

    def test_they_come_to_the_front_however_often_they_are_asked_for(self):
        for _ in range(3):
            self.open_settings()
            self.zamber.wait_until_closed()
            self.editor.activate()
        self.assertEqual(len([window for window in self.desktop.windows() if window.title == "Zamber Settings"]), 1)

    def test_they_come_to_the_workspace_that_the_user_is_on(self):
        self.open_settings()
        self.desktop.tell("workspace 2")
        self.open_settings()
        self.assertTrue(self.settings().visible)

    def test_a_choice_in_them_takes_effect(self):
        self.open_settings()
        window = self.settings()
        choice = wait_until(lambda: self.zamber.tree().all(role="radio button", name="Large"), what="the choices")[0]
        self.desktop.mouse.click(window.x + choice.centre[0], window.y + choice.centre[1] + self.title_height())
        wait_until(lambda: "popoverSize=large" in self.zamber.preferences_path.read_text()
                   if self.zamber.preferences_path.exists() else False, what="the choice to be written")
        self.zamber.open_popover()
        wait_until(lambda: card_of(self.zamber.popover()) == (1280 - GAP - 500 + 1, GAP, 500, 520), 3.0,
                   lambda: f"the larger popover; it is {self.zamber.popover()}")

    def title_height(self):
        return 0


class SwayTrayMenuTest(SwayWindowTestCase):
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
        return menu

    def test_it_opens_beside_the_corner_and_is_worked_by_keys(self):
        menu = self.open_menu()
        self.assertTrue(1000 < menu.x and menu.x + menu.width <= 1280 + SHADOW_LEFT and menu.y < 60, menu)
        self.keyboard.tap("Down", "Return")
        wait_until(lambda: self.desktop.window("Zamber Settings"), what="the settings")
        wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")

    def test_escape_closes_it_and_so_does_a_press_elsewhere(self):
        for count in range(3):
            self.open_menu()
            self.keyboard.tap("Escape")
            wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")
            self.typing_reaches(self.editor)
            self.open_menu()
            place = self.desktop.window(pid=self.editor.child.pid)
            self.desktop.mouse.click(place.x + 30, place.y + 500 + 20 * count)
            wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")
            self.typing_reaches(self.editor)

    def test_it_takes_the_place_of_the_popover(self):
        self.zamber.open_popover()
        self.open_menu()
        self.zamber.wait_until_closed()
        self.zamber.open_popover()
        wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")

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


class SwayWithoutXTest(SwayWindowTestCase):
    xwayland = False

    def test_it_records_and_pastes(self):
        self.copy_and_wait("copied", ["copied", *HISTORY])
        self.zamber.open_popover()
        self.choose(1)
        self.expected_lines += [PASTING_LINE, PASTED_LINE]
        self.editor.wait_for_text("apple tart")


class SwayWindowsOfXTest(SwayWindowTestCase):
    """Without Qt's plug-in for Wayland, or where the user has it so, windows are XWayland's."""

    environment = {"QT_QPA_PLATFORM": "xcb"}

    def test_it_opens_and_pastes(self):
        popover = self.zamber.open_popover()
        self.assertEqual(self.node_of(popover)["shell"], "xwayland")
        self.choose(2)
        self.expected_lines += [PASTING_LINE, PASTED_LINE]
        self.editor.wait_for_text("cherry cake")


class SwaySecondStartTest(SwayWindowTestCase):
    def test_a_second_start_shows_it_with_the_keyboard(self):
        for token in ("", "made-up"):
            environment = {**self.desktop.environment, "XDG_ACTIVATION_TOKEN": token}
            second = self.desktop.start("second", [self.zamber.binary], environment=environment)
            self.assertEqual(second.wait(5), 0)
            self.zamber.wait_for_popover()
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
