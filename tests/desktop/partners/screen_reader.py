#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What a screen reader is told: a line of JSON on standard output for each thing that takes the focus, is selected or
is announced, with its role and name."""

import json

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def tell(event):
    try:
        print(json.dumps({"event": event.type, "value": event.detail1, "role": event.source.get_role_name(),
                          "name": event.source.get_name() or ""}), flush=True)
    except GLib.Error:
        pass  # gone already


Atspi.init()
listener = Atspi.EventListener.new(tell)
for kind in ("object:state-changed:focused", "object:state-changed:selected", "object:selection-changed",
             "object:active-descendant-changed", "object:announcement", "focus:"):
    listener.register(kind)
print(json.dumps({"event": "ready", "value": 0, "role": "", "name": ""}), flush=True)
Atspi.event_main()
