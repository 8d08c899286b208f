# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The status item on hosts that show notifier items, come they when they will."""

from Xlib import X

from case import DesktopTestCase
from harness import NotifierHost, holds_for, wait_until
from harness.configurations import XFCE_PANEL_CONFIGURATION

DOUBLE_CLICK_SECONDS = 0.6
HISTORY = ("apple tart", "banana bread")
MENU = ["Settings…", None, "  Launch at Login", None, "Quit Zamber"]


class NotifierTestCase(DesktopTestCase):
    tray = "none"
    history = HISTORY

    def start_host(self):
        host = NotifierHost(self.desktop)
        host.wait_for_item()
        return host

    def stays_open(self, seconds=0.4):
        holds_for(lambda: self.zamber.popover() is not None, seconds, "the popover stays open")

    def stays_closed(self, seconds=0.4):
        holds_for(lambda: self.zamber.popover() is None, seconds, "the popover stays closed")


class NotifierHostTest(NotifierTestCase):
    def prepare(self):
        self.host = NotifierHost(self.desktop)

    def start_zamber(self):
        super().start_zamber()
        self.host.wait_for_item()

    def test_the_item_says_what_it_is(self):
        self.assertEqual(len(self.host.ask(items=True)), 1)
        item = self.host.ask(properties=True)
        expected = {"Category": "ApplicationStatus", "Id": "Zamber", "Title": "Zamber", "Status": "Active",
                    "ItemIsMenu": False, "IconName": ""}
        self.assertEqual({name: item[name] for name in expected}, expected)
        for width, height, size, is_drawn in item["IconPixmap"]:
            self.assertEqual((width, size), (height, 4 * width * height))
            self.assertTrue(is_drawn)
        self.assertIn(22, [width for width, *_ in item["IconPixmap"]])
        self.assertEqual(item["ToolTip"][2], "Zamber")

    def test_a_click_opens_it_and_the_next_closes_it_and_does_not_open_it_again(self):
        for pause in (DOUBLE_CLICK_SECONDS, 0.0, 0.0):
            with self.subTest(pause):
                self.host.click()
                self.zamber.wait_for_popover()
                self.stays_open(pause)
                self.host.click()
                self.zamber.wait_until_closed()
                self.stays_closed(DOUBLE_CLICK_SECONDS)

    def test_a_press_held_on_the_icon_closes_it_and_its_release_does_not_open_it_again(self):
        self.host.click()
        self.zamber.wait_for_popover()
        self.desktop.mouse.move(*self.host.square)
        self.desktop.mouse.press()
        self.zamber.wait_until_closed()
        self.stays_closed(0.5)
        self.desktop.mouse.release()
        self.stays_closed(DOUBLE_CLICK_SECONDS)
        self.host.click()
        self.zamber.wait_for_popover()

    def test_after_a_click_elsewhere_has_closed_it_a_click_on_the_icon_opens_it(self):
        self.host.click()
        self.zamber.wait_for_popover()
        self.desktop.mouse.click(20, 780)
        self.zamber.wait_until_closed()
        self.host.click()
        self.zamber.wait_for_popover()
        self.stays_open(DOUBLE_CLICK_SECONDS)

    def test_a_click_that_closed_it_beside_the_icon_leaves_the_next_click_on_the_icon_its_effect(self):
        x, y = self.host.square
        self.host.click()
        self.zamber.wait_for_popover()
        self.desktop.mouse.click(x - 22, y)  # where a narrow panel has the next icon
        self.zamber.wait_until_closed()
        self.host.click()
        self.zamber.wait_for_popover()
        self.stays_open()

    def test_a_right_press_on_the_icon_closes_it(self):
        self.host.click()
        self.zamber.wait_for_popover()
        self.desktop.mouse.move(*self.host.square)
        self.desktop.mouse.press(3)
        self.zamber.wait_until_closed()
        self.desktop.mouse.release(3)
        self.host.click()
        self.zamber.wait_for_popover()

    def test_it_hangs_from_where_the_click_was(self):
        self.host.click()
        popover = self.zamber.wait_for_popover()
        self.assertLess(popover.y, 120)
        self.assertGreater(popover.x + popover.width, 1100)

    def test_a_host_that_activates_without_a_mouse_toggles(self):
        self.host.ask(call="Activate", arguments=[0, 0])
        self.zamber.wait_for_popover()
        self.host.ask(call="Activate", arguments=[0, 0])
        self.zamber.wait_until_closed()
        self.stays_closed()

    def test_a_click_remembers_the_window_that_was_active(self):
        self.host.click()
        self.zamber.wait_for_popover()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("banana bread")

    def test_the_menu_has_its_lines_and_hints_at_their_keys(self):
        menu = self.host.open_menu()
        self.assertEqual([line.get("label") for line in menu["lines"]], MENU)
        self.assertEqual([line.get("type") for line in menu["lines"]], [None, "separator", None, "separator", None])
        self.assertEqual([line.get("shortcut") for line in menu["lines"]],
                         [[["Super", "comma"]], None, None, None, [["Super", "q"]]])
        self.stays_closed()

    def test_the_menu_is_made_anew_at_each_opening(self):
        first = self.host.open_menu()
        entry = self.zamber.autostart_path()
        entry.parent.mkdir()
        entry.write_text("[Desktop Entry]\nType=Application\nName=Zamber\nExec=/bin/sh\n")
        second = self.host.open_menu()
        self.assertTrue(second["changed"])
        self.assertGreater(second["revision"], first["revision"])
        self.assertEqual(second["lines"][2]["label"], "✓ Launch at Login")
        third = self.host.open_menu()
        self.assertFalse(third["changed"])
        self.assertEqual(third["revision"], second["revision"])

    def test_after_the_menu_a_click_toggles_again(self):
        self.host.open_menu()
        self.host.click()
        self.zamber.wait_for_popover()

    def test_quit_ends_the_program(self):
        self.zamber_has_ended = True
        self.host.choose("Quit Zamber")
        self.assertEqual(self.zamber.child.wait(5), 0)
        wait_until(lambda: self.host.ask(items=True) == [], what="the item to be gone")

    def test_a_host_that_draws_no_menus_is_given_one(self):
        self.desktop.mouse.move(*self.host.square)
        self.host.ask(call="ContextMenu", arguments=[0, 0])
        wait_until(self.zamber.menu, what="the menu")
        self.zamber_has_ended = True
        self.keyboard.tap("Down", "Up", "Return")  # wraps round to the last line
        self.assertEqual(self.zamber.child.wait(5), 0)

    def test_a_menu_that_is_asked_for_again_is_shown_there_and_closes_as_the_first_would(self):
        places = [self.host.square, (600, 400), (300, 200)]
        for place in places:
            self.desktop.mouse.move(*place)
            self.host.ask(call="ContextMenu", arguments=[0, 0])
            wait_until(lambda: (menu := self.zamber.menu()) and (menu.x <= place[0] and menu.y <= place[1]), 3.0,
                       lambda: f"the menu at {place}; it is {self.zamber.menu()}")
        self.keyboard.tap("Escape")
        wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")
        self.host.click()
        self.zamber.wait_for_popover()


