# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Where the popover opens: on several monitors, beside panels, at every scale."""

from case import DesktopTestCase
from harness import wait_until

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


class LowScreenTestCase:
    """On a screen with less room than the popover's size."""

    history = HISTORY
    preferences = {"popoverSize": "large"}

    def prepare(self):
        self.desktop.environment["QT_SCALE_FACTOR"] = str(self.scale)

    def test_it_shrinks_to_what_fits_and_keeps_its_footer(self):
        popover = self.zamber.open_popover()
        width, height = self.size
        self.assertEqual(popover.width, min(500 * self.scale, width - 12 * self.scale))
        self.assertLess(popover.height, 520 * self.scale)
        self.assertGreaterEqual(popover.y, 28)
        self.assertLessEqual(popover.y + popover.height, height)
        tree = self.zamber.tree()
        (gear,) = tree.all(role="push button", name="Settings", states=["showing"])
        (clear,) = tree.all(role="push button", name="Clear", states=["showing"])
        for node in (gear, clear):
            x, y = node.centre
            self.assertTrue(popover.x < x < popover.x + popover.width and popover.y < y < popover.y + popover.height,
                            f"{node.name!r} at {node.centre} in {popover}")
        self.choose(2)
        self.expect_paste()
        self.editor.wait_for_text("cherry cake")


class LowScreenOnceAndAHalfTest(LowScreenTestCase, DesktopTestCase):
    size = (1366, 768)
    scale = 1.5


class LowScreenTwiceTest(LowScreenTestCase, DesktopTestCase):
    size = (1024, 600)
    scale = 2


class CompositedPlacesTestCase:
    """Where a compositor runs, the window is larger than the card in it: the shadow lies around."""

    compositor = "picom"
    history = HISTORY

    def test_what_is_seen_hangs_from_the_icon_and_stays_clear_of_the_screens_edge(self):
        self.click_tray_icon()
        self.zamber.wait_for_popover()
        seen = next(window for window in self.zamber.tree().children if window.name == "Zamber")
        (gear,) = seen.all(role="push button", name="Settings", states=["showing"])
        (search,) = seen.all(role="text", states=["showing"])
        popover = self.zamber.popover()
        self.assertGreater(popover.width, 440)
        # The shadow's depth on each side of the card, which is 440 by 420.
        left = popover.x + (popover.width - 440) // 2
        top = popover.y + 18
        self.assertEqual(left + 440, 1280 - 6, "a margin at the screen's edge")
        self.assertEqual(top, 28 + 6, "close below the panel")
        self.assertTrue(left < search.centre[0] < left + 440 and top < search.centre[1] < top + 420)
        self.assertTrue(left < gear.centre[0] < left + 440)


class CompositedPlacesTest(CompositedPlacesTestCase, DesktopTestCase):
    pass


class CompositedPlacesUnderAnotherWindowManagerTest(CompositedPlacesTestCase, DesktopTestCase):
    """One that moves windows into the work area."""

    window_manager = "xfwm4"


class DyingCompositorTest(DesktopTestCase):
    compositor = "picom"
    history = HISTORY

    def test_a_compositor_that_ends_takes_the_room_for_the_shadow_along(self):
        popover = self.zamber.open_popover()
        self.assertGreater(popover.width, 440)
        self.desktop.compositor_process.stop()
        bare = wait_until(lambda: (window := self.zamber.popover()) and window.width == 440 and window, 5.0,
                          lambda: f"the shadow to be gone; the window is {self.zamber.popover()}")
        self.assertEqual(bare.height, 420)
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("banana bread")
        self.desktop.start_compositor()
        self.assertGreater(self.zamber.open_popover().width, 440)
