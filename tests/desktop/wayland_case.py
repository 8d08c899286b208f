# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What the desktop tests on Wayland stand on, and the questions asked after each; case.py has those on X."""

import sys
import unittest

from case import PASTED_LINE, PASTING_LINE, LogAssertions
from harness import Editor, KWinDesktop, LabwcDesktop, SwayDesktop, WaylandOwner, Zamber, default_binary, holds_for
from harness.zamber import READY_LINE

CAPTURE_SECONDS = 0.7


class WaylandTestCase(LogAssertions, unittest.TestCase):
    """A desktop with a Wayland editor in front, and the program with the class's history and preferences."""

    layout = "us"
    xwayland = True
    environment = {}  # of the program, besides the desktop's
    history = ()
    preferences = {}
    ready_line = READY_LINE

    def make_desktop(self):
        raise NotImplementedError

    def setUp(self):
        self.desktop = self.enterContext(self.make_desktop())
        self.keyboard, self.clipboard = self.desktop.keyboard, self.desktop.clipboard
        self.zamber = Zamber(self.desktop, ready_line=self.ready_line)
        self.zamber.environment = {**self.zamber.environment, **self.environment}
        self.expected_lines, self.expected_errors = [], []
        self.zamber_has_ended = False
        if self.history:
            self.zamber.write_history(*self.history)
        if self.preferences:
            self.zamber.write_preferences(**self.preferences)
        self.prepare()
        self.start_zamber()

    def prepare(self):
        """What a case needs to have happened before the program starts."""
        self.editor = Editor(self.desktop)

    def start_zamber(self):
        if self.zamber.history_path.exists():
            self.expected_lines.append(f"📋 Loaded {len(self.zamber.records())} items from disk")
        self.expected_lines.append(self.ready_line)
        self.zamber.start()

    def owner(self):
        return WaylandOwner(self.desktop)

    def copy_and_wait(self, text, expected):
        copier = self.clipboard.copy_text(text)
        self.zamber.wait_for_history(expected)
        return copier

    def let_a_poll_pass(self):
        holds_for(self.zamber.is_running, CAPTURE_SECONDS, "the program runs")

    def choose(self, position=0):
        self.keyboard.tap(*["Down"] * position, "Return")

    def expect_paste(self):
        self.expected_lines += [PASTING_LINE, PASTED_LINE]

    def tearDown(self):
        self.wait_for_expected_lines()
        with self.subTest("the log says what it should and nothing else"):
            self.assert_lines(self.zamber.stdout_lines(), self.expected_lines)
        with self.subTest("no errors"):
            self.assert_lines(self.zamber.stderr_lines(), self.expected_errors)
        with self.subTest("the program runs"):
            self.assertEqual(self.zamber.is_running(), not self.zamber_has_ended)

    def run(self, result=None):
        result = result or self.defaultTestResult()
        before = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > before and hasattr(self, "zamber") and self.zamber.child:
            print(f"\n--- {self.id()}\n{self._scene}", file=sys.stderr)
        return result

    def doCleanups(self):
        try:
            self._scene = "\n  ".join([
                "stdout:", *self.zamber.stdout_lines(), "stderr:", *self.zamber.stderr_lines(),
                f"history: {self.zamber.history()!r:.500}", "windows:", *map(str, self.desktop.windows()),
                f"focus: {self.desktop.focused_window()}"])
        except (AttributeError, OSError) as failure:
            self._scene = f"no scene: {failure}"
        return super().doCleanups()


class SwayTestCase(WaylandTestCase):
    configuration = ""

    def make_desktop(self):
        return SwayDesktop(layout=self.layout, configuration=self.configuration, xwayland=self.xwayland)


class KWinTestCase(WaylandTestCase):
    """`is_installed` is whether a desktop entry asks KWin for what the program needs, as an installed one does."""

    is_installed = True
    size, scale, screens = (1280, 800), 1, 1

    def make_desktop(self):
        return KWinDesktop(layout=self.layout, installed=[default_binary()] if self.is_installed else [],
                           xwayland=self.xwayland, size=self.size, scale=self.scale, screens=self.screens)

    def tearDown(self):
        super().tearDown()
        with self.subTest("no key is stuck"):
            self.assertEqual(self.keyboard.held_keys(), set())


class LabwcTestCase(WaylandTestCase):
    """The hot key is the user's own, as labwc's configuration has it: it starts the program again."""

    oldest_debian = 13
    size, scale = (1280, 800), 1

    def make_desktop(self):
        return LabwcDesktop(hot_key_command=str(default_binary()), layout=self.layout, xwayland=self.xwayland,
                            size=self.size, scale=self.scale)
