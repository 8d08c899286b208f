# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The list under a real wheel and real clicks: the row under the pointer, as assistive technology sees it."""

import time

from case import DesktopTestCase
from harness import holds_for, wait_until
from harness.screen import pixels, screenshot

WHEEL_UP, WHEEL_DOWN = 4, 5
NOTCH_SECONDS = 0.03  # as fast as people turn
REST_SECONDS = 0.8  # longer than the list waits for another notch and lets rows grow
TOLERANCE = 1


def entry(number):
    return f"entry {number}\nsecond line\nthird line\nfourth line"


def long_text(number):
    return f"text {number} " + "that goes on and on for a while " * 9


class ListTestCase(DesktopTestCase):
    def setUp(self):
        super().setUp()
        self.popover = self.zamber.open_popover()
        wait_until(self.rows, 5.0, "the rows")

    def list_node(self):
        (history,) = self.zamber.tree().all(role="list", name="Clipboard history")
        return history

    def rows(self):
        return self.list_node().children

    @staticmethod
    def row_at(rows, point):
        """The position of the row under the point; None between rows."""
        for position, row in enumerate(rows):
            x, y, width, height = row.extents
            if x <= point[0] < x + width and y <= point[1] < y + height:
                return position
        return None

    @staticmethod
    def tops(rows):
        return {row.name: row.extents[1] for row in rows}

    def first_seen(self, rows):
        _, upper_edge, _, _ = self.list_node().extents
        return next(position for position, row in enumerate(rows) if sum(row.extents[1::2]) > upper_edge)

    def trash_of(self, row):
        (button,) = row.all(role="push button", name="Delete")
        return button.centre

    def middle(self):
        x, y, width, height = self.list_node().extents
        return x + width // 2, y + height // 2

    def turn(self, notches, button=WHEEL_DOWN, pause=NOTCH_SECONDS):
        for _ in range(notches):
            self.desktop.mouse.press(button)
            self.desktop.mouse.release(button)
            time.sleep(pause)

    def settled_rows(self):
        """The rows once nothing moves any more."""
        last = []

        def is_settled():
            rows = self.rows()
            places = [row.extents for row in rows]
            previous, last[:] = last[:], places
            return rows if places == previous else None

        return wait_until(is_settled, 5.0, "the list to settle")

    def rest(self):
        holds_for(self.zamber.is_running, REST_SECONDS, "the program runs")
        return self.settled_rows()

    def assert_same_places(self, before, after, names):
        for name in names:
            self.assertAlmostEqual(after[name], before[name], delta=TOLERANCE, msg=name)


class ScrolledListTest(ListTestCase):
    history = tuple(entry(number) for number in range(60))
    preferences = {"maxItems": 100}

    def scroll_into_the_middle(self):
        self.desktop.mouse.move(*self.middle())
        self.turn(24)
        rows = self.rest()
        position = self.row_at(rows, self.middle())
        if position is None:  # the pointer is between two rows
            self.desktop.mouse.move(self.middle()[0], self.middle()[1] + 8)
            rows = self.settled_rows()
            position = self.row_at(rows, (self.middle()[0], self.middle()[1] + 8))
        self.assertGreater(position, 8)
        return rows, position

    def test_where_a_row_is_deleted_the_next_one_is_hit_by_a_second_click(self):
        rows, position = self.scroll_into_the_middle()
        at = self.trash_of(rows[position])
        self.desktop.mouse.move(*at)
        before = self.tops(self.settled_rows())
        above, gone, following, after = (rows[position + step].name for step in (-1, 0, 1, 2))
        self.desktop.mouse.click(*at)
        wait_until(lambda: gone not in self.tops(self.rows()), 5.0, "the row to be gone")
        rows = self.settled_rows()
        places = self.tops(rows)
        self.assert_same_places(before, places, [above])
        self.assertAlmostEqual(places[following], before[gone], delta=TOLERANCE)
        self.assertEqual(rows[self.row_at(rows, at)].name, following)
        self.desktop.mouse.click(*at)
        wait_until(lambda: following not in self.tops(self.rows()), 5.0, "the next row to be gone")
        rows = self.settled_rows()
        self.assertEqual(rows[self.row_at(rows, at)].name, after)
        self.assertEqual(len(rows), 58)
        self.assertIsNotNone(self.zamber.popover())

    def test_a_copy_that_arrives_moves_nothing(self):
        rows, position = self.scroll_into_the_middle()
        before = self.tops(rows)
        seen = [row.name for row in rows[position - 2:position + 3]]
        self.clipboard.copy_text("a fresh copy\nof\nfour\nlines")
        wait_until(lambda: len(self.rows()) == 61, 5.0, "the copy in the list")
        self.assert_same_places(before, self.tops(self.settled_rows()), seen)

    def test_a_pinned_row_leaves_its_place_to_the_next_one(self):
        rows, position = self.scroll_into_the_middle()
        (pin,) = rows[position].all(role="push button", name="Pin")
        self.desktop.mouse.move(*pin.centre)
        before = self.tops(self.settled_rows())
        above, pinned, following = (rows[position + step].name for step in (-1, 0, 1))
        self.desktop.mouse.click(*pin.centre)
        wait_until(lambda: self.rows()[0].name == pinned, 5.0, "the row in the pinned section")
        places = self.tops(self.settled_rows())
        self.assert_same_places(before, places, [above])
        self.assertAlmostEqual(places[following], before[pinned], delta=TOLERANCE)

    def test_near_the_end_rows_above_stay_and_the_room_is_closed_when_the_pointer_leaves(self):
        self.desktop.mouse.move(*self.middle())
        self.turn(120, pause=0.005)
        rows = self.rest()
        at = self.trash_of(rows[58])
        self.desktop.mouse.move(rows[58].centre[0], at[1])
        self.desktop.mouse.move(*at)
        before = self.tops(self.settled_rows())
        self.desktop.mouse.click(*at)
        wait_until(lambda: len(self.rows()) == 59, 5.0, "the row to be gone")
        places = self.tops(self.settled_rows())
        self.assert_same_places(before, places, [rows[57].name, rows[56].name])
        self.assertAlmostEqual(places[rows[59].name], before[rows[58].name], delta=TOLERANCE)
        self.desktop.mouse.move(self.popover.x + 30, self.popover.y + 20)
        _, top, _, height = self.list_node().extents

        def is_closed():
            _, last_top, _, last_height = self.rows()[-1].extents
            return abs(last_top + last_height + 4 - (top + height)) <= TOLERANCE

        wait_until(is_closed, 5.0, "the list to end at the edge")


