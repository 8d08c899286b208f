# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The X server's own record of every key event: all senders, all receivers."""

import threading
from dataclasses import dataclass

from Xlib import X
from Xlib.ext import record
from Xlib.protocol import rq

from .keyboard import CONTROL, LOCK, NUM
from .windows import focused_window
from .waiting import wait_until

MODIFIER_BITS = 0xFF
LOCK_BITS = LOCK | NUM


@dataclass(frozen=True)
class KeyEvent:
    pressed: bool
    code: int
    state: int  # modifiers and layout group before the event, as the server reports it
    time: int  # the server's clock in milliseconds
    held: frozenset  # codes of the keys that were down just before
    focus: object  # the top-level window with the keyboard focus (windows.Window) or None

    @property
    def modifiers(self):
        """The modifiers held, the locks left out."""
        return self.state & MODIFIER_BITS & ~LOCK_BITS

    def __str__(self):
        held = ",".join(map(str, sorted(self.held)))
        return f"{self.time} {'down' if self.pressed else 'up'} {self.code} modifiers={self.modifiers:#x} held=[{held}]"


class Recorder:
    """Records from start() to stop(); `events` may be read at any time."""

    def __init__(self, connect):
        self.events = []
        self._connect = connect
        self._failure = None
        self._held = set()

    def start(self):
        self._control = self._connect()
        self._data = self._connect()
        self._witness = self._connect()
        everything = {
            "core_requests": (0, 0), "core_replies": (0, 0), "ext_requests": (0, 0, 0, 0), "ext_replies": (0, 0, 0, 0),
            "delivered_events": (0, 0), "device_events": (X.KeyPress, X.KeyRelease), "errors": (0, 0),
            "client_started": False, "client_died": False,
        }
        self._context = self._data.record_create_context(0, [record.AllClients], [everything])
        self._data.sync()
        self._started = threading.Event()
        self._thread = threading.Thread(target=self._run, name="key recorder", daemon=True)
        self._thread.start()
        if not self._started.wait(5):
            raise RuntimeError("the X server records nothing")
        return self

    def stop(self):
        self._control.record_disable_context(self._context)
        self._control.sync()
        self._thread.join(5)
        for connection in (self._control, self._data, self._witness):
            connection.close()
        if self._failure:
            raise self._failure

    def _run(self):
        try:
            self._data.record_enable_context(self._context, self._receive)
            self._data.record_free_context(self._context)
        except Exception as failure:  # raised again when the recorder is stopped
            self._failure = failure

    def _receive(self, reply):
        if reply.category == record.StartOfData:
            self._started.set()
        if reply.category != record.FromServer or reply.client_swapped:
            return
        data = reply.data
        while data:
            event, data = rq.EventField(None).parse_binary_value(data, self._data.display, None, None)
            if event.type not in (X.KeyPress, X.KeyRelease):
                continue
            pressed = event.type == X.KeyPress
            focus = focused_window(self._witness)
            self.events.append(
                KeyEvent(pressed, event.detail, event.state, event.time, frozenset(self._held), focus)
            )
            (self._held.add if pressed else self._held.discard)(event.detail)

    def mark(self):
        """A place in the record, for looking later at the events since then."""
        return len(self.events)

    def since(self, mark):
        return self.events[mark:]

    def presses(self, code, since=0):
        return [event for event in self.events[since:] if event.pressed and event.code == code]

    def paste_strokes(self, code, modifiers=CONTROL, since=0):
        """The presses of the key with exactly these modifiers held."""
        return [event for event in self.presses(code, since) if event.modifiers == modifiers]

    def wait_for_release_of(self, code, since=0, timeout=5.0):
        """The press and release of the first stroke of the key after `since`."""

        def stroke():
            events = [event for event in self.events[since:] if event.code == code]
            down = next((event for event in events if event.pressed), None)
            up = next((event for event in events if down and not event.pressed and event.time >= down.time), None)
            return (down, up) if up else None

        return wait_until(stroke, timeout, lambda: f"key {code} down and up in\n{self.text(since)}")

    def text(self, since=0):
        return "\n".join(map(str, self.events[since:])) or "(no key events)"
