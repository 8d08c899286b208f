# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""KWin's windows as a task bar sees them (org_kde_plasma_window_management)."""

from .windows import Window
from .wire import Client

INTERFACE = "org_kde_plasma_window_management"
VERSION_WITH_UUIDS = 13
GET_WINDOW_BY_UUID, SET_STATE = 2, 0
WINDOW_WITH_UUID = 4
ACTIVE, MINIMIZED, FULL_SCREEN = 1, 2, 8


class _Window:
    def __init__(self, number, proxy):
        self.number, self.proxy = number, proxy
        self.title = self.application = ""
        self.pid = self.state = 0
        self.place = (0, 0, 0, 0)
        self.is_open = True
        proxy.handlers = {0: self._title, 1: self._application, 2: self._state, 5: self._closed, 8: self._geometry,
                          10: self._pid}

    def _title(self, event):
        self.title = event.string()

    def _application(self, event):
        self.application = event.string()

    def _state(self, event):
        self.state = event.integer()

    def _closed(self, _):
        self.is_open = False

    def _geometry(self, event):
        self.place = (event.signed(), event.signed(), event.integer(), event.integer())

    def _pid(self, event):
        self.pid = event.integer()

    def described(self):
        is_visible = not self.state & MINIMIZED and self.place[2] > 0
        return Window(self.number, self.title, self.pid, self.application, *self.place, is_visible)


class PlasmaWindows:
    def __init__(self, environment):
        self._client = Client(environment)
        if INTERFACE not in self._client.globals:
            raise RuntimeError("KWin does not let this program see the windows")
        self._windows = []
        self._manager = self._client.bind(INTERFACE, VERSION_WITH_UUIDS)
        self._manager.handlers[WINDOW_WITH_UUID] = self._add
        self._client.round_trip()

    def close(self):
        self._client.close()

    def _add(self, event):
        number, uuid = event.integer(), event.string()
        proxy = self._client.new()
        self._windows.append(_Window(number, proxy))
        self._manager.send(GET_WINDOW_BY_UUID, proxy, uuid)

    def look(self):
        """Each window, and whether it is the active one."""
        self._client.round_trip()  # new windows
        self._client.round_trip()  # and what they are like
        self._windows = [window for window in self._windows if window.is_open]
        return [(window.described(), bool(window.state & ACTIVE)) for window in self._windows]

    def activate(self, wanted):
        self._set_state(wanted, ACTIVE)

    def fill_screen(self, wanted):
        self._set_state(wanted, FULL_SCREEN)

    def _set_state(self, wanted, state):
        for window in self._windows:
            if window.number == wanted.id:
                window.proxy.send(SET_STATE, state, state)
        self._client.round_trip()
