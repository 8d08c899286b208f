# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Waiting for something to become true, instead of sleeping and hoping."""

import time

POLL_SECONDS = 0.01


class WaitTimeout(AssertionError):
    """A wait was in vain. An assertion, so that the test has failed."""


def wait_until(condition, timeout=5.0, what="the condition"):
    """Polls `condition` until it returns something true, and returns that.

    `what` completes the sentence "waited 5 s for …"; it may be a function, asked only when the wait has failed.
    """
    deadline = time.monotonic() + timeout
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise WaitTimeout(f"waited {timeout:g} s for {what() if callable(what) else what}")
        time.sleep(POLL_SECONDS)


def holds_for(condition, seconds, what="the condition"):
    """Fails as soon as `condition` is false within the next `seconds`: checks that something does not happen."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        if not condition():
            raise AssertionError(f"within {seconds:g} s no longer true: {what() if callable(what) else what}")
        time.sleep(POLL_SECONDS)
