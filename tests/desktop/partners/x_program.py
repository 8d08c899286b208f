# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Shared by the partners that speak to the X server without a toolkit."""

import json
import os
import select
import sys

from Xlib import display


def connect():
    """A connection on which an error of X ends the program, as it ends most programs."""

    def die_of(error, _request):
        print(f"error of X: {error}", file=sys.stderr, flush=True)
        os._exit(1)

    connection = display.Display()
    connection.set_error_handler(die_of)
    return connection


class Orders:
    """The orders of the test: lines of JSON on standard input. Each is to be answered by a line once it is done."""

    def __init__(self, connection):
        self._connection = connection
        self._unread = b""

    def wait(self, seconds=None):
        """Waits for events of X or orders, for so many seconds at the most. Returns the orders that have come, which may
        be none, or None when the input has ended."""
        ready, _, _ = select.select([self._connection.fileno(), sys.stdin.fileno()], [], [], seconds)
        if sys.stdin.fileno() not in ready:
            return []
        chunk = os.read(sys.stdin.fileno(), 65536)
        if not chunk:
            return None
        *lines, self._unread = (self._unread + chunk).split(b"\n")
        return [json.loads(line) for line in lines]
