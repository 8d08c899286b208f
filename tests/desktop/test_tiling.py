# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A window manager that tiles: the popover floats above the tiles, and the way back is the same."""

from case import PASTED_LINE, DesktopTestCase
from harness import CONTROL, Editor, NotifierHost, holds_for, wait_until
from test_popover import HISTORY, OtherDesktops


class TilingTest(OtherDesktops, DesktopTestCase):
    window_manager = "i3"
    preferences = {"quickPasteEnabled": True}

    def test_the_popover_floats_in_its_own_size_and_leaves_the_tiles_alone(self):
        before = self.editor.window
        popover = self.zamber.open_popover()
        self.assertLess(popover.width, 600)
        self.assertLess(popover.height, 600)
        now = self.desktop.window(title="Editor")
        self.assertEqual((now.x, now.y, now.width, now.height), (before.x, before.y, before.width, before.height))

    def test_a_click_on_the_tray_icon_opens_and_closes_it(self):
        for _ in range(3):
            icon = self.click_tray_icon()
            popover = self.zamber.wait_for_popover()
            self.assertLess(abs(popover.y - (icon.y + icon.height)), 60)
            self.click_tray_icon()
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, 0.4, "the popover stays closed")

    def test_quick_paste(self):
        mark = self.keys.mark()
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text("banana bread")
        self.assert_pasted_by("v", CONTROL, mark)

    def test_the_hot_key_again_leaves_it_open(self):
        self.zamber.open_popover()
        self.zamber.press_hot_key()
        holds_for(lambda: self.zamber.popover() is not None, 0.4, "the popover is open")

    def test_another_tile_that_opens_closes_it(self):
        self.zamber.open_popover()
        other = Editor(self.desktop, "Other")
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(other.window)

    def test_the_menu_quits(self):
        self.click_tray_icon(button=3)
        wait_until(self.zamber.menu, what="the menu")
        self.zamber_has_ended = True
        self.keyboard.type_text("q")
        self.assertEqual(self.zamber.child.wait(5), 0)


class TilingWithNotifierHostTest(DesktopTestCase):
    window_manager = "i3"
    tray = "none"
    history = HISTORY

    def prepare(self):
        self.host = NotifierHost(self.desktop)

    def test_a_click_opens_it_the_next_closes_it_and_a_paste_goes_back(self):
        self.host.wait_for_item()
        for _ in range(3):
            self.host.click()
            self.zamber.wait_for_popover()
            self.host.click()
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, 0.5, "the popover stays closed")
        self.host.click()
        self.zamber.wait_for_popover()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("banana bread")


class RestartedWindowManagerTest(DesktopTestCase):
    history = HISTORY

    def test_pastes_go_on_where_the_window_manager_was_restarted(self):
        expected = ""
        for entry in (0, 1):
            self.desktop.window_manager_process.stop()
            self.desktop.start_window_manager()
            self.desktop.activate(self.editor.window)
            self.paste_entry(entry)
            expected += HISTORY[entry]
            self.editor.wait_for_text(expected)
