# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The settings window: opened from the popover and the menu, worked by the keyboard alone, witnessed by the file."""

import re

from case import DesktopTestCase
from harness import holds_for, wait_until

TITLE = "Zamber Settings"
PAGES = ("General", "Clipboard", "Shortcuts", "About")


class SettingsTestCase(DesktopTestCase):
    history = ("first", "second", "third")

    def open_settings(self):
        """By the popover's gear, which closes the popover."""
        self.zamber.open_popover()
        (gear,) = self.zamber.tree().all(role="push button", name="Settings", states=["showing"])
        self.desktop.mouse.click(*gear.centre)
        window = self.wait_for_settings()
        self.zamber.wait_until_closed()
        self.wait_for_settings()
        return window

    def open_by_keys(self, modifier):
        self.zamber.open_popover()
        self.keyboard.chord(modifier, "comma")
        window = self.wait_for_settings()
        self.zamber.wait_until_closed()
        return window

    def open_from_menu(self):
        self.click_tray_icon(3)
        wait_until(self.zamber.menu, 5.0, "the menu")
        self.keyboard.tap("comma")
        return self.wait_for_settings()

    def settings(self):
        return self.desktop.window(title=TITLE, pid=self.zamber.pid)

    def wait_for_settings(self):
        """The window, once it has the keyboard."""
        return wait_until(lambda: (window := self.settings()) and window.visible
                          and (active := self.desktop.active_window()) and active.id == window.id and window, 5.0,
                          lambda: f"the settings in front; in front is {self.desktop.active_window()}")

    def node(self):
        return next(window for window in self.zamber.tree().children if window.name == TITLE)

    def focused(self):
        """The node with the keyboard focus, the innermost one that says so."""
        return next(reversed(self.node().all(states=["focused"])), None)

    def tab_to(self, role, name):
        for _ in range(20):
            focused = self.focused()
            if focused and (focused.role, focused.name) == (role, name):
                return focused
            self.keyboard.tap("Tab")
        raise AssertionError(f"Tab never comes to {role} {name!r}:\n{self.node().outline()}")

    def go_to_page(self, name):
        self.tab_to("list item", self.selected_page())
        while self.selected_page() != name:
            before = self.selected_page()
            self.keyboard.tap("Down" if PAGES.index(before) < PAGES.index(name) else "Up")
            wait_until(lambda: self.selected_page() != before, 2.0, "the next page")

    def selected_page(self):
        (row,) = self.node().all(role="list item", states=["selected"])
        return row.name

    def toggle(self, name):
        self.tab_to("check box", name)
        self.keyboard.tap("space")

    def choose_next(self, segment, following):
        """Arrow keys in a picker: from the segment to the one after it."""
        self.tab_to("radio button", segment)
        self.keyboard.tap("Right")
        wait_until(lambda: (focused := self.focused()) and focused.name == following, 2.0, f"{following} to be chosen")

    def stored(self):
        """The keys and values in the preference file."""
        path = self.zamber.preferences_path
        text = path.read_text() if path.exists() else ""
        return dict(re.findall(r"^(\w+)=(.*)$", text, re.MULTILINE))

    def wait_for_stored(self, **expected):
        wait_until(lambda: self.stored() == expected, 3.0, lambda: f"{expected}; stored is {self.stored()}")


class SettingsPagesTest(SettingsTestCase):
    def test_every_control_is_reached_and_worked_by_the_keyboard_and_writes_its_key(self):
        self.open_settings()
        self.assertEqual([row.name for row in self.node().all(role="list item")], list(PAGES))
        self.assertEqual(self.stored(), {})
        stored = {}

        def expect(**change):
            stored.update(change)
            self.wait_for_stored(**stored)

        self.choose_next("Auto", "Light")
        expect(appTheme="light")
        self.choose_next("Normal", "Large")
        expect(popoverSize="large")
        self.toggle("Play sound on paste")
        expect(playSoundOnPaste="true")
        self.assertFalse(self.zamber.autostart_path().exists())
        self.toggle("Launch at login")
        wait_until(self.zamber.autostart_path().exists, 3.0, "the entry that starts it at login")
        self.toggle("Launch at login")
        wait_until(lambda: not self.zamber.autostart_path().exists(), 3.0, "the entry to be gone")

        self.go_to_page("Clipboard")
        self.choose_next("20", "50")
        expect(maxItems="50")
        for name, key, value in (("Show line count", "showLineCount", "false"),
                                 ("Show character count", "showCharCount", "false"),
                                 ("Preview URL titles", "previewURLs", "false"),
                                 ("Hide sensitive content", "hideSensitive", "true")):
            self.toggle(name)
            expect(**{key: value})

        self.go_to_page("Shortcuts")
        self.assertEqual(self.node().all(role="label", name="Paste 2nd item", states=["showing"]), [])
        self.toggle("Enable quick paste shortcuts")
        expect(quickPasteEnabled="true")
        wait_until(lambda: self.node().all(role="label", name="Paste 2nd item", states=["showing"]), 2.0, "its rows")
        self.go_to_page("About")
        self.assertTrue(self.node().all(role="label", name="Version 1.0.0", states=["showing"]))
        self.wait_for_stored(**stored)

    def test_opening_and_closing_every_page_leaves_the_preferences_unchanged(self):
        self.open_settings()
        for page in PAGES:
            self.go_to_page(page)
        self.keyboard.chord("Control_L", "w")
        wait_until(lambda: self.settings() is None or not self.settings().visible, 3.0, "the window to be gone")
        self.assertEqual(self.stored(), {})
        self.assertFalse(self.zamber.autostart_path().exists())

    def test_a_page_is_chosen_by_a_click_on_its_name(self):
        self.open_settings()
        for page in (*PAGES[1:], "General"):
            (row,) = self.node().all(role="list item", name=page)
            self.desktop.mouse.click(*row.centre)
            wait_until(lambda: self.selected_page() == page, 2.0, lambda: f"{page}; selected is {self.selected_page()}")

    def test_what_another_process_writes_appears_at_once(self):
        self.open_settings()
        self.zamber.write_preferences(appTheme="dark", playSoundOnPaste=True)
        wait_until(lambda: self.node().all(role="radio button", name="Dark", states=["checked"]), 10.0,
                   lambda: f"Dark; the file holds {self.stored()}")
        self.assertTrue(self.node().all(role="check box", name="Play sound on paste", states=["checked"]))
        self.assertEqual(self.stored(), {"appTheme": "dark", "playSoundOnPaste": "true"})


