# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Where the popover opens: on several monitors, beside panels, at every scale."""

from case import DesktopTestCase

HISTORY = ("apple tart", "banana bread", "cherry cake")


class SeveralMonitorsTest(DesktopTestCase):
    """Two monitors side by side, a panel along the top of both and the icon on the right one."""

    history = HISTORY

    def prepare(self):
        for command in (["--setmonitor", "Left", "500/132x800/212+0+0", "screen"],
                        ["--setmonitor", "Right", "780/206x800/212+500+0", "none"]):
            self.desktop.run(["xrandr", *command])

    def test_it_hangs_below_the_panel_on_the_monitor_of_the_icon(self):
        icon = self.click_tray_icon()
        popover = self.zamber.wait_for_popover()
        self.assertGreaterEqual(popover.y, 28, "the panel is 28 pixels high")
        self.assertLess(popover.y, icon.y + 60)
        monitor = (500, 1280) if icon.x >= 500 else (0, 500)
        self.assertGreaterEqual(popover.x, monitor[0])
        self.assertLessEqual(popover.x + popover.width, monitor[1])

    def test_the_hot_key_opens_it_whole_on_one_monitor_and_clear_of_the_panel(self):
        for x in (100, 1200):
            self.desktop.mouse.click(x, 700)
            popover = self.zamber.open_popover()
            self.assertTrue(popover.x + popover.width <= 500 or popover.x >= 500, f"{popover} lies across both")
            self.assertGreaterEqual(popover.y, 28)
            self.assertLessEqual(popover.y + popover.height, 800)
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()


class ScaledTestCase:
    """On a screen where a point is more than a pixel."""

    history = HISTORY
    preferences = {"popoverSize": "compact"}

    def prepare(self):
        self.desktop.environment["QT_SCALE_FACTOR"] = str(self.scale)

    def test_it_is_whole_inside_the_work_area_and_its_rows_are_where_they_are_seen(self):
        icon = self.click_tray_icon()
        popover = self.zamber.wait_for_popover()
        self.assertAlmostEqual(popover.width, 360 * self.scale, delta=2)
        self.assertAlmostEqual(popover.height, 340 * self.scale, delta=2)
        self.assertGreaterEqual(popover.y, 28)
        self.assertLess(popover.y, icon.y + 28 + 20 * self.scale)
        self.assertGreaterEqual(popover.x, 0)
        self.assertLessEqual(popover.x + popover.width, 1280)
        self.assertLessEqual(popover.y + popover.height, 800)
        # The second row: the header, the search field, the first row and the gaps, in points.
        second = 44 + 40 + 4 + 35 + 6 + 17
        self.desktop.mouse.click(popover.x + popover.width // 3, popover.y + round(second * self.scale))
        self.expect_paste()
        self.editor.wait_for_text("banana bread")


class ScaledOnceAndAHalfTest(ScaledTestCase, DesktopTestCase):
    scale = 1.5


class ScaledTwiceTest(ScaledTestCase, DesktopTestCase):
    scale = 2
