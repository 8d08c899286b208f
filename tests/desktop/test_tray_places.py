# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The popover where the place of the status item is not known, or where there is none."""

from Xlib import X

from case import DesktopTestCase
from harness import wait_until

HISTORY = ("apple tart", "banana bread")


class WithoutTrayTestCase(DesktopTestCase):
    tray = "none"
    history = HISTORY


class WithoutAnyTrayTest(WithoutTrayTestCase):
    def test_the_hot_key_shows_it_whole_at_the_top_right_and_everything_works(self):
        popover = self.zamber.open_popover()
        self.assertGreaterEqual(popover.y, 0)
        self.assertLessEqual(popover.x + popover.width, 1280)
        self.assertGreater(popover.x + popover.width, 1200)
        self.assertLess(popover.y, 60)
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("banana bread")

    def test_another_start_shows_it(self):
        self.zamber.activate_by_bus()
        self.zamber.wait_for_popover()


class PanelsTest(WithoutTrayTestCase):
    """Where the icon's place is not known, the popover hangs next to the panel."""

    def start_panel(self, position, size):
        configuration = self.desktop.directory / "panel"
        configuration.write_text(
            f"panel_items = F\npanel_monitor = all\npanel_position = {position}\npanel_size = {size}\n"
            "panel_dock = 0\nstrut_policy = follow_size\nautohide = 0\n")
        self.desktop.start("panel", ["tint2", "-c", configuration])
        root = self.desktop.display.screen().root
        work_area = self.desktop.display.intern_atom("_NET_WORKAREA")
        wait_until(lambda: list(root.get_full_property(work_area, X.AnyPropertyType).value[:4]) != [0, 0, 1280, 800], 5.0,
                   "the panel's strut")

    def assert_popover_within(self, left, top, right, bottom):
        popover = self.zamber.open_popover()
        inside = (left <= popover.x and top <= popover.y and popover.x + popover.width <= right
                  and popover.y + popover.height <= bottom)
        self.assertTrue(inside, f"{popover} within {(left, top, right, bottom)}")

    def test_a_panel_at_the_bottom(self):
        self.start_panel("bottom center horizontal", "100% 40")
        self.assert_popover_within(800, 300, 1280, 760)

    def test_a_panel_at_the_left(self):
        self.start_panel("center left vertical", "100% 60")
        self.assert_popover_within(60, 300, 560, 800)

    def test_a_panel_at_the_right(self):
        self.start_panel("center right vertical", "100% 60")
        self.assert_popover_within(740, 300, 1220, 800)

    def test_a_panel_at_the_top(self):
        self.start_panel("top center horizontal", "100% 40")
        self.assert_popover_within(800, 40, 1280, 500)