class SettingsWindowTest(SettingsTestCase):
    def test_there_is_one_window_and_it_starts_anew_with_the_general_page(self):
        first = self.open_settings()
        self.assertEqual((first.width, first.height), (650, 500))
        self.go_to_page("About")
        again = self.open_settings()
        self.assertEqual(again.id, first.id)
        self.assertEqual(self.selected_page(), "About")
        self.assertEqual(len([w for w in self.zamber.windows() if w.title == TITLE]), 1)
        self.keyboard.chord("Control_L", "w")
        wait_until(lambda: self.settings() is None or not self.settings().visible, 3.0, "the window to be gone")
        self.desktop.wait_until_active(self.editor.window)
        self.open_settings()
        self.assertEqual(self.selected_page(), "General")

    def test_the_gear_closes_the_popover_and_the_keys_are_the_settings_own(self):
        self.open_settings()
        self.keyboard.tap("Down", "Return")
        holds_for(lambda: self.editor.text() == "" and self.zamber.popover() is None, 0.8, "nothing is pasted")

    def test_the_popovers_keys_open_it(self):
        for modifier in ("Control_L", "Super_L"):
            self.open_by_keys(modifier)
            self.keyboard.chord("Control_L", "w")
            wait_until(lambda: self.settings() is None or not self.settings().visible, 3.0, "the window to be gone")
            self.desktop.wait_until_active(self.editor.window)

    def test_the_menu_opens_it_also_when_it_is_minimised_or_on_another_desktop(self):
        window = self.open_from_menu()
        for hide in (["xdotool", "windowminimize", str(window.id)], ["xdotool", "set_desktop", "1"]):
            with self.subTest(hide[1]):
                self.desktop.run(["xdotool", "set_num_desktops", "2"])
                self.desktop.run(hide)
                wait_until(lambda: not self.settings() or not self.settings().visible, 3.0, "the window to be hidden")
                self.open_from_menu()
        self.assertEqual(self.desktop.run(["xdotool", "get_desktop"]).strip(), "1", "the user stays where they are")

    def test_the_menu_stays_when_the_window_in_front_goes(self):
        self.open_settings()
        self.desktop.run(["xdotool", "set_num_desktops", "2"])
        self.click_tray_icon(3)
        wait_until(self.zamber.menu, 5.0, "the menu")
        self.desktop.run(["xdotool", "set_desktop", "1"])
        wait_until(lambda: not self.settings(), 3.0, "the window to be hidden")
        holds_for(self.zamber.menu, 1.0, "the menu is open")
        self.keyboard.tap("comma")
        self.wait_for_settings()

    def test_an_entry_pasted_over_it_goes_to_the_application_before_it(self):
        self.open_settings()
        self.desktop.activate(self.desktop.window(title="Editor"))
        self.paste_entry(1)
        self.editor.wait_for_text("second")
        self.assertTrue(self.settings().visible)

    def test_where_it_was_in_front_an_entry_is_pasted_into_it_and_nowhere_else(self):
        self.open_settings()
        self.paste_entry(1)
        wait_until(lambda: "✅ Pasted via CGEvent" in self.zamber.stdout_lines(), 5.0, "the paste")
        self.assertIn("🔵 Pasting into: Zamber", self.zamber.stdout_lines())
        self.assertEqual(self.editor.text(), "")
        self.wait_for_settings()


class SettingsUnderAnotherWindowManagerTest(SettingsWindowTest):
    window_manager = "xfwm4"


class SettingsInTilesTest(SettingsTestCase):
    window_manager = "i3"

    def test_the_menu_brings_it_to_the_workspace_that_the_user_is_on(self):
        window = self.open_from_menu()
        self.assertEqual((window.width, window.height), (650, 500), "no tile: its size is fixed")
        self.desktop.run(["i3-msg", "workspace 2"])
        wait_until(lambda: not self.settings(), 3.0, "the window to be hidden")
        self.open_from_menu()
        self.assertEqual(self.desktop.run(["xdotool", "get_desktop"]).strip(), "1", "the user stays where they are")
