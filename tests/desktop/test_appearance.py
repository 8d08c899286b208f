# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Light and dark, accent and motion, as desktops report them at the start and while the program runs."""

import itertools

from case import DesktopTestCase
from harness import GtkPortal, SettingsPortal, XSettings, holds_for, mean_color, wait_until

APPEARANCE = "org.freedesktop.appearance"
GNOME_INTERFACE = "org.gnome.desktop.interface"
MIDDLE_BRIGHTNESS = 128


def color(desktop, window):
    """Of the whole window, mixed."""
    return mean_color(desktop, window.x, window.y, window.width, window.height)


def is_dark(desktop, window):
    return sum(color(desktop, window)) / 3 < MIDDLE_BRIGHTNESS


class AppearanceTestCase(DesktopTestCase):
    history = ("first", "second", "third")

    def color(self):
        return color(self.desktop, self.zamber.wait_for_popover())

    def wait_until_dark(self, wanted, what):
        wait_until(lambda: is_dark(self.desktop, self.zamber.wait_for_popover()) == wanted, 5.0,
                   lambda: f"{what}: {'dark' if wanted else 'light'}; it is {self.color()}, "
                           f"running {self.zamber.is_running()}, {self.zamber.stderr_lines()}")


class PortalAnswersTest(AppearanceTestCase):
    """A portal that answers in every way there is, at the start."""

    SCHEMES = (None, "uint32 0", "uint32 1", "uint32 2", "'nonsense'")
    ACCENTS = (None, "(1.0, 0.0, 0.0)", "(-1.0, -1.0, -1.0)")
    MOTIONS = (None, (APPEARANCE, "reduced-motion", "uint32 1"), (GNOME_INTERFACE, "enable-animations", "false"))

    def prepare(self):
        self.portal = SettingsPortal(self.desktop)

    def test_the_program_runs_and_looks_as_the_portal_says(self):
        for scheme, accent, motion in itertools.product(self.SCHEMES, self.ACCENTS, self.MOTIONS):
            with self.subTest(scheme=scheme, accent=accent, motion=motion):
                self.zamber.stop()
                self.portal.forget()
                if scheme:
                    self.portal.set(APPEARANCE, "color-scheme", scheme)
                if accent:
                    self.portal.set(APPEARANCE, "accent-color", accent)
                if motion:
                    self.portal.set(*motion)
                self.zamber.start()
                self.zamber.open_popover()
                self.wait_until_dark(scheme == "uint32 1", "the popover")
                self.assertEqual(self.zamber.stderr_lines(), [])


class LiveChangesTest(AppearanceTestCase):
    """The user changes the desktop's settings while the popover is open."""

    def prepare(self):
        self.portal = SettingsPortal(self.desktop)

    def test_light_and_dark_are_followed(self):
        self.zamber.open_popover()
        for scheme, wanted in (("uint32 1", True), ("uint32 2", False), ("uint32 1", True), ("uint32 0", False)):
            self.portal.change(APPEARANCE, "color-scheme", scheme)
            self.wait_until_dark(wanted, scheme)

    def test_the_accent_is_followed(self):
        self.zamber.open_popover()

        def redness():
            red, _, blue = self.color()
            return red - blue

        usual = redness()
        self.portal.change(APPEARANCE, "accent-color", "(1.0, 0.0, 0.0)")
        wait_until(lambda: redness() > usual + 1, 5.0, lambda: f"a red accent; {usual} before, {redness()} now")
        self.portal.change(APPEARANCE, "accent-color", "(-1.0, -1.0, -1.0)")
        wait_until(lambda: abs(redness() - usual) < 0.5, 5.0, lambda: f"the usual accent, {usual}; now {redness()}")

    def test_motion_and_light_may_change_in_any_order(self):
        self.zamber.open_popover()
        changes = [(APPEARANCE, "color-scheme", f"uint32 {scheme}") for scheme in (0, 1, 2)]
        changes += [(APPEARANCE, "reduced-motion", f"uint32 {motion}") for motion in (0, 1)]
        changes += [(GNOME_INTERFACE, "enable-animations", text) for text in ("true", "false")]
        scheme = 0
        for first, second in itertools.permutations(changes, 2):
            for group, key, value in (first, second):
                self.portal.change(group, key, value)
                if key == "color-scheme":
                    scheme = int(value[-1])
            self.wait_until_dark(scheme == 1, f"{first}, then {second}")


class GtkPortalTest(AppearanceTestCase):
    """The portal that people have, with the settings of GNOME behind it."""

    def prepare(self):
        self.portal = GtkPortal(self.desktop)

    def test_reduced_motion_before_the_start_with_no_word_on_light_or_dark(self):
        self.portal.change("enable-animations", "false")
        self.zamber.stop()
        self.zamber.start()
        self.expected_lines = self.expected_lines[-2:]
        self.zamber.open_popover()
        self.wait_until_dark(False, "the popover")

    def test_changes_are_followed(self):
        self.zamber.open_popover()
        for scheme, wanted in (("prefer-dark", True), ("default", False), ("prefer-dark", True), ("prefer-light", False)):
            self.portal.change("color-scheme", scheme)
            self.wait_until_dark(wanted, scheme)
            self.portal.change("enable-animations", "false" if wanted else "true")
        self.wait_until_dark(False, "in the end")


class GtkThemeTest(AppearanceTestCase):
    """XFCE, where Qt hears of another theme by its plugin for GTK. Its newer versions take their colours from it."""

    THEMES = ("Adwaita-dark", "HighContrast", "HighContrastInverse", "Adwaita-dark", "Adwaita")

    def prepare(self):
        self.settings = XSettings(self.desktop, "Adwaita")
        # By the name of the desktop, also when Qt finds others installed.
        self.zamber.environment = dict(self.zamber.environment, XDG_CURRENT_DESKTOP="XFCE", QT_QPA_PLATFORMTHEME="gtk3")

    def test_other_themes_are_survived(self):
        for theme in self.THEMES:
            self.settings.change_theme(theme)
            holds_for(self.zamber.is_running, 0.7, f"the program runs with {theme}")
            self.zamber.open_popover()
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()

    def test_the_portal_has_the_last_word_on_popover_and_menu(self):
        portal = SettingsPortal(self.desktop)
        for scheme, wanted in (("uint32 2", False), ("uint32 1", True)):
            portal.change(APPEARANCE, "color-scheme", scheme)
            for theme in self.THEMES:
                self.settings.change_theme(theme)
                holds_for(self.zamber.is_running, 0.7, f"the program runs with {theme}")
                self.zamber.open_popover()
                self.wait_until_dark(wanted, f"the popover with {theme}")
                self.keyboard.tap("Escape")
                self.zamber.wait_until_closed()
                self.click_tray_icon(button=3)
                menu = wait_until(self.zamber.menu, what="the menu")
                wait_until(lambda menu=menu: is_dark(self.desktop, menu) == wanted, 5.0, f"the menu with {theme}")
                self.keyboard.tap("Escape")
                wait_until(lambda: self.zamber.menu() is None, what="the menu to be gone")
