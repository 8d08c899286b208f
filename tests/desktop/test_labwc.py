# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The program on labwc, which has layers and data control, but neither hot keys nor places for programs."""

from case import PASTED_LINE
from harness import DesktopPart, DesktopPortal, Editor, LineEdit, WaitTimeout, wait_until
from wayland_case import LabwcTestCase
from wayland_cases import CaptureCases, EndCases, OpeningCases, OwnerOfX, OwnersCases, PasteCases
from wayland_window_cases import (CARD, GAP, HISTORY, SHARP_STEPS, EmptyDesktopCases, PopoverCases, SecondStartCases, SettingsCases,
                                  SharpnessCases, WindowCases, WindowsOfXCases, WithoutXCases, card_of)

MIDDLE_AND_RIGHT = (420, 60, 850, 540)
PANEL_HEIGHT = 40


class LabwcCaptureTest(CaptureCases, LabwcTestCase):
    pass


class LabwcSecretsOfXTest(OwnerOfX, LabwcTestCase):
    def setUp(self):
        super().setUp()
        self.open_owner_of_x()

    def test_a_secret_of_a_program_of_x_is_neither_asked_for_nor_kept(self):
        self.assert_secret_of_x_is_neither_asked_for_nor_kept()


class LabwcOwnersTest(OwnersCases, LabwcTestCase):
    pass


class LabwcOpeningTest(OpeningCases, LabwcTestCase):
    pass


class LabwcPasteTest(PasteCases, LabwcTestCase):
    def test_an_entry_goes_into_a_program_of_qt(self):
        field = LineEdit(self.desktop)
        self.paste_entry(1)
        field.wait_for_text("second")


class LabwcEndTest(EndCases, LabwcTestCase):
    pass


class LabwcWindowTestCase(WindowCases, LabwcTestCase):
    def is_of_wayland(self, window):
        return (window.pid, window.title) not in [(each.pid, each.title) for each in self.desktop.windows_of_x()]


class LabwcPopoverCases(PopoverCases):
    def test_over_a_window_in_full_screen_it_is_seen_and_has_the_keyboard(self):
        """By the picture: nothing else tells the popover from a window that is everywhere."""
        self.desktop.fill_screen(self.editor.window)
        wait_until(lambda: self.desktop.window(pid=self.editor.child.pid).height == 800, what="the full screen")
        bare = self.picture(*MIDDLE_AND_RIGHT)
        self.zamber.press_hot_key()
        wait_until(lambda: self.picture(*MIDDLE_AND_RIGHT) != bare, what="the popover to be seen")
        wait_until(self.names, what="the entries")
        self.keyboard.type_text("banana")
        self.wait_for_names("banana bread")
        self.keyboard.tap("Escape")
        wait_until(lambda: self.picture(*MIDDLE_AND_RIGHT) == bare, what="the popover to be gone")
        self.keyboard.type_text("x")
        self.editor.wait_for_text("x")


class LabwcPopoverTest(LabwcPopoverCases, LabwcWindowTestCase):
    """It is on a layer, and has the keyboard to itself."""

    def test_a_press_in_another_window_closes_it(self):
        """The press has no other effect: the keyboard goes back to where it was."""
        other = Editor(self.desktop, "Other", geometry="900x600+0+0")
        for count in range(3):
            self.editor.activate()
            self.zamber.open_popover()
            self.press_in(other, count)
            self.zamber.wait_until_closed()
            self.typing_reaches(self.editor)
        self.press_in(other, 3)
        self.typing_reaches(other)

    test_a_program_that_comes_to_the_front_closes_it = None  # none does

    def test_a_program_that_opens_a_window_takes_no_key_from_it(self):
        self.zamber.open_popover()
        with self.assertRaisesRegex(WaitTimeout, "'Newcomer' to be active"):
            Editor(self.desktop, "Newcomer")
        self.keyboard.type_text("banana")
        self.wait_for_names("banana bread")
        self.close_by_escape()



class LabwcEmptyDesktopTest(EmptyDesktopCases, LabwcWindowTestCase):
    pass


