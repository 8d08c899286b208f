#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A settings portal (org.freedesktop.portal.Settings) on the session bus that answers with given settings.

Reads commands from standard input, a JSON list a line, and answers each with a line on standard output:
  ["set", GROUP, KEY, VALUE]     has the value from now on; VALUE is a GVariant in text form, such as "uint32 1"
  ["change", GROUP, KEY, VALUE]  also tells everybody; the message bus has passed it on when the answer comes
  ["forget"]                     knows nothing any more
  ["emit", SIGNATURE, VALUE]     sends SettingChanged with arguments of any kind, such as "(s)" and "('nonsense',)"
"""

import json
import sys

from gi.repository import Gio, GLib

SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
INTERFACE = """
<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
  <property name="version" type="u" access="read"/>
</interface></node>
"""


class Portal:
    def __init__(self):
        self.values = {}
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self.bus.register_object(PATH, interface, self.on_call, lambda *_: GLib.Variant("u", 1), None)
        Gio.bus_own_name_on_connection(self.bus, SERVICE, Gio.BusNameOwnerFlags.NONE, lambda *_: answer("ready"), None)

    def on_call(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        if method == "ReadAll":
            groups = {}
            for (group, key), value in self.values.items():
                groups.setdefault(group, {})[key] = value
            invocation.return_value(GLib.Variant("(a{sa{sv}})", (groups,)))
        elif (value := self.values.get(arguments.unpack())) is None:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")
        else:
            invocation.return_value(GLib.Variant("(v)", (GLib.Variant("v", value),)))

    def tell(self, arguments):
        self.bus.emit_signal(None, PATH, SETTINGS, "SettingChanged", arguments)
        # The bus handles a connection's messages in their order: before this answer it has passed the signal on.
        self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId", None, None,
                           Gio.DBusCallFlags.NONE, -1, None)

    def do(self, verb, *words):
        if verb == "emit":
            signature, value = words
            self.tell(GLib.Variant.parse(GLib.VariantType(signature), value))
            return
        if verb == "forget":
            self.values.clear()
            return
        group, key, text = words
        value = self.values[group, key] = GLib.Variant.parse(None, text)
        if verb == "change":
            self.tell(GLib.Variant("(ssv)", (group, key, value)))


def answer(word):
    print(word, flush=True)


def on_input(channel, _condition):
    line = channel.readline()
    if not line:
        loop.quit()
        return False
    portal.do(*json.loads(line))
    answer("done")
    return True


portal = Portal()
GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, on_input)
loop = GLib.MainLoop()
loop.run()
