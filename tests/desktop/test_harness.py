# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The harness against its partners, without the program: the other tests rely on this."""

import importlib
import pathlib
import subprocess
import sys
import unittest

from harness import (
    CONTROL, KEY_CODES, LOCK, NUM, Editor, KWinDesktop, Mousepad, PrivateDesktop, SelectionOwner, Terminal,
    WaitTimeout, pixels, png_bytes, wait_until,
)
from harness.processes import pids_with_environment
from harness_case import HarnessCase


class HarnessTest(HarnessCase, unittest.TestCase):
    def make_desktop(self):
        return PrivateDesktop()

    def paste_into(self, editor, expected, key="v"):
        self.keyboard.chord("Control_L", key)
        editor.wait_for_text(expected)

    def test_an_active_window_that_quits_leaves_the_keyboard_to_the_next(self):
        bystander = Editor(self.desktop, "Bystander")
        editor = Editor(self.desktop)
        editor.quit()
        self.desktop.wait_until_active(bystander.window)

    def test_text_and_picture_go_from_program_to_program(self):
        editor = Editor(self.desktop)
        self.desktop.clipboard.copy_text("grüße 😀\n\tzwei")
        self.paste_into(editor, "grüße 😀\n\tzwei")
        self.assertIsNone(editor.image())
        path = self.desktop.directory / "picture.png"
        path.write_bytes(png_bytes())
        self.desktop.clipboard.copy_image(path)
        self.keyboard.chord("Control_L", "v")
        editor.wait_for_image(path.read_bytes())
        self.assertNotEqual(pixels(png_bytes(seed=1), "png"), pixels(png_bytes(seed=2), "png"))

    def test_a_second_editor_tells_by_its_file(self):
        mousepad = Mousepad(self.desktop)
        self.desktop.clipboard.copy_text("into mousepad")
        self.keyboard.chord("Control_L", "v")
        mousepad.wait_for_saved_text("into mousepad")

    def test_a_terminal_takes_control_v_as_it_is_and_shift_insert_as_a_paste(self):
        terminal = Terminal(self.desktop)
        self.desktop.primary.copy_text("primary")
        self.keyboard.chord("Control_L", "v")
        terminal.wait_for(b"\x16")
        self.keyboard.chord("Shift_L", "Insert")
        terminal.wait_for(b"\x16primary")

    def test_the_record_shows_each_key_with_its_modifiers_and_its_window(self):
        editor = Editor(self.desktop)
        keys = self.desktop.record()
        mark = keys.mark()
        self.keyboard.chord("Control_L", "v")
        down, up = keys.wait_for_release_of(KEY_CODES["v"], mark)
        self.assertEqual((down.modifiers, up.modifiers), (CONTROL, CONTROL))
        self.assertEqual(down.held, {KEY_CODES["Control_L"]})
        self.assertEqual(down.focus.id, editor.window.id)
        wait_until(lambda: len(keys.since(mark)) == 4, what="all four events")
        self.assertEqual([(event.pressed, event.code) for event in keys.since(mark)],
                         [(True, 37), (True, 55), (False, 55), (False, 37)])

    def test_held_keys_and_locks_are_seen(self):
        self.keyboard.press("Super_L")
        self.assertEqual(self.keyboard.held_keys(), {KEY_CODES["Super_L"]})
        self.assertNotEqual(self.keyboard.state().held, 0)
        self.keyboard.release("Super_L")
        self.keyboard.set_locks(caps=True, num=True)
        self.assertEqual(self.keyboard.state().locked, LOCK | NUM)
        self.keyboard.set_locks()
        state = self.keyboard.state()
        self.assertEqual((state.held, state.locked, self.keyboard.held_keys()), (0, 0, set()))

    def test_layouts_move_letters_and_not_keys(self):
        editor = Editor(self.desktop)
        self.desktop.set_layout("us,ru", group=1)
        self.keyboard.tap("v")
        editor.wait_for_text("м")
        self.desktop.set_layout("us,gr", group=1)
        self.keyboard.tap("v")
        editor.wait_for_text("мω")
        self.desktop.set_layout("us(dvorak)")
        self.keyboard.tap("v")
        editor.wait_for_text("мωk")

    def test_an_owner_offers_what_it_is_told_and_notes_what_it_is_asked(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({"image/png": b"picture", "UTF8_STRING": b"text", "x-silent": None})
        self.assertEqual(self.desktop.clipboard.targets(),
                         ["TARGETS", "TIMESTAMP", "image/png", "UTF8_STRING", "x-silent"])
        self.assertEqual(self.desktop.clipboard.read("image/png"), b"picture")
        self.assertEqual(owner.requests(), ["TARGETS", "image/png"])
        owner.release()
        self.assertEqual(self.desktop.clipboard.owner(), 0)

    def test_the_accessibility_tree_tells_what_an_editor_shows(self):
        editor = Editor(self.desktop)
        self.keyboard.type_text("abc")
        editor.wait_for_text("abc")
        tree = wait_until(lambda: self.desktop.accessibility.tree(editor.child.pid))
        self.assertEqual([node.text for node in tree.all(role="text")], ["abc"])

    def test_waiting_in_vain_says_for_what(self):
        with self.assertRaisesRegex(WaitTimeout, "waited 0.05 s for a miracle"):
            wait_until(lambda: False, 0.05, "a miracle")


class DesktopsTest(unittest.TestCase):
    def test_nothing_is_left_behind(self):
        with PrivateDesktop() as desktop:
            Editor(desktop)
            desktop.clipboard.copy_text("served by a child")
            desktop.run(["sh", "-c", "setsid sleep 60 >/dev/null 2>&1 &"])
            runtime, folder = desktop.runtime_folder, desktop.directory
            self.assertGreater(len(pids_with_environment("XDG_RUNTIME_DIR", runtime)), 5)
            socket_path = pathlib.Path(f"/tmp/.X11-unix/X{desktop.display_name[1:]}")
            self.assertTrue(socket_path.exists())
        self.assertEqual(pids_with_environment("XDG_RUNTIME_DIR", runtime), [])
        self.assertFalse(folder.exists())
        self.assertFalse(socket_path.exists())

    def test_a_compositor_that_looks_for_a_number_leaves_the_servers_socket(self):
        with PrivateDesktop(accessibility=False) as desktop:
            socket_path = pathlib.Path(f"/tmp/.X11-unix/X{desktop.display_name[1:]}")
            before = socket_path.stat().st_ino
            with KWinDesktop(accessibility=False):
                self.assertEqual(socket_path.stat().st_ino, before)
            self.assertEqual(socket_path.stat().st_ino, before)

    def test_two_desktops_do_not_see_each_other(self):
        with PrivateDesktop() as one, PrivateDesktop() as other:
            one.clipboard.copy_text("here")
            self.assertEqual(one.clipboard.text(), "here")
            self.assertIsNone(other.clipboard.text())

    def test_every_kind_of_desktop_comes_up(self):
        for choice in ({"window_manager": "xfwm4"}, {"window_manager": "none"}, {"tray": "none"},
                       {"compositor": "picom"}):
            with self.subTest(choice), PrivateDesktop(**choice) as desktop:
                editor = Editor(desktop)
                desktop.keyboard.type_text("x")
                editor.wait_for_text("x")


class FoundCasesTest(unittest.TestCase):
    """CTest runs the classes that a script has found by reading. Every class that unittest finds has to be among them,
    but for those that need a newer Debian."""

    def test_every_class_of_cases_is_found(self):
        folder = pathlib.Path(__file__).parent
        script = folder.parent / "support" / "find_cases.py"
        sys.path.insert(0, str(script.parent))
        self.addCleanup(sys.path.remove, str(script.parent))
        debian = importlib.import_module("find_cases").debian_version()
        expected = {type(case).__name__ for case in self.cases(unittest.TestLoader().discover(folder))
                    if getattr(case, "oldest_debian", 0) <= debian}
        printed = subprocess.run([sys.executable, "-B", script, folder], capture_output=True, text=True, check=True).stdout
        self.assertEqual({line.split(",")[1] for line in printed.splitlines()}, expected)

    def cases(self, suite):
        for case in suite:
            yield from self.cases(case) if isinstance(case, unittest.TestSuite) else (case,)


if __name__ == "__main__":
    unittest.main()
