#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A panel that shows status notifier items: watcher and host in one program (org.kde.StatusNotifierWatcher), with a
square for the first item at the right end of a bar on top of the screen. A left click on the square activates the
item at the button's release, as panels do.

Reads commands from standard input, a JSON object a line, and answers each with one on standard output:
  {"items": true}                     the items' bus names and paths
  {"properties": true}                the first item's properties
  {"call": NAME, "arguments": [...]}  a method of the item with integers as arguments
  {"menu": true}                      opens the menu, as a panel does: what it then shows, and whether it had changed
  {"choose": ID}                      clicks on that line
  {"host": false}                     leaves off being a host, but stays the watcher; true: comes back
"""

import json
import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, Gio, GLib, Gtk  # noqa: E402

HEIGHT = 28
WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
CALL_MILLISECONDS = 3000
INTERFACE = """
<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
  <signal name="StatusNotifierHostUnregistered"/>
</interface></node>
"""


class Panel:
    def __init__(self):
        self.items = []  # (bus name, path)
        self.is_host = True
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self.bus.register_object("/StatusNotifierWatcher", self.interface, self.on_call, self.on_get, None)
        Gio.bus_own_name_on_connection(self.bus, WATCHER, Gio.BusNameOwnerFlags.NONE, self.on_name, None)
        self.bar = self.make_bar()

    def make_bar(self):
        bar = Gtk.Window(type_hint=Gdk.WindowTypeHint.DOCK, title="panel", accept_focus=False)
        screen_width = Gdk.Display.get_default().get_monitor(0).get_geometry().width
        bar.set_default_size(screen_width, HEIGHT)
        bar.move(0, 0)
        self.square = Gtk.EventBox()
        self.square.set_size_request(HEIGHT, HEIGHT)
        self.square.add_events(Gdk.EventMask.BUTTON_PRESS_MASK | Gdk.EventMask.BUTTON_RELEASE_MASK)
        self.square.connect("button-release-event", self.on_release)
        row = Gtk.Box()
        row.pack_end(self.square, False, False, 0)
        bar.add(row)
        bar.show_all()
        return bar

    def on_name(self, *_):
        place = self.bar.get_position()
        width = self.bar.get_size()[0]
        self.answer({"ready": [place[0] + width - HEIGHT // 2, place[1] + HEIGHT // 2]})

    def on_call(self, _connection, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            (service,) = arguments.unpack()
            item = (sender, service) if service.startswith("/") else (service, "/StatusNotifierItem")
            if item not in self.items:
                self.items.append(item)
                self.tell("StatusNotifierItemRegistered", GLib.Variant("(s)", ("".join(item),)))
                Gio.bus_watch_name_on_connection(
                    self.bus, item[0], Gio.BusNameWatcherFlags.NONE, None, lambda *_: self.forget(item)
                )
        invocation.return_value(None)

    def forget(self, item):
        if item in self.items:
            self.items.remove(item)

    def on_get(self, _connection, _sender, _path, _interface, name):
        return {
            "RegisteredStatusNotifierItems": GLib.Variant("as", ["".join(item) for item in self.items]),
            "IsStatusNotifierHostRegistered": GLib.Variant("b", self.is_host),
            "ProtocolVersion": GLib.Variant("i", 0),
        }[name]

    def tell(self, signal, arguments=None):
        self.bus.emit_signal(None, "/StatusNotifierWatcher", WATCHER, signal, arguments)

    def on_release(self, _widget, event):
        if event.button == 1 and self.items:
            name, path = self.items[0]
            self.bus.call(
                name, path, ITEM, "Activate", GLib.Variant("(ii)", (int(event.x_root), int(event.y_root))), None,
                Gio.DBusCallFlags.NONE, CALL_MILLISECONDS, None, None,
            )

    def call(self, path, interface, method, arguments):
        return self.bus.call_sync(
            self.items[0][0], path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, CALL_MILLISECONDS, None
        )

    def properties(self):
        (values,) = self.call(
            self.items[0][1], "org.freedesktop.DBus.Properties", "GetAll", GLib.Variant("(s)", (ITEM,))
        ).unpack()
        values["IconPixmap"] = [[width, height, len(data), any(data)] for width, height, data in values["IconPixmap"]]
        return values

    def menu_path(self):
        return self.properties()["Menu"]

    def open_menu(self):
        path = self.menu_path()
        (has_changed,) = self.call(path, MENU, "AboutToShow", GLib.Variant("(i)", (0,))).unpack()
        revision, (_, root, lines) = self.call(
            path, MENU, "GetLayout", GLib.Variant("(iias)", (0, -1, []))
        ).unpack()
        return {"changed": has_changed, "revision": revision, "root": root,
                "lines": [{"id": line[0], **line[1]} for line in lines]}

    def do(self, command):
        if "items" in command:
            return self.items
        if "properties" in command:
            return self.properties()
        if "call" in command:
            arguments = command.get("arguments", [])
            self.call(self.items[0][1], ITEM, command["call"], GLib.Variant(f"({'i' * len(arguments)})", arguments))
            return True
        if "menu" in command:
            return self.open_menu()
        if "choose" in command:
            event = (command["choose"], "clicked", GLib.Variant("s", ""), 0)
            self.call(self.menu_path(), MENU, "Event", GLib.Variant("(isvu)", event))
            return True
        if "host" in command:
            self.is_host = command["host"]
            self.tell("StatusNotifierHostRegistered" if self.is_host else "StatusNotifierHostUnregistered")
            return True
        raise ValueError(command)

    def answer(self, value):
        print(json.dumps(value), flush=True)

    def on_input(self, channel, _condition):
        line = channel.readline()
        if not line:
            Gtk.main_quit()
            return False
        try:
            self.answer({"value": self.do(json.loads(line))})
        except GLib.Error as failure:
            self.answer({"error": failure.message})
        return True


panel = Panel()
GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, panel.on_input)
Gtk.main()
