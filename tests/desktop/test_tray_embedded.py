# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The status item as an icon that a tray embeds."""

from Xlib import X

from case import DesktopTestCase
from harness import PARTNERS, holds_for, wait_until

DOUBLE_CLICK_SECONDS = 0.6
HISTORY = ("apple tart", "banana bread")


class IconAtTheOriginTest(DesktopTestCase):
    """The tray stands at the beginning of a panel at the very top: the icon is where windows wait for their place."""

    tray = "none"
    history = HISTORY

    def prepare(self):
        configuration = self.desktop.directory / "tray-at-the-origin"
        configuration.write_text(
            "panel_items = S\npanel_monitor = all\npanel_position = top left horizontal\npanel_size = 100% 24\n"
            "panel_padding = 0 0 0\npanel_margin = 0 0\nsystray_padding = 0 0 0\nsystray_icon_size = 24\n"
            "panel_dock = 0\nstrut_policy = follow_size\nautohide = 0\n")
        self.desktop.start("tint2", ["tint2", "-c", configuration])

    def test_the_popover_hangs_from_it_and_its_clicks_toggle(self):
        icon = self.wait_for_tray_icon()
        self.assertEqual((icon.x, icon.y), (0, 0))
        popover = self.zamber.open_popover()
        self.assertLess(popover.x, 40)
        self.assertLess(popover.y, 60)
        for _ in range(2):
            self.click_tray_icon()
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, DOUBLE_CLICK_SECONDS, "the popover stays closed")
            self.click_tray_icon()
            self.zamber.wait_for_popover()


