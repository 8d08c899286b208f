#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A browser's window with a page in it that has one text field; the field's value is in a file after every change."""

import os
import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("WebKit2", "4.1")
from gi.repository import GLib, Gtk, WebKit2  # noqa: E402

PAGE = """<!doctype html><title>Page</title><body><input id="field" autofocus size="40"><script>
const field = document.getElementById("field");
const tell = () => window.webkit.messageHandlers.value.postMessage(field.value);
field.addEventListener("input", tell);
field.addEventListener("focus", tell);
field.focus();
</script>"""

path = sys.argv[1]


def publish(_manager, result):
    with open(path + ".part", "wb") as stream:
        stream.write(result.get_js_value().to_string().encode())
    os.replace(path + ".part", path)


GLib.set_prgname("browser")
manager = WebKit2.UserContentManager()
manager.register_script_message_handler("value")
manager.connect("script-message-received::value", publish)
view = WebKit2.WebView(user_content_manager=manager)
window = Gtk.Window(title="Browser")
window.set_default_size(480, 300)
window.add(view)
window.connect("destroy", Gtk.main_quit)
window.show_all()
view.load_html(PAGE, "about:blank")
view.grab_focus()
Gtk.main()
