# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The base of every desktop test: a desktop of its own with two windows in it, and the checks after each case."""

import re
import sys
import unittest

from harness import KEY_CODES, Editor, PrivateDesktop, Zamber, holds_for, wait_until
from harness.zamber import READY_LINE

# The poll of the clipboard and then the delay of the save, with something to spare.
CAPTURE_SECONDS = 0.7
# An icon that is at the same place in so many looks, a hundredth of a second apart, stays there.
SETTLED_LOOKS = 6
PASTING_LINE = re.compile(r"🔵 Pasting into: .+")
PASTED_LINE = "✅ Pasted via CGEvent"
NO_PREVIOUS_LINE = "❌ No previous app to paste into"


class LogAssertions:
    """What a case asks about the lines that the program has written."""

    def wait_for_expected_lines(self):
        """The last line of a paste comes after the key that the test has seen the effect of."""
        try:
            wait_until(lambda: len(self.zamber.stdout_lines()) >= len(self.expected_lines), 4.0)
        except AssertionError:
            pass  # assert_lines says it better

    def assert_lines(self, lines, expected):
        matches = len(lines) == len(expected) and all(
            pattern.fullmatch(line) if isinstance(pattern, re.Pattern) else pattern == line
            for line, pattern in zip(lines, expected)
        )
        if not matches:
            wanted = [pattern.pattern if isinstance(pattern, re.Pattern) else pattern for pattern in expected]
            self.fail("expected\n  " + "\n  ".join(wanted) + "\nbut got\n  " + "\n  ".join(lines))


class DesktopTestCase(LogAssertions, unittest.TestCase):
    """Has a desktop with an editor in front and a bystander's window behind, and starts the program with the class's
    history and preferences. After each case nothing may be stuck, astray, unexpected or dead."""

    window_manager = "openbox"
    compositor = "none"
    tray = None
    xtest = True
    size = (1280, 800)
    ready_line = READY_LINE
    layout = "us"
    history = ()
    pinned = ()
    preferences = {}

    def setUp(self):
        self.desktop = self.enterContext(
            PrivateDesktop(window_manager=self.window_manager, tray=self.tray, compositor=self.compositor,
                           layout=self.layout, xtest=self.xtest, size=self.size)
        )
        self.keyboard, self.clipboard = self.desktop.keyboard, self.desktop.clipboard
        self.bystander = Editor(self.desktop, "Bystander", class_name="Bystander", geometry="300x200+700+500")
        self.editor = Editor(self.desktop)
        # A server without XTEST has no key recorder either.
        self.keys = self.desktop.record() if self.xtest else None
        self.zamber = Zamber(self.desktop, ready_line=self.ready_line)
        self.expected_lines = []
        self.expected_errors = []
        self.expected_locks = 0
        self.expected_group = 0
        self.bystander_may_get_keys = False
        self.zamber_has_ended = False
        if self.history:
            self.zamber.write_history(*self.history, pinned=self.pinned)
        if self.preferences:
            self.zamber.write_preferences(**self.preferences)
        self.prepare()
        self.start_zamber()

    def prepare(self):
        """A case's own preparations, before the program starts."""

    def start_zamber(self):
        if self.zamber.history_path.exists():
            self.expected_lines.append(f"📋 Loaded {len(self.zamber.records())} items from disk")
        self.expected_lines.append(self.ready_line)
        self.zamber.start()

    # The user's acts

    def choose(self, position=0):
        """Takes the entry at that place of the open popover."""
        self.keyboard.tap(*["Down"] * position, "Return")

    def paste_entry(self, position=0):
        """The whole way: hot key, arrows, Return. Expects it to be pasted."""
        self.zamber.open_popover()
        self.choose(position)
        self.expect_paste()

    def expect_paste(self):
        self.expected_lines += [PASTING_LINE, PASTED_LINE]

    def copy_and_wait(self, text, expected):
        """Another program copies a text; waits until the history file has the expected entries."""
        self.clipboard.copy_text(text)
        self.zamber.wait_for_history(expected)

    def let_a_poll_pass(self):
        """Copies something that must not be captured, and waits long enough for the program to look at the clipboard."""
        holds_for(self.zamber.is_running, CAPTURE_SECONDS, "the program runs")

    def wait_for_tray_icon(self):
        """The icon where it stays: trays move their icons when one has come."""

        places = []  # the last ones seen

        def has_settled():
            places.append(self.desktop.tray_icon(self.zamber.pid))
            return len(places) > SETTLED_LOOKS and places[-1] and set(places[-SETTLED_LOOKS:]) == {places[-1]}

        wait_until(has_settled, 15.0, "the icon in the tray")
        return places[-1]

    def click_tray_icon(self, button=1):
        icon = self.wait_for_tray_icon()
        self.desktop.mouse.click(icon.x + icon.width // 2, icon.y + icon.height // 2, button)
        return icon

    # The checks after every case

    def tearDown(self):
        self.wait_for_expected_lines()
        with self.subTest("the log says what it should and nothing else"):
            self.assert_lines(self.zamber.stdout_lines(), self.expected_lines)
        with self.subTest("no errors, of X or otherwise"):
            self.assert_lines(self.zamber.stderr_lines(), self.expected_errors)
        with self.subTest("the program runs"):
            self.assertEqual(self.zamber.is_running(), not self.zamber_has_ended)
        with self.subTest("no key is stuck"):
            self.assertEqual(self.keyboard.held_keys(), set())
            state = self.keyboard.state()
            self.assertEqual((state.held, state.latched), (0, 0))
            self.assertEqual(state.locked, self.expected_locks)
            self.assertEqual(state.group, self.expected_group)
        if not self.bystander_may_get_keys:
            with self.subTest("no key went astray"):
                self.assertEqual(self.bystander.keys(), [])
                self.assertEqual(self.bystander.text(), "")
        self._scene = self._describe_scene()

    def assert_pasted_by(self, key, modifiers, since=0, window=None):
        """One stroke of the key: down, then up, with just these modifiers held all the while, in the right window."""
        down, up = self.keys.wait_for_release_of(KEY_CODES[key] if isinstance(key, str) else key, since)
        self.assertEqual((down.modifiers, up.modifiers), (modifiers, modifiers), self.keys.text(since))
        self.assertLessEqual(down.time, up.time)
        self.assertEqual(len(self.keys.presses(down.code, since)), 1, self.keys.text(since))
        wanted = (window or self.editor.window).id
        self.assertEqual(down.focus and down.focus.id, wanted, f"the key went to {down.focus}")
        return down

    def run(self, result=None):
        self._scene = ""
        result = result or self.defaultTestResult()
        before = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > before and self._scene:
            print(f"\n--- {self.id()}\n{self._scene}", file=sys.stderr)
        return result

    def _describe_scene(self):
        lines = ["stdout:", *self.zamber.stdout_lines(), "stderr:", *self.zamber.stderr_lines()]
        lines += ["editor:", repr(self.editor.text()), "history file:", f"{self.zamber.history()!r:.500}"]
        lines += ["windows:", *map(str, self.desktop.windows())]
        lines += ["focus:", str(self.desktop.focused_window()), "keys:", *map(str, self.keys.events[-60:] if self.keys else [])]
        return "\n  ".join(lines)
