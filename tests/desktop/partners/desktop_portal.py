#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The portals for global shortcuts and for remote control on the session bus, and the user who answers their dialogs.

Reads commands from standard input, a JSON list a line, and answers each with a JSON line on standard output:
  ["set", NAME, VALUE]   from now on; the names are those of `Behaviour`
  ["press", SHORTCUT], ["release", SHORTCUT]   the user's keys
  ["unassign", SHORTCUT]  the user takes the keys away from a shortcut in the desktop's settings
  ["revoke"]              the user takes the consent for remote control back in the desktop's settings
  ["end sessions"]        the desktop ends them all
  ["open sessions"]       answers their number
  ["record"]              answers what programs have asked for since the start, a list of lists
"""

import json
import sys
from dataclasses import dataclass

from gi.repository import Gio, GLib

SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"
REMOTE = "org.freedesktop.portal.RemoteDesktop"
REQUEST = "org.freedesktop.portal.Request"
SESSION = "org.freedesktop.portal.Session"
INTERFACES = """
<node>
<interface name="org.freedesktop.host.portal.Registry">
  <method name="Register"><arg type="s" direction="in"/><arg type="a{sv}" direction="in"/></method>
</interface>
<interface name="org.freedesktop.portal.GlobalShortcuts">
  <method name="CreateSession"><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
  <method name="BindShortcuts">
    <arg type="o" direction="in"/><arg type="a(sa{sv})" direction="in"/><arg type="s" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/>
  </method>
  <method name="ListShortcuts">
    <arg type="o" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/>
  </method>
  <signal name="Activated"><arg type="o"/><arg type="s"/><arg type="t"/><arg type="a{sv}"/></signal>
  <signal name="Deactivated"><arg type="o"/><arg type="s"/><arg type="t"/><arg type="a{sv}"/></signal>
  <signal name="ShortcutsChanged"><arg type="o"/><arg type="a(sa{sv})"/></signal>
  <property name="version" type="u" access="read"/>
</interface>
<interface name="org.freedesktop.portal.RemoteDesktop">
  <method name="CreateSession"><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
  <method name="SelectDevices">
    <arg type="o" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/>
  </method>
  <method name="Start">
    <arg type="o" direction="in"/><arg type="s" direction="in"/><arg type="a{sv}" direction="in"/>
    <arg type="o" direction="out"/>
  </method>
  <method name="NotifyKeyboardKeycode">
    <arg type="o" direction="in"/><arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
    <arg type="u" direction="in"/>
  </method>
  <property name="version" type="u" access="read"/>
  <property name="AvailableDeviceTypes" type="u" access="read"/>
</interface>
<interface name="org.freedesktop.portal.Request">
  <method name="Close"/>
  <signal name="Response"><arg type="u"/><arg type="a{sv}"/></signal>
</interface>
<interface name="org.freedesktop.portal.Session">
  <method name="Close"/>
  <signal name="Closed"/>