class LongTextsTest(ListTestCase):
    """Each row expands under the pointer; the whole of a text fits, so that the wheel is the list's."""

    history = tuple(long_text(number) for number in range(20))

    def test_sixteen_notches_go_on(self):
        # That no row expands meanwhile is for the unit tests: reading the screen takes longer than the wheel may rest.
        at = self.middle()
        self.desktop.mouse.move(*at)
        first = self.settled_rows()[0].extents[1]
        self.turn(6)
        self.assertLess(self.rows()[0].extents[1], first - 100)
        self.turn(10)
        self.assertGreater(self.first_seen(self.rest()), 8)

    def test_single_notches_go_on_too(self):
        at = self.middle()
        self.desktop.mouse.move(*at)
        seen, under = 0, 0
        for notch in range(16):
            self.turn(1)
            rows = self.rest()
            self.assertGreaterEqual(self.first_seen(rows), seen, f"notch {notch}")
            seen = self.first_seen(rows)
            now = self.row_at(rows, at)
            if now is not None:
                self.assertGreaterEqual(now, under, f"notch {notch}")
                under = now
        self.assertGreater(under, 6)

    def test_a_notch_while_a_row_expands_leaves_its_text_where_it_begins(self):
        row = self.rows()[1]
        self.desktop.mouse.move(*row.centre)
        self.rest()
        unscrolled = self.picture_of_row(1)
        self.desktop.mouse.move(self.popover.x + 30, self.popover.y + 20)
        self.rest()
        for pause in (0.0, 0.03, 0.08, 0.12):
            self.desktop.mouse.move(*self.rows()[1].centre)
            time.sleep(pause)
            self.turn(1)
            self.rest()
            self.desktop.mouse.move(*self.rows()[1].centre)
            self.rest()
            self.assertEqual(self.picture_of_row(1), unscrolled, f"after {pause} s")
            self.desktop.mouse.move(self.popover.x + 30, self.popover.y + 20)
            self.rest()
            self.desktop.mouse.move(self.list_node().extents[0] + 3, self.middle()[1])  # beside the rows
            self.turn(5, WHEEL_UP)
            self.desktop.mouse.move(self.popover.x + 30, self.popover.y + 20)
            self.rest()

    def picture_of_row(self, position):
        x, y, width, height = self.rows()[position].extents
        whole = pixels(screenshot(self.desktop, self.desktop.directory / "row.png").read_bytes(), "png")
        stride = len(whole) // 800
        # The text alone: the age at the row's end grows while the test goes on.
        left, right = (x + 40) * stride // 1280, (x + width - 130) * stride // 1280
        return [whole[line * stride + left:line * stride + right] for line in range(y + 2, y + height - 2)]


class SecondSearchTest(DesktopTestCase):
    history = ("alpha", "beta", "gamma")

    def names(self):
        return [node.name for node in self.zamber.tree().all(role="list item")]

    def test_the_next_search_replaces_the_former_one(self):
        self.zamber.open_popover()
        self.keyboard.type_text("alpha")
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("alpha")
        self.zamber.open_popover()
        wait_until(lambda: self.names() == ["alpha"], 5.0, "the former search")
        self.keyboard.type_text("beta")
        wait_until(lambda: self.names() == ["beta"], 5.0, lambda: f"what was searched for: {self.names()}")
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("alphabeta")

    def test_the_selected_search_text_is_not_offered_as_the_primary_selection(self):
        marked = self.desktop.primary.copy_text("marked by somebody else")
        for _ in range(2):
            self.zamber.open_popover()
            self.keyboard.type_text("alpha")
            wait_until(lambda: self.names() == ["alpha"], 5.0, "the search")
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
        self.zamber.open_popover()
        holds_for(lambda: marked.is_running(), 0.4, "the other program owns the selection")
        self.assertEqual(self.desktop.primary.text(), "marked by somebody else")
