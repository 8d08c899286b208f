# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""How the popover moves, by what the X server says was drawn anew and when."""

import statistics
import time

from Xlib.ext import damage

from case import DesktopTestCase
from harness import SettingsPortal, wait_until

LINES = tuple(f"line {line} of a text that is long enough to be shown whole when it is selected" for line in range(6))
# The last movement that a key causes is over long before.
WATCHED_SECONDS = 0.7
# What is drawn for one frame comes in several rectangles.
ONE_FRAME_MS = 4
SIXTY_A_SECOND_MS = 1000 / 60
# A frame may have to wait for the processor; the one in the middle of them all does not.
SLACK_MS = 8
STEPS = 6


class MotionTestCase(DesktopTestCase):
    history = tuple("\n".join((*LINES, str(entry))) for entry in range(STEPS + 2))
    reduced = False

    def prepare(self):
        self.portal = SettingsPortal(self.desktop)
        self.portal.set("org.freedesktop.appearance", "reduced-motion", f"uint32 {int(self.reduced)}")

    def frames_of(self, key):
        """When the rows were drawn anew after the key, in milliseconds; the caret in the search field blinks anyway."""
        popover = self.zamber.wait_for_popover()
        (history,) = self.zamber.tree().all(role="list", name="Clipboard history")
        list_top = history.extents[1] - popover.y
        display = self.desktop.connect()
        try:
            display.damage_query_version()
            window = display.create_resource_object("window", popover.id)
            window.damage_create(damage.DamageReportRawRectangles)
            display.sync()
            self.keyboard.tap(key)
            events = []
            until = time.monotonic() + WATCHED_SECONDS
            while time.monotonic() < until:
                while display.pending_events():
                    events.append(display.next_event())
                time.sleep(0.001)
        finally:
            display.close()
        frames = []
        for stamp in sorted(event.timestamp for event in events if event.area.y + event.area.height > list_top):
            if not frames or stamp - frames[-1] > ONE_FRAME_MS:
                frames.append(stamp)
        return frames

    def steps(self):
        """The frames of several steps through the list, which close one row's text and open the next one's."""
        self.zamber.open_popover()
        wait_until(lambda: self.zamber.tree().all(role="list item", states=["selected"]), 5.0, "the first row selected")
        return [self.frames_of("Down") for _ in range(STEPS)]


class MotionTest(MotionTestCase):
    def test_rows_open_and_close_at_sixty_frames_a_second(self):
        steps = self.steps()
        gaps = [later - earlier for frames in steps for earlier, later in zip(frames, frames[1:])]
        self.assertGreater(len(gaps), 5 * STEPS, steps)
        self.assertLess(statistics.median(gaps), SIXTY_A_SECOND_MS + SLACK_MS, steps)


class ReducedMotionTest(MotionTestCase):
    reduced = True

    def test_nothing_moves(self):
        steps = self.steps()
        self.assertTrue(all(steps), "every step is seen")
        # The old rows and the new ones, at once.
        self.assertLessEqual(max(map(len, steps)), 2, steps)
        self.assertLess(statistics.median(frames[-1] - frames[0] for frames in steps), SIXTY_A_SECOND_MS, steps)