</interface>
</node>
"""
GRANTED, REFUSED, FAILED = 0, 1, 2
LOOK_AT_A_DIALOG_MS = 1200
SLOW_PRESS_MS = 30


@dataclass
class Behaviour:
    """How the desktop and its user act. `shortcuts` and `remote` are one of: "grant", "refuse", "fail", "silent" (a
    dialog that nobody answers), and for `shortcuts` also "cancel", as GNOME's user does and its portal tells; `sessions` may "fail", as in a desktop that is still coming up. GNOME's portal has `binds_as_failure`: it binds the shortcuts and says that it failed.
    With `side_by_side` a later call may overtake an earlier one, as in xdg-desktop-portal: a press takes its time."""

    sessions: str = "grant"
    shortcuts: str = "grant"
    binds_as_failure: bool = False
    side_by_side: bool = False
    remote: str = "grant"
    remembers: bool = True
    remote_version: int = 2


@dataclass
class Session:
    sender: str
    interface: str
    registration: int
    shortcuts: dict
    token: str = ""
    is_started: bool = False


class Portal:
    def __init__(self):
        self.behaviour = Behaviour()
        self.record = []
        self.sessions = {}
        self.tokens = set()
        # By program, what its user has accepted: the desktop does not ask again.
        self.accepted = {}
        self.node = Gio.DBusNodeInfo.new_for_xml(INTERFACES)
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        for name in ("org.freedesktop.host.portal.Registry", SHORTCUTS, REMOTE):
            self.bus.register_object(PATH, self.node.lookup_interface(name), self.on_call, self.on_property, None)
        Gio.bus_own_name_on_connection(self.bus, SERVICE, Gio.BusNameOwnerFlags.NONE, lambda *_: answer("ready"), None)

    def on_property(self, _bus, _sender, _path, interface, name):
        if name == "AvailableDeviceTypes":
            return GLib.Variant("u", 7)
        return GLib.Variant("u", self.behaviour.remote_version if interface == REMOTE else 1)

    def on_call(self, _bus, sender, _path, interface, method, arguments, invocation):
        arguments = arguments.unpack()
        if method == "Register":
            self.record.append(["register", arguments[0]])
            invocation.return_value(None)
            return
        if method == "NotifyKeyboardKeycode":
            if self.behaviour.side_by_side and arguments[3]:
                GLib.timeout_add(SLOW_PRESS_MS, self.take_key, invocation, *arguments)
            else:
                self.take_key(invocation, *arguments)
            return
        options = arguments[-1]
        request = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        registration = self.bus.register_object(request, self.node.lookup_interface(REQUEST), self.on_close_request)
        invocation.return_value(GLib.Variant("(o)", (request,)))
        response = getattr(self, method)(sender, interface, *arguments)
        if response is not None:
            code, results, *delay = response
            GLib.timeout_add(*delay or [0], self.respond, sender, request, registration, code, results)

    def take_key(self, invocation, path, _options, *key):
        session = self.sessions.get(path)
        self.record.append(["key" if session and session.is_started else "key of no session", *key])
        invocation.return_value(None)
        return False

    def respond(self, sender, request, registration, code, results):
        self.bus.emit_signal(sender, request, REQUEST, "Response", GLib.Variant("(ua{sv})", (code, results)))
        self.bus.unregister_object(registration)
        return False

    def on_close_request(self, _bus, _sender, _path, _interface, _method, _arguments, invocation):
        self.record.append(["close dialog"])
        invocation.return_value(None)

    def CreateSession(self, sender, interface, options):
        if self.behaviour.sessions == "fail":
            self.record.append(["no session"])
            return FAILED, {}
        path = f"{PATH}/session/{sender[1:].replace('.', '_')}/{options['session_handle_token']}"
        registration = self.bus.register_object(path, self.node.lookup_interface(SESSION), self.on_close_session)
        self.sessions[path] = Session(sender, interface, registration, {})
        return GRANTED, {"session_handle": GLib.Variant("s", path)}

    def on_close_session(self, _bus, _sender, path, _interface, _method, _arguments, invocation):
        self.record.append(["close session", self.sessions[path].interface.rsplit(".", 1)[1]])
        self.end(path)
        invocation.return_value(None)

    def end(self, path):
        self.bus.unregister_object(self.sessions.pop(path).registration)

    # Shortcuts

    def BindShortcuts(self, sender, _interface, path, shortcuts, _parent, _options):
        asked = {name: properties["preferred_trigger"] for name, properties in shortcuts}
        self.record.append(["bind", asked])
        accepted = self.accepted.setdefault(sender, {})
        if not asked.keys() <= accepted.keys():
            match self.behaviour.shortcuts:
                case "silent":
                    return None
                case "refuse":
                    return REFUSED, {}
                case "fail":
                    return FAILED, {}
                case "cancel":
                    return FAILED, {}, LOOK_AT_A_DIALOG_MS
        accepted.update(asked)
        self.sessions[path].shortcuts = {name: accepted[name] for name in asked}
        if self.behaviour.binds_as_failure:
            return FAILED, {}
        return GRANTED, {"shortcuts": self.listed(path)}

    def ListShortcuts(self, _sender, _interface, path, _options):
        self.record.append(["list"])
        return GRANTED, {"shortcuts": self.listed(path)}

    def listed(self, path):
        return GLib.Variant("a(sa{sv})", [
            (name, {"description": GLib.Variant("s", name), "trigger_description": GLib.Variant("s", trigger)})
            for name, trigger in self.sessions[path].shortcuts.items()])

    def tell(self, signal, name):
        for path, session in self.sessions.items():
            if session.shortcuts.get(name):
                self.bus.emit_signal(session.sender, PATH, SHORTCUTS, signal,
                                     GLib.Variant("(osta{sv})", (path, name, 0, {})))

    def unassign(self, name):
        for path, session in self.sessions.items():
            if name in session.shortcuts:
                session.shortcuts[name] = ""
                self.bus.emit_signal(session.sender, PATH, SHORTCUTS, "ShortcutsChanged",
                                     GLib.Variant.new_tuple(GLib.Variant("o", path), self.listed(path)))

    # Remote control

    def SelectDevices(self, _sender, _interface, path, options):
        self.record.append(["select", options.get("types"), options.get("persist_mode")])
        self.sessions[path].token = options.get("restore_token", "")
        return GRANTED, {}

    def Start(self, _sender, _interface, path, _parent, _options):
        session = self.sessions[path]
        is_known = session.token in self.tokens
        self.record.append(["start", "by token" if is_known else "by dialog"])
        if not is_known or self.behaviour.remote == "fail":
            match self.behaviour.remote:
                case "silent":
                    return None
                case "refuse":
                    return REFUSED, {}
                case "fail":
                    return FAILED, {}
        self.tokens.discard(session.token)
        session.is_started = True
        results = {"devices": GLib.Variant("u", 1)}
        if self.behaviour.remembers:
            token = f"token {len(self.record)}"
            self.tokens.add(token)
            results["restore_token"] = GLib.Variant("s", token)
        return GRANTED, results

    # The tests' side

    def do(self, verb, *words):
        match verb:
            case "set":
                setattr(self.behaviour, *words)
            case "press":
                self.tell("Activated", *words)
            case "release":
                self.tell("Deactivated", *words)
            case "unassign":
                self.unassign(*words)
            case "revoke":
                self.tokens.clear()
            case "end sessions":
                for path in list(self.sessions):
                    self.bus.emit_signal(self.sessions[path].sender, path, SESSION, "Closed", None)
                    self.end(path)
            case "open sessions":
                return len(self.sessions)
            case "record":
                return self.record
            case _:
                raise ValueError(verb)
        # The bus handles a connection's messages in their order: before this answer it has passed the signals on.
        self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId", None, None,
                           Gio.DBusCallFlags.NONE, -1, None)
        return "done"


def answer(value):
    print(json.dumps(value), flush=True)


def on_input(channel, _condition):
    line = channel.readline()
    if not line:
        loop.quit()
        return False
    answer(portal.do(*json.loads(line)))
    return True


portal = Portal()
GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, on_input)
loop = GLib.MainLoop()
loop.run()
