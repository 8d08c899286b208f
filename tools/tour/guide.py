# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Leads through the stages of a tour: announces each, reports its checks, takes a picture."""

import contextlib
import sys
import textwrap
import time
import traceback

# What is on the glass cannot be asked for; a compositor needs a small part of this. No check depends on it.
DRAWING_SECONDS = 0.35
INDENTATION = " " * 4


class TourFailed(Exception):
    """A stage has failed; it has been said and pictured."""


class Guide:
    def __init__(self, desktop, folder):
        self._desktop = desktop
        self._folder = folder
        self.stages = 0

    @contextlib.contextmanager
    def stage(self, name, text):
        """One stage. The picture is taken when its block is done, and also when it has failed."""
        self.stages += 1
        lines = textwrap.fill(text, 110, initial_indent=f"{self.stages:2}. ", subsequent_indent=INDENTATION)
        print(f"\n{lines}", flush=True)
        picture = self._folder / f"{self.stages:02}-{name}.png"
        try:
            yield
            time.sleep(DRAWING_SECONDS)
            self._desktop.screenshot(picture)
        except Exception as failure:
            say(f"FAILED: {failure or type(failure).__name__}", INDENTATION)
            if not isinstance(failure, AssertionError):
                traceback.print_exc(file=sys.stdout)
            with contextlib.suppress(Exception):
                self._desktop.screenshot(self._folder / f"{self.stages:02}-{name}-FAILED.png")
            raise TourFailed from failure

    def ok(self, text):
        """The checks that have passed, in sentences."""
        say(f"ok: {text}", INDENTATION)


def say(text, indentation=""):
    for line in text.split("\n"):
        print(textwrap.fill(line, 110, initial_indent=indentation, subsequent_indent=indentation), flush=True)


def check(claim, otherwise):
    """Fails the stage when the claim does not hold."""
    if not claim:
        raise AssertionError(otherwise)
