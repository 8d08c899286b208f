# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What Orca, a real screen reader, says of the popover; its speech goes to a stand-in that writes it down."""

import json

from case import DesktopTestCase
from harness import PARTNERS, WaitTimeout, wait_until

START_SECONDS = 30.0
SPEECH_SECONDS = 10.0
NO_FAULTS = ("keyEventError", "Accessible invalid", "Could not find accessible on path", "Subscription string not handled")


class Orca:
    def __init__(self, desktop):
        socket = desktop.directory / "speech"
        self._speech = desktop.start("speech", ["/usr/bin/python3", PARTNERS / "speech_server.py", socket])
        wait_until(self._speech.stdout_lines, START_SECONDS, lambda: f"the speech server: {self._speech.stderr()}")
        # Orca does not start beside another one of the same user, which may be a test's or the user's own: its question
        # for others is answered with none.
        pgrep = desktop.directory / "no-other-reader" / "pgrep"
        pgrep.parent.mkdir()
        pgrep.write_text("#!/bin/sh\nexit 1\n")
        pgrep.chmod(0o755)
        # Settings in memory: there is no service for them on this bus.
        environment = dict(desktop.environment, SPEECHD_ADDRESS=f"unix_socket:{socket}", GSETTINGS_BACKEND="memory",
                           PATH=f"{pgrep.parent}:{desktop.environment['PATH']}")
        self._reader = desktop.start("orca", ["orca"], environment=environment)
        wait_until(lambda: "Screen reader on." in self.said(), START_SECONDS, lambda: f"Orca: {self._reader.stderr()}")
        self._heard = 0

    def said(self):
        """Everything since its start, one thing after the other."""
        return [json.loads(line)["spoken"] for line in self._speech.stdout_lines()][1:]

    def forget(self):
        """What it has said so far is not waited for."""
        self._heard = len(self.said())

    def since(self):
        return " ".join(self.said()[self._heard:])

    def wait_for(self, *parts):
        """Waits until all of it has been said, in that order, since the last such call."""

        def is_said():
            rest = self.since()
            for part in parts:
                before, found, rest = rest.partition(part)
                if not found:
                    return False
            return True

        wait_until(is_said, SPEECH_SECONDS, lambda: f"{parts}; said {self.since()!r}")
        self.forget()


class OrcaTestCase(DesktopTestCase):
    history = ("apple tart", "banana bread", "cherry cake", "https://example.org/cake")
    pinned = (2,)

    def prepare(self):
        self.orca = Orca(self.desktop)
        # It greets before it listens to what happens on the desktop.
        wait_until(lambda: all([self.is_read(self.bystander), self.is_read(self.editor)]), START_SECONDS,
                   lambda: f"Orca to follow the windows; said {self.orca.said()}")
        # Qt asks the reader about each key and writes a line when it has no time to answer, and one each time the reader
        # asks about something that has gone, such as a menu (in other words since Qt 6.8); newer readers want to be told
        # what Qt does not know. None of it is a fault.
        all_lines = self.zamber.stderr_lines
        self.zamber.stderr_lines = lambda: [line for line in all_lines() if not any(map(line.__contains__, NO_FAULTS))]

    def is_read(self, partner):
        """Whether Orca says a window's title when it comes to the front."""
        self.orca.forget()
        self.desktop.activate(partner.window)
        try:
            wait_until(lambda: partner.window.title in self.orca.since(), 3.0, "the title")
        except WaitTimeout:
            return False
        return True

    def open(self):
        self.orca.forget()
        self.zamber.open_popover()
        self.orca.wait_for("Search clipboard…")

    def tap(self, *keys):
        self.orca.forget()
        self.keyboard.tap(*keys)

    def chord(self, *keys):
        self.orca.forget()
        self.keyboard.chord(*keys)


class OrcaReadsTest(OrcaTestCase):
    def test_opening_moving_and_choosing(self):
        self.open()
        self.tap("Down")
        self.orca.wait_for("List with 4 items", "apple tart", "recent")
        self.tap("Down")
        self.orca.wait_for("banana bread")
        self.tap("Up", "Up")
        self.orca.wait_for("cherry cake", "pinned")
        self.tap("Return")
        self.expect_paste()
        self.editor.wait_for_text("cherry cake")

    def test_searching_says_what_is_found_and_what_return_would_take(self):
        self.open()
        self.keyboard.type_text("cake")
        self.orca.wait_for("2 entries found: cherry cake")
        self.keyboard.type_text("x")
        self.orca.wait_for("No matches found")
        self.tap("BackSpace", "BackSpace")
        self.orca.wait_for("2 entries found: cherry cake")
        self.tap("Down")
        self.orca.wait_for("example.org/cake", "link")
        self.keyboard.type_text("e x")  # the field has the words again
        self.orca.wait_for("Search clipboard…", "No matches found")

    def test_nothing_of_the_past_is_said_when_the_popover_opens_again(self):
        self.open()
        self.chord("Control_L", "p")
        self.orca.wait_for("Unpinned")
        self.tap("Escape")
        # Opened again within a twentieth of a second, the popover tells of itself sooner than the editor, which Orca
        # then takes for the window in front.
        self.orca.wait_for("Editor")
        self.open()
        self.tap("Down")
        self.orca.wait_for("banana bread")
        self.assertNotIn("Unpinned", " ".join(self.orca.said()[-8:]))


class OrcaReadsCommandsTest(OrcaTestCase):
    def test_the_rows_menu_and_its_actions(self):
        self.open()
        self.chord("Shift_L", "F10")
        self.orca.wait_for("Copy")
        self.tap("Down")
        self.orca.wait_for("Unpin")
        self.tap("Down")
        self.orca.wait_for("Delete")
        self.tap("Return")
        self.orca.wait_for("Deleted")
        self.assertEqual([node.name for node in self.zamber.tree().all(role="list item")],
                         ["apple tart", "banana bread", "https://example.org/cake"])

    def test_the_question_whether_to_clear(self):
        self.open()
        self.chord("Control_L", "Shift_L", "Delete")
        self.orca.wait_for("Clear all clipboard items?")
        self.tap("Tab")
        self.orca.wait_for("Cancel")
        self.tap("Tab")
        self.orca.wait_for("Clear All")
        self.tap("space")
        self.orca.wait_for("3 entries deleted")