class DrawnIconTest(DesktopTestCase):
    """The drawing lies on the panel's own ground."""

    history = HISTORY
    compositor = "picom"
    depth = 32  # bits a pixel, with those that say how opaque it is

    def pixels(self, x, y, width, height):
        data = self.desktop.display.screen().root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data
        return [tuple(data[at:at + 3]) for at in range(0, len(data), 4)]

    def test_the_panel_is_seen_around_the_drawing(self):
        icon = self.wait_for_tray_icon()
        window = self.desktop.display.create_resource_object("window", icon.id)
        self.assertEqual(window.get_geometry().depth, self.depth)
        (ground,) = self.pixels(icon.x - 2, icon.y + 2, 1, 1)
        self.assertNotEqual(ground, (0, 0, 0))
        wait_until(lambda: len(set(self.pixels(icon.x, icon.y, icon.width, icon.height))) > 4, 5.0, "the drawing")
        seen = self.pixels(icon.x, icon.y, icon.width, icon.height)
        corners = [seen[0], seen[icon.width - 1], seen[-icon.width], seen[-1]]
        self.assertEqual(corners, [ground] * 4)

    def test_its_name_is_shown_while_the_pointer_rests_on_it(self):
        icon = self.wait_for_tray_icon()

        def others():
            return [window for window in self.zamber.windows() if window.id != icon.id]

        self.assertEqual(others(), [])
        self.desktop.mouse.move(icon.x + icon.width // 2, icon.y + icon.height // 2)
        (tip,) = wait_until(others, 5.0, "the tool tip")
        self.assertLess(tip.width, 120)
        self.assertLess(tip.height, 60)
        self.desktop.mouse.move(600, 400)
        wait_until(lambda: others() == [], 5.0, "the end of the tool tip")
        self.click_tray_icon()
        self.zamber.wait_for_popover()


class DrawnIconWithoutCompositorTest(DrawnIconTest):
    compositor = "none"


class DrawnIconInPlainTrayTest(DrawnIconTest):
    """A tray that says nothing of pixels."""

    compositor = "none"
    tray = "none"
    depth = 24

    def prepare(self):
        self.desktop.start("tray", ["/usr/bin/python3", PARTNERS / "plain_tray.py"])
        wait_until(lambda: self.desktop.selection_owner("_NET_SYSTEM_TRAY_S0"), 10.0, "the tray")

    def test_a_tray_that_changes_its_colour_is_seen_around_the_drawing(self):
        icon = self.wait_for_tray_icon()
        window = self.desktop.display.create_resource_object("window", icon.id)
        wait_until(lambda: len(set(self.pixels(icon.x, icon.y, icon.width, icon.height))) > 4, 5.0, "the drawing")
        (ground,) = self.pixels(icon.x - 2, icon.y + 2, 1, 1)
        strip = window.query_tree().parent
        strip.change_attributes(background_pixel=0x884422)
        strip.clear_area()
        window.clear_area(exposures=True)  # as trays do, so that their icons are drawn again
        self.desktop.display.sync()
        (new_ground,) = self.pixels(icon.x - 2, icon.y + 2, 1, 1)
        self.assertNotEqual(new_ground, ground)

        def is_drawn_anew():
            seen = self.pixels(icon.x, icon.y, icon.width, icon.height)
            return seen[0] == seen[-1] == new_ground and ground not in seen and len(set(seen)) > 4

        wait_until(is_drawn_anew, 5.0, "the new colour")


class EmbeddedIconTest(DesktopTestCase):
    history = HISTORY

    def open_menu(self):
        self.click_tray_icon(button=3)
        return wait_until(self.zamber.menu, 5.0, "the menu")

    def wait_until_menu_is_gone(self):
        wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")

    def test_comma_asks_for_the_settings_while_the_menu_is_open(self):
        self.open_menu()
        self.keyboard.type_text(",")
        self.wait_until_menu_is_gone()
        wait_until(lambda: self.desktop.window(title="Zamber Settings", pid=self.zamber.pid), 5.0, "the settings")
        self.assertIsNone(self.zamber.popover())

    def test_the_key_works_with_command_as_it_is_shown(self):
        self.open_menu()
        self.keyboard.chord("Super_L", "comma")
        self.wait_until_menu_is_gone()
        wait_until(lambda: self.desktop.window(title="Zamber Settings", pid=self.zamber.pid), 5.0, "the settings")
        self.open_menu()
        self.zamber_has_ended = True
        self.keyboard.chord("Super_L", "q")
        self.assertEqual(self.zamber.child.wait(5), 0)

    def press_on_the_icon(self, button=1):
        icon = self.wait_for_tray_icon()
        self.desktop.mouse.move(icon.x + icon.width // 2, icon.y + icon.height // 2)
        self.desktop.mouse.press(button)

    def test_a_click_acts_when_the_button_comes_up(self):
        self.press_on_the_icon()
        holds_for(lambda: self.zamber.popover() is None, 0.4, "the popover is closed")
        self.desktop.mouse.release()
        self.zamber.wait_for_popover()
        self.press_on_the_icon()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")
        self.desktop.mouse.release()
        self.zamber.wait_until_closed()
        self.press_on_the_icon(3)
        holds_for(lambda: self.zamber.menu() is None, 0.4, "the menu is closed")
        self.desktop.mouse.release(3)
        wait_until(self.zamber.menu, 5.0, "the menu")

    def test_a_press_that_is_dragged_away_is_no_click(self):
        self.press_on_the_icon()
        self.desktop.mouse.move(600, 400)
        self.desktop.mouse.release()
        holds_for(lambda: self.zamber.popover() is None, 0.4, "the popover is closed")
        self.click_tray_icon()
        self.zamber.wait_for_popover()

    def test_a_right_press_closes_the_popover_under_the_menu(self):
        self.click_tray_icon()
        self.zamber.wait_for_popover()
        self.press_on_the_icon(3)
        self.zamber.wait_until_closed()
        self.desktop.mouse.release(3)
        wait_until(self.zamber.menu, 5.0, "the menu")
        self.assertIsNone(self.zamber.popover())

    def test_right_clicks_open_and_close_the_menu_in_turn(self):
        for _ in range(2):
            self.open_menu()
            holds_for(lambda: self.zamber.menu() is not None, 0.3, "the menu is open")
            self.click_tray_icon(button=3)
            self.wait_until_menu_is_gone()
            holds_for(lambda: self.zamber.menu() is None, 0.3, "the menu stays closed")
        self.click_tray_icon()
        self.zamber.wait_for_popover()

    def test_the_icons_name_is_not_shown_when_the_menu_closes_over_a_pointer_at_rest(self):
        self.open_menu()
        self.keyboard.tap("Escape")
        self.wait_until_menu_is_gone()
        icon = self.wait_for_tray_icon()
        holds_for(lambda: [window for window in self.zamber.windows() if window.id != icon.id] == [], 1.5, "no tool tip")

    def test_another_key_does_nothing(self):
        self.open_menu()
        self.keyboard.tap("x")
        holds_for(lambda: self.zamber.menu() is not None, 0.3, "the menu is open")
        self.keyboard.tap("Escape")
        self.wait_until_menu_is_gone()

    def test_launch_at_login_is_switched_in_the_menu(self):
        for expected, line in ((True, "✅ Launch at Login: enabled"), (False, "✅ Launch at Login: disabled")):
            self.open_menu()
            self.keyboard.tap("Down", "Down", "Return")
            self.expected_lines.append(line)
            wait_until(lambda wanted=expected: self.zamber.autostart_path().exists() == wanted, what="the entry")
            # A hand is not quicker than this; a click in the same instant would still be the menu's.
            holds_for(lambda: self.zamber.menu() is None, 0.2, "the menu stays closed")

    def test_a_click_that_closes_the_popover_does_not_show_it_again_for_a_moment(self):
        for pause in (1.0, 0.0):  # the second click of a pair is another thing to toolkits
            self.click_tray_icon()
            self.zamber.wait_for_popover()
            holds_for(lambda: self.zamber.popover() is not None, pause, "the popover is open")
            watching = self.desktop.connect()
            watching.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
            watching.sync()
            self.click_tray_icon()
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, 0.7, "the popover stays closed")
            seen = [watching.next_event().type for _ in range(watching.pending_events())]
            self.assertIn(X.UnmapNotify, seen)
            self.assertNotIn(X.MapNotify, seen)
            watching.close()

    def test_a_tray_that_restarts_again_and_again_gets_the_icon_each_time(self):
        for _ in range(4):
            self.desktop.tray_host.stop()
            self.desktop.start_tray()
            self.click_tray_icon()
            self.zamber.wait_for_popover()
            self.click_tray_icon()
            self.zamber.wait_until_closed()
