# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program's windows on KWin: focused at once, in their place, sharp, and gone when something else is wanted."""

from harness import DesktopPart, Editor, wait_until
from wayland_case import KWinTestCase
from wayland_question_cases import QuestionCases
from wayland_window_cases import (CARD, GAP, SHARP_STEPS, EmptyDesktopCases, PopoverCases, SecondStartCases,
                                  SettingsCases, SharpnessCases, TrayMenuCases, WindowCases,
                                  WindowsOfXCases, WithoutXCases, card_of)

IS_SCRIPT_LOADED = ["gdbus", "call", "--session", "-d", "org.kde.KWin", "-o", "/Scripting", "-m",
                    "org.kde.kwin.Scripting.isScriptLoaded"]


class KWinWindowTestCase(WindowCases, KWinTestCase):
    def is_of_wayland(self, window):
        """KWin 6 calls windows of X and of Wayland alike."""
        return (window.pid, window.title) not in [(each.pid, each.title) for each in self.desktop.windows_of_x()]


class KWinPopoverTest(PopoverCases, KWinWindowTestCase):
    pass


class KWinQuestionTest(QuestionCases, KWinWindowTestCase):
    pass


class KWinEmptyDesktopTest(EmptyDesktopCases, KWinWindowTestCase):
    def prepare(self):
        DesktopPart(self.desktop, "backdrop")


class PanelTestCase(KWinWindowTestCase):
    panel_height = 40

    def wait_until_it_opens_with_its_bottom_at(self, expected):
        """The compositor tells of panels a moment after the program has started, and after they have changed."""
        def opens_there():
            _, top, _, height = card_of(self.zamber.open_popover())
            self.close_by_escape()
            return top + height == expected

        wait_until(opens_there, 5.0, f"the popover's bottom at {expected}")


class KWinPanelTest(PanelTestCase):
    def prepare(self):
        super().prepare()
        DesktopPart(self.desktop, "panel", height=self.panel_height)

    def test_it_opens_beside_the_panel(self):
        self.wait_until_it_opens_with_its_bottom_at(800 - self.panel_height - GAP)
        for _ in range(2):
            left, top, width, height = card_of(self.zamber.open_popover())
            self.assertEqual((width, height), CARD)
            self.assertEqual(left + width, 1280 - GAP + 1)
            self.assertEqual(top + height, 800 - self.panel_height - GAP)
            self.close_by_escape()

    def test_its_script_goes_with_it(self):
        self.wait_until_it_opens_with_its_bottom_at(800 - self.panel_height - GAP)
        self.assertEqual(self.zamber.stop(), 0)
        self.zamber_has_ended = True
        wait_until(lambda: self.desktop.run([*IS_SCRIPT_LOADED, "app.zamber.FreeAreas"]) == "(false,)\n",
                   what="the script to be gone")


class KWinPanelBetweenScalesTest(KWinPanelTest):
    """Points are fewer than pixels, for XWayland too."""

    scale, size = 1.5, (1920, 1200)


class KWinLatePanelTest(PanelTestCase):
    """A session's programs are started side by side, and a user moves a panel while they run."""

    def test_a_panel_that_comes_and_goes_is_heeded(self):
        for _ in range(2):
            self.wait_until_it_opens_with_its_bottom_at(GAP + CARD[1])
            panel = DesktopPart(self.desktop, "panel", height=self.panel_height)
            self.wait_until_it_opens_with_its_bottom_at(800 - self.panel_height - GAP)
            panel.child.stop()


class KWinScreensTest(KWinWindowTestCase):
    screens = 2

    def move(self, editor, screen):
        self.desktop.wait_until_active(editor.window)
        self.desktop.move_to_screen(screen)
        wait_until(lambda: self.desktop.active_window().x // 1280 == screen, what="the editor to be moved")

    def opens_for(self, editor, screen):
        """Of two editors that are side by side KWin would give the keyboard to that on the popover's screen."""
        self.desktop.wait_until_active(editor.window)
        left, _, width, _ = card_of(self.zamber.open_popover())
        self.assertEqual(left + width, 1280 * (screen + 1) - GAP + 1)
        self.close_by_escape()
        self.typing_reaches(editor)

    def test_it_opens_on_the_screen_of_the_active_window(self):
        for screen in (1, 0, 1):
            self.move(self.editor, screen)
            self.opens_for(self.editor, screen)

    def test_it_opens_where_the_user_has_gone(self):
        self.move(self.editor, 1)
        other = Editor(self.desktop, title="Other")
        self.move(other, 0)
        self.opens_for(other, 0)
        self.desktop.activate(self.editor.window)
        self.opens_for(self.editor, 1)
        self.desktop.activate(other.window)
        self.opens_for(other, 0)


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
