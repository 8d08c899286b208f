# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Connections to X servers."""

from Xlib.display import Display
from Xlib.protocol import display, event


def connect(name):
    """A connection with a table of event numbers of its own: python-xlib keeps one for all servers, which number the
    events of their extensions differently."""
    table = display.Display.event_classes = event.event_class.copy()
    connection = Display(name)
    connection.display.event_classes = table
    return connection
