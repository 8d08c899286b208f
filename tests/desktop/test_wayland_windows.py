# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program's windows on sway: focused at once, in their place, sharp, and gone when something else is wanted."""

from harness import wait_until
from wayland_case import SwayTestCase
from wayland_question_cases import QuestionCases
from wayland_window_cases import (CARD, GAP, HISTORY, SHARP_STEPS, EmptyDesktopCases, PopoverCases, SecondStartCases,
                                  SettingsCases, SharpnessCases, TrayMenuCases, WindowsOfXCases,
                                  WithoutXCases, card_of)


class SwayWindowTestCase(SwayTestCase):
    history = HISTORY

    def is_of_wayland(self, window):
        return next(node for node in self.desktop.nodes() if node["id"] == window.id)["shell"] == "xdg_shell"


class SwayPopoverTest(PopoverCases, SwayWindowTestCase):
    pass


class SwayQuestionTest(QuestionCases, SwayWindowTestCase):
    pass


class SwayEmptyDesktopTest(EmptyDesktopCases, SwayWindowTestCase):
    pass


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


class SwaySharpnessTest(SharpnessCases, SwayWindowTestCase):
    def test_it_is_sharp_at_every_scale(self):
        for scale in (1, 1.5, 2):
            with self.subTest(scale):
                self.desktop.tell(f"output HEADLESS-1 scale {scale}")
                self.assertGreater(self.steps_in_a_picture_of_the_popover(scale), SHARP_STEPS)


class SwaySettingsTest(SettingsCases, SwayWindowTestCase):
    def test_they_come_to_the_workspace_that_the_user_is_on(self):
        self.open_settings()
        self.desktop.tell("workspace 2")
        self.open_settings()
        self.assertTrue(self.settings().visible)


class SwayTrayMenuTest(TrayMenuCases, SwayWindowTestCase):
    pass


class SwayWithoutXTest(WithoutXCases, SwayWindowTestCase):
    pass


class SwayWindowsOfXTest(WindowsOfXCases, SwayWindowTestCase):
    pass


class SwaySecondStartTest(SecondStartCases, SwayWindowTestCase):
    pass
