# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The Wayland harness against its partners, without the program."""

import unittest

from harness import Editor, Foot, KWinDesktop, LabwcDesktop, SwayDesktop, WaylandOwner, png_bytes, wait_until
from harness.processes import pids_with_environment
from harness_case import HarnessCase


class WaylandDesktopCases(HarnessCase):
    """What all of them can do; `kind` is the desktop's class."""

    kind = None

    def make_desktop(self):
        return self.kind()

    def start_compositor(self):
        self.desktop.start_compositor()

    def test_an_editor_copies_and_pastes_by_its_keys(self):
        editor = Editor(self.desktop)
        self.keyboard.type_text("abc")
        self.keyboard.chord("Control_L", "a")
        self.keyboard.chord("Control_L", "c")
        wait_until(lambda: self.desktop.clipboard.text() == "abc", what="the copy")
        self.desktop.clipboard.copy_text("grüße 😀\n\tzwei")
        self.keyboard.chord("Control_L", "v")
        editor.wait_for_text("grüße 😀\n\tzwei")

    def test_a_program_of_x_and_one_of_wayland_share_the_clipboard(self):
        of_x = Editor(self.desktop, "Of X", GDK_BACKEND="x11")
        self.desktop.clipboard.copy_text("from Wayland")
        self.keyboard.chord("Control_L", "v")
        of_x.wait_for_text("from Wayland")

    def test_the_picture_of_the_screen_has_what_is_on_it(self):
        Editor(self.desktop)
        path = self.desktop.screenshot(self.desktop.directory / "screen.png")
        self.assertTrue(path.read_bytes().startswith(b"\x89PNG"))

    def test_it_comes_up_again_after_its_compositor_has_crashed(self):
        self.desktop.compositor_process.kill()
        self.start_compositor()
        editor = Editor(self.desktop)
        self.desktop.keyboard.type_text("again")
        editor.wait_for_text("again")

    def test_nothing_is_left_of_it(self):
        with self.kind() as other:
            folder = other.directory
            Editor(other)
            self.assertNotEqual(pids_with_environment("XDG_RUNTIME_DIR", folder / "runtime"), [])
        self.assertFalse(folder.exists())
        self.assertEqual(pids_with_environment("XDG_RUNTIME_DIR", folder / "runtime"), [])


class SwayHarnessTest(WaylandDesktopCases, unittest.TestCase):
    kind = SwayDesktop

    def test_a_terminal_pastes_by_its_own_keys(self):
        foot = Foot(self.desktop)
        self.desktop.clipboard.copy_text("typed")
        self.keyboard.chord("Control_L", "Shift_L", "v")
        foot.wait_for(b"typed")

    def test_an_owner_offers_what_it_is_told_and_notes_what_is_asked(self):
        owner = WaylandOwner(self.desktop)
        owner.offer({"text/plain": b"hello", "image/png": png_bytes(), "text/html": None})
        self.assertEqual(self.desktop.clipboard.targets(), ["text/plain", "image/png", "text/html"])
        self.assertEqual(self.desktop.clipboard.read("image/png"), png_bytes())
        self.assertEqual(owner.requests(), ["image/png"])
        owner.release()
        wait_until(lambda: self.desktop.clipboard.targets() == [], what="the clipboard to be empty")

    def test_without_xwayland_there_is_no_x_server(self):
        with SwayDesktop(xwayland=False) as other:
            self.assertNotIn("DISPLAY", other.environment)
            Editor(other)


class KWinHarnessTest(WaylandDesktopCases, unittest.TestCase):
    kind = KWinDesktop

    def start_compositor(self):
        self.desktop.start_kwin()

    def test_a_key_that_is_held_repeats_in_an_editor_and_not_in_what_kwin_is_given(self):
        editor = Editor(self.desktop)
        self.keyboard.press("a")
        wait_until(lambda: len(editor.text()) > 2, what="the repetition")
        self.keyboard.release("a")
        text = editor.text()
        self.assertEqual(text, "a" * len(text))

    def test_the_user_may_type_in_a_second_layout(self):
        with KWinDesktop(layout="us,ru") as other:
            editor = Editor(other)
            other.keyboard.tap("v")
            other.use_layout(1)
            other.keyboard.tap("v")
            editor.wait_for_text("vм")


class LabwcHarnessTest(WaylandDesktopCases, unittest.TestCase):
    oldest_debian = 13
    kind = LabwcDesktop

    def test_its_hot_key_runs_what_it_is_told_to(self):
        with LabwcDesktop(hot_key_command="touch pressed") as other:
            Editor(other)
            other.keyboard.chord("Super_L", "Shift_L", "v")
            wait_until((other.home / "pressed").exists, what="the command to have run")


if __name__ == "__main__":
    unittest.main()