class ChangingHostsTest(NotifierTestCase):
    def test_a_host_that_comes_late_gets_the_item(self):
        host = self.start_host()
        host.click()
        self.zamber.wait_for_popover()

    def test_a_host_that_restarts_gets_the_item_again_each_time(self):
        for _ in range(3):
            host = self.start_host()
            self.assertEqual(len(host.ask(items=True)), 1)
            host.click()
            self.zamber.wait_for_popover()
            host.stop()
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
        self.paste_entry(0)
        self.editor.wait_for_text("apple tart")

    def test_a_tray_takes_over_from_a_host_and_gives_way_to_it(self):
        host = self.start_host()
        self.desktop.start_tray("tint2")
        self.assertIsNone(self.desktop.tray_icon(self.zamber.pid))
        host.stop()
        self.click_tray_icon()
        self.zamber.wait_for_popover()
        self.click_tray_icon()
        self.zamber.wait_until_closed()

        host = self.start_host()
        wait_until(lambda: self.desktop.tray_icon(self.zamber.pid) is None, what="the icon to leave the tray")
        host.click()
        self.zamber.wait_for_popover()

    def test_a_watcher_without_a_host_is_as_good_as_none(self):
        host = self.start_host()
        self.desktop.start_tray("tint2")
        host.ask(host=False)
        self.click_tray_icon()
        self.zamber.wait_for_popover()
        self.click_tray_icon()
        self.zamber.wait_until_closed()
        host.ask(host=True)
        wait_until(lambda: self.desktop.tray_icon(self.zamber.pid) is None, what="the icon to leave the tray")


