# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Windows as a task bar sees them where a compositor has zwlr_foreign_toplevel_manager_v1: their titles, and which one
is active, but neither their places nor their programs."""

from .wire import Client

VERSION = 3
TITLE, APPLICATION, STATE, DONE, CLOSED = 0, 1, 4, 5, 6
ACTIVATE, FILL_SCREEN = 4, 8
MAXIMIZED, MINIMIZED, ACTIVATED, FULL_SCREEN = range(4)


class Toplevel:
    def __init__(self, proxy):
        self.proxy, self.number = proxy, proxy.number
        self.title = self.application = ""
        self.states, self._states_to_be = [], []
        self.is_open, self.is_described = True, False
        proxy.handlers = {TITLE: self._note_title, APPLICATION: self._note_application, STATE: self._note_states,
                          DONE: self._finish, CLOSED: self._close}

    def _note_title(self, event):
        self.title = event.string()

    def _note_application(self, event):
        self.application = event.string()

    def _note_states(self, event):
        self._states_to_be = event.integers()

    def _finish(self, _):
        self.states, self.is_described = self._states_to_be, True

    def _close(self, _):
        self.is_open = False


class Toplevels:
    def __init__(self, environment):
        self._client = Client(environment)
        self._toplevels = []
        self._seat = self._client.bind("wl_seat")
        self._client.bind("zwlr_foreign_toplevel_manager_v1", VERSION).handlers[0] = self._add

    def close(self):
        self._client.close()

    def _add(self, event):
        self._toplevels.append(Toplevel(event.new_object()))

    def look(self):
        """The windows that are open, in the order in which they were opened."""
        self._client.round_trip()
        self._toplevels = [toplevel for toplevel in self._toplevels if toplevel.is_open]
        return [toplevel for toplevel in self._toplevels if toplevel.is_described]

    def activate(self, number):
        self._find(number).proxy.send(ACTIVATE, self._seat)
        self._client.round_trip()

    def fill_screen(self, number):
        self._find(number).proxy.send(FILL_SCREEN, None)
        self._client.round_trip()

    def _find(self, number):
        return next(toplevel for toplevel in self._toplevels if toplevel.number == number)
