# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The popover for users who cannot see it: driven by the accessibility tree and its events alone."""

import json
import pathlib

from case import DesktopTestCase
from harness import wait_until

MASK = "●" * 12
# What Qt says, older and newer, of a question about something that has just gone.
HAS_GONE = ("Accessible invalid", "Could not find accessible on path")
SECRET = "password = hunter2-Correct!Horse9"
LONG_SECRET = SECRET + " and then a great many words more, so that the row has more to show than its preview"
HISTORY = ("apple tart", "banana bread", "cherry cake", LONG_SECRET)
SCREEN_READER = pathlib.Path(__file__).resolve().parent / "partners" / "screen_reader.py"


class AccessibilityTestCase(DesktopTestCase):
    history = HISTORY

    def setUp(self):
        super().setUp()
        # A question about a row that has just gone gets no answer, and Qt writes a line about it; that is no fault.
        all_lines = self.zamber.stderr_lines
        self.zamber.stderr_lines = lambda: [line for line in all_lines() if not any(map(line.__contains__, HAS_GONE))]
        self.zamber.open_popover()

    def rows(self):
        (history,) = self.zamber.tree().all(role="list", name="Clipboard history")
        return history.children

    def row(self, name):
        return next(row for row in self.rows() if row.name == name)

    def wait_for_rows(self, *names):
        wait_until(lambda: [row.name for row in self.rows()] == list(names), 5.0,
                   lambda: f"{names}; there are {[row.name for row in self.rows()]}")

    def press(self, name, role="push button"):
        button = wait_until(lambda: next(iter(self.zamber.tree().all(role=role, name=name, states=["showing"])), None),
                            5.0, lambda: f"{name!r} in\n{self.zamber.tree().outline()}")
        self.zamber.act(button, "Press")

    def press_in_row(self, row, name):
        (button,) = self.row(row).all(role="push button", name=name)
        self.zamber.act(button, "Press")


class AccessibilityTest(AccessibilityTestCase):
    def test_entries_are_found_pinned_deleted_and_cleared_by_name(self):
        self.press_in_row("cherry cake", "Pin")
        self.wait_for_rows("cherry cake", "apple tart", "banana bread", LONG_SECRET)
        self.press_in_row("banana bread", "Delete")
        self.wait_for_rows("cherry cake", "apple tart", LONG_SECRET)

        self.press("Clear")
        wait_until(lambda: self.zamber.tree().all(role="alert", name="Clear all clipboard items?"), 5.0, "the question")
        self.press("Cancel")
        self.wait_for_rows("cherry cake", "apple tart", LONG_SECRET)
        self.press("Clear")
        self.press("Clear All")
        self.wait_for_rows("cherry cake")
        self.assertEqual(self.zamber.tree().all(role="push button", name="Clear", states=["showing"]), [])
        self.zamber.wait_for_history(["cherry cake"])
        self.press_in_row("cherry cake", "Unpin")
        wait_until(lambda: not self.zamber.records()[0]["isPinned"], 5.0, "the entry to be unpinned in the file")

    def test_a_row_has_its_actions_by_name(self):
        self.zamber.act(self.row("banana bread"), "Pin")
        self.wait_for_rows("banana bread", "apple tart", "cherry cake", LONG_SECRET)
        self.zamber.act(self.row("banana bread"), "Unpin")
        self.wait_for_rows(*HISTORY)
        self.zamber.act(self.row("apple tart"), "Delete")
        self.wait_for_rows(*HISTORY[1:])
        self.zamber.act(self.row("cherry cake"), "SetFocus")
        wait_until(lambda: "selected" in self.row("cherry cake").states, 5.0, "the row to be selected")
        self.zamber.act(self.row("cherry cake"), "Press")
        self.expect_paste()
        self.editor.wait_for_text("cherry cake")

    def test_everything_on_it_has_a_role_and_a_name(self):
        tree = self.zamber.tree()
        for role, name in (("label", "Zamber"), ("label", "4/20"), ("text", "Search clipboard…"),
                           ("list", "Clipboard history"), ("label", "↑↓"), ("label", "navigate"), ("label", "esc"),
                           ("push button", "Clear")):
            self.assertEqual(len(tree.all(role=role, name=name, states=["showing"])), 1, f"{role} {name}")
        for button in tree.all(role="push button"):
            self.assertNotEqual(button.name, "", tree.outline())

    def test_rows_tell_where_they_are_and_which_is_selected(self):
        popover = self.zamber.popover()
        rows = self.rows()
        self.assertEqual(["selected" in row.states for row in rows], [True, False, False, False])
        for upper, lower in zip(rows, rows[1:]):
            self.assertEqual(upper.role, "list item")
            self.assertLessEqual(upper.extents[1] + upper.extents[3], lower.extents[1])
            self.assertTrue(popover.x <= upper.extents[0] <= popover.x + popover.width)

    def test_the_text_of_an_expanded_row_is_there_only_while_it_is_on_screen(self):
        def texts():
            return [node.name for node in self.row(LONG_SECRET).all(role="label")]

        self.assertEqual(texts(), [])
        self.zamber.act(self.row(LONG_SECRET), "SetFocus")
        wait_until(lambda: texts() == [LONG_SECRET], 5.0, lambda: f"the text; there is {texts()}")
        self.zamber.act(self.row("apple tart"), "SetFocus")
        wait_until(lambda: texts() == [], 5.0, lambda: f"no text; there is {texts()}")


class MaskedAccessibilityTest(AccessibilityTestCase):
    preferences = {"hideSensitive": True}

    def test_a_masked_entry_is_named_by_its_mask_until_its_text_is_on_screen(self):
        self.wait_for_rows(*HISTORY[:3], MASK)
        self.assertNotIn("hunter2", self.zamber.tree().outline())
        self.zamber.act(self.row(MASK), "SetFocus")
        wait_until(lambda: "hunter2" in self.zamber.tree().outline(), 5.0, "the expanded text")
        self.assertEqual(self.rows()[3].name, MASK, "the item keeps its name")
        self.zamber.act(self.row("apple tart"), "SetFocus")
        wait_until(lambda: "hunter2" not in self.zamber.tree().outline(), 5.0, "the text to be gone")


class AnnouncementsTest(AccessibilityTestCase):
    def prepare(self):
        self.reader = self.desktop.start("reader", ["/usr/bin/python3", SCREEN_READER])
        wait_until(self.reader.stdout_lines, 10.0, lambda: f"the reader: {self.reader.stderr()}")

    def told(self, event, name):
        return any(told["event"].startswith(event) and told["name"] == name and told["value"] != 0
                   for told in map(json.loads, self.reader.stdout_lines()))

    def test_the_selection_is_announced_as_it_moves(self):
        for key, name in (("Down", "banana bread"), ("Down", "cherry cake"), ("Up", "banana bread")):
            self.keyboard.tap(key)
            wait_until(lambda: self.told("object:state-changed:focused", name), 5.0,
                       lambda: f"{name} announced; told {self.reader.stdout_lines()}")
        self.assertFalse(self.told("object:state-changed:focused", LONG_SECRET))