class RealPanelTest(DesktopTestCase):
    """A panel that people use, with an item of ours at its right end."""

    window_manager = "xfwm4"
    tray = "none"
    history = HISTORY
    place = (1264, 14)

    def prepare(self):
        folder = self.desktop.config_home / "xfce4" / "xfconf" / "xfce-perchannel-xml"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "xfce4-panel.xml").write_text(XFCE_PANEL_CONFIGURATION)
        self.panel = self.desktop.start("xfce4-panel", ["xfce4-panel", "--disable-wm-check"])
        wait_until(lambda: self.desktop.bus_name_has_owner("org.kde.StatusNotifierWatcher"), 10.0, "the panel's watcher")
        self.desktop.activate(self.editor.window)

    def wait_for_the_icon(self):
        # The panel gives the icon its room when it has read all there is to know of it.
        wait_until(lambda: self.desktop.bus_name_has_owner(f"org.kde.StatusNotifierItem-{self.zamber.pid}-1"), 5.0,
                   "the item on the bus")

        def is_drawn():
            root = self.desktop.display.screen().root
            data = root.get_image(self.place[0] - 8, self.place[1] - 8, 16, 16, X.ZPixmap, 0xFFFFFFFF).data
            return len({data[at:at + 4] for at in range(0, len(data), 4)}) > 4

        wait_until(is_drawn, 5.0, "the icon in the panel")

    def test_clicks_open_and_close_it_and_a_paste_goes_back(self):
        self.wait_for_the_icon()
        for _ in range(3):
            self.desktop.mouse.click(*self.place)
            self.zamber.wait_for_popover()
            holds_for(lambda: self.zamber.popover() is not None, 0.5, "the popover stays open")
            self.desktop.mouse.click(*self.place)
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, 0.5, "the popover stays closed")
        self.desktop.mouse.click(*self.place)
        self.zamber.wait_for_popover()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("banana bread")

    def test_the_panels_menu_switches_and_quits(self):
        self.wait_for_the_icon()
        self.open_menu()
        self.keyboard.tap("Down", "Down", "Return")
        self.expected_lines.append("✅ Launch at Login: enabled")
        wait_until(self.zamber.autostart_path().exists, what="the entry")
        self.open_menu()
        self.keyboard.tap("Up", "Return")
        self.zamber_has_ended = True
        self.assertEqual(self.zamber.child.wait(5), 0)

    def open_menu(self):
        def menu():
            return next((window for window in self.desktop.windows() if window.visible and 60 < window.width < 400
                         and window.y < 60 and window.pid not in (self.zamber.pid, self.editor.child.pid)
                         and window.height > 40), None)

        wait_until(lambda: menu() is None, what="the last menu to be gone")
        self.desktop.mouse.click(*self.place, 3)
        wait_until(menu, what="the panel's menu")
        holds_for(menu, 0.4, "the panel's menu, which takes the keyboard a moment after it is seen")