class LabwcPanelTest(LabwcWindowTestCase):
    """By the picture: the panel is seen at the right as well."""

    def prepare(self):
        super().prepare()
        DesktopPart(self.desktop, "panel", height=PANEL_HEIGHT)

    def test_it_opens_beside_the_panel(self):
        self.assert_it_opens_with_its_bottom_at(800 - PANEL_HEIGHT - GAP)

    def assert_it_opens_with_its_bottom_at(self, bottom):
        self.zamber.press_hot_key()
        wait_until(lambda: min(self.picture(900, bottom - 4, 300, 3)) > 100, what="the bottom of the card")
        self.assertEqual(set(self.picture(900, bottom, 300, 3)), {0, 255})
        self.keyboard.type_text("banana")
        self.wait_for_names("banana bread")


class LabwcPanelWithoutXTest(LabwcPanelTest):
    """XWayland tells of panels; nobody else does."""

    xwayland = False

    def test_it_opens_beside_the_panel(self):
        """It is in the corner that a panel is at most often."""
        self.assert_it_opens_with_its_bottom_at(GAP + CARD[1])


class LabwcSharpnessTest(SharpnessCases, LabwcWindowTestCase):
    def test_it_is_sharp_at_every_scale(self):
        for scale in (1, 1.5, 2):
            with self.subTest(scale):
                self.desktop.set_screen(scale)
                self.assertGreater(self.steps_in_a_picture_of_the_popover(scale), SHARP_STEPS)


class LabwcSettingsTest(SettingsCases, LabwcWindowTestCase):
    pass


class LabwcWithoutXTest(WithoutXCases, LabwcWindowTestCase):
    pass


class LabwcWindowsOfXTest(WindowsOfXCases, LabwcWindowTestCase):
    pass


class LabwcPortalTest(LabwcWindowTestCase):
    """A desktop of this compositor's that has a portal for global shortcuts."""

    preferences = {"quickPasteEnabled": True}

    def prepare(self):
        super().prepare()
        self.portal = DesktopPortal(self.desktop)

    def test_it_opens_and_pastes_by_the_portals_hot_keys(self):
        wait_until(lambda: ["open", "paste-second", "paste-third"] in
                   [sorted(asked[1]) for asked in self.portal.record() if asked[0] == "bind"], what="the hot keys")
        self.portal.press("open")
        self.zamber.wait_for_popover()
        self.portal.release("open")
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text(HISTORY[1])
        self.portal.press("paste-third")
        self.portal.release("paste-third")
        self.expected_lines.append(PASTED_LINE)
        self.editor.wait_for_text(HISTORY[1] + HISTORY[2])


class LabwcSecondStartTest(SecondStartCases, LabwcWindowTestCase):
    pass


class WithoutLayersTestCase(LabwcWindowTestCase):
    """The library that puts windows on layers is not there: it cannot be loaded, since an empty file is in its place."""

    def prepare(self):
        super().prepare()
        folder = self.desktop.directory / "empty-library"
        folder.mkdir()
        (folder / "libLayerShellQtInterface.so.6").touch()
        self.zamber.environment = {**self.zamber.environment, "LD_LIBRARY_PATH": str(folder)}


class LabwcWithoutLayersTest(LabwcPopoverCases, WithoutLayersTestCase):
    test_it_is_a_window_of_wayland_and_beside_the_corner_from_its_first_frame = None

    def test_it_is_a_window_of_wayland_in_the_middle(self):
        for _ in range(3):
            popover = self.zamber.open_popover()
            self.assertTrue(self.is_of_wayland(popover), popover)
            left, top, width, height = card_of(popover)
            right, bottom = left + width, top + height
            for inside, outside in ((self.picture(right - 4, top + 40, 3, 300), self.picture(right, top + 40, 3, 300)),
                                    (self.picture(left + 140, bottom - 4, 290, 3), self.picture(left + 140, bottom, 290, 3))):
                self.assertGreater(min(inside), 100)
                self.assertEqual(set(outside), {0, 255})
            self.close_by_escape()


class LabwcWithoutLayersEmptyDesktopTest(EmptyDesktopCases, WithoutLayersTestCase):
    def prepare(self):
        WithoutLayersTestCase.prepare(self)
        self.editor.quit()


class LabwcWithoutLayersSharpnessTest(LabwcSharpnessTest, WithoutLayersTestCase):
    pass
