# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program's windows on KWin: focused at once, in their place, sharp, and gone when something else is wanted."""

from harness import DesktopPart
from wayland_case import KWinTestCase
from wayland_window_cases import (CARD, GAP, HISTORY, SHARP_STEPS, EmptyDesktopCases, PopoverCases, SecondStartCases,
                                  SettingsCases, SharpnessCases, TrayMenuCases, WindowsOfXCases, WithoutXCases, card_of)


class KWinWindowTestCase(KWinTestCase):
    history = HISTORY

    def is_of_wayland(self, window):
        return window.class_name == "app.zamber.Zamber"  # windows of X bear the program's file name


class KWinPopoverTest(PopoverCases, KWinWindowTestCase):
    pass


class KWinEmptyDesktopTest(EmptyDesktopCases, KWinWindowTestCase):
    def prepare(self):
        DesktopPart(self.desktop, "backdrop")


class KWinPanelTest(KWinWindowTestCase):
    panel_height = 40

    def prepare(self):
        super().prepare()
        DesktopPart(self.desktop, "panel", height=self.panel_height)

    def test_it_opens_beside_the_panel(self):
        for _ in range(2):
            left, top, width, height = card_of(self.zamber.open_popover())
            self.assertEqual((width, height), CARD)
            self.assertEqual(left + width, 1280 - GAP + 1)
            self.assertEqual(top + height, 800 - self.panel_height - GAP)
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()


class KWinPanelBetweenScalesTest(KWinPanelTest):
    """Points are fewer than pixels, for XWayland too."""

    scale, size = 1.5, (1920, 1200)


class KWinSharpnessTest(SharpnessCases, KWinWindowTestCase):
    def test_it_is_sharp(self):
        self.assertGreater(self.steps_in_a_picture_of_the_popover(self.scale), SHARP_STEPS)


class KWinSharpnessAtTwoTest(KWinSharpnessTest):
    scale, size = 2, (1920, 1200)


class KWinSharpnessBetweenTest(KWinSharpnessTest):
    scale, size = 1.5, (1920, 1200)


class KWinSettingsTest(SettingsCases, KWinWindowTestCase):
    def frame_of_settings(self):
        whole = self.settings()
        _, _, width, height = self.zamber.tree().all(name="Zamber Settings")[0].extents
        border = (whole.width - width) // 2
        return border, whole.height - height - border


class KWinTrayMenuTest(TrayMenuCases, KWinWindowTestCase):
    pass


class KWinWithoutXTest(WithoutXCases, KWinWindowTestCase):
    pass


class KWinWindowsOfXTest(WindowsOfXCases, KWinWindowTestCase):
    pass


class KWinSecondStartTest(SecondStartCases, KWinWindowTestCase):
    pass
