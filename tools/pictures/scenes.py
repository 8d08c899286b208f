# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What the pictures of the documentation show. Nothing in them depends on the moment: entries are hours or days old,
or so many minutes that the next one is far."""

import base64
import json
import struct
import time
import zlib

from Xlib import Xatom, Xutil

from harness import wait_until

SCALE = 1.5
EDGE = 60
MINUTE = 60.0
HOUR = 60 * MINUTE
DAY = 24 * HOUR


def paint_background(display, colour):
    """As a wallpaper program would: a pixmap on the root window, known by its property to the compositor."""
    screen = display.screen()
    red, green, blue = colour
    pixmap = screen.root.create_pixmap(screen.width_in_pixels, screen.height_in_pixels, screen.root_depth)
    brush = pixmap.create_gc(foreground=red << 16 | green << 8 | blue)
    pixmap.fill_rectangle(brush, 0, 0, screen.width_in_pixels, screen.height_in_pixels)
    for name in ("_XROOTPMAP_ID", "ESETROOT_PMAP_ID"):
        screen.root.change_property(display.intern_atom(name), Xatom.PIXMAP, 32, [pixmap.id])
    screen.root.change_attributes(background_pixmap=pixmap)
    screen.root.clear_area(0, 0, 0, 0)
    display.sync()


def keep_off_the_edges(display):
    """Panels on all sides, as far as windows have to know: so what is shown has its shadow whole."""
    root = display.screen().root
    width, height = display.screen().width_in_pixels, display.screen().height_in_pixels
    panel = root.create_window(0, 0, 1, 1, 0, display.screen().root_depth)
    for name, kind, values in (("_NET_WM_WINDOW_TYPE", Xatom.ATOM, [display.intern_atom("_NET_WM_WINDOW_TYPE_DOCK")]),
                               ("_NET_WM_STRUT_PARTIAL", Xatom.CARDINAL,
                                [EDGE] * 4 + [0, height - 1] * 2 + [0, width - 1] * 2)):
        panel.change_property(display.intern_atom(name), kind, 32, values)
    panel.set_wm_normal_hints(flags=Xutil.USPosition | Xutil.PPosition)  # else it is put anywhere, a dot in the picture
    panel.map()
    display.sync()


def sunset(width=160, height=100):
    """A picture to be copied, the same on every machine."""
    rows = bytearray()
    for y in range(height):
        rows.append(0)
        for x in range(width):
            is_sun = (x - 105) ** 2 + (y - 42) ** 2 < 22 ** 2
            rows += bytes((255, 236, 179) if is_sun else (238 - y, 80 + 40 * x // width + y // 2, 121 + y))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(bytes(rows))) + chunk(b"IEND", b"")


HISTORY = (
    ("12 Baker Street", 18.2 * MINUTE, False),
    ("https://docs.example.org/guide/getting-started#keyboard", 41.2 * MINUTE, False),
    (sunset(), 1.3 * HOUR, False),
    ("SELECT name, count(*) FROM entries WHERE pinned = 1 GROUP BY name ORDER BY 2 DESC LIMIT 20", 2.3 * HOUR, True),
    ("See you at 6 🎉 the table is for four 🍝", 2.4 * HOUR, False),
    ("for (const auto& item : items) {\n    if (item.isPinned) {\n        continue;\n    }\n    remove(item);\n}", 3.3 * HOUR,
     False),
    ("Zażółć gęślą jaźń · Привет, мир · Ελληνικά → ⇧⌘", 5.3 * HOUR, True),
    ("Have a look at https://news.example.org/2026/11/keyboards before we talk on Monday", 7.3 * HOUR, False),
    ("https://example.org", 1.3 * DAY, False),
    ("rsync -a ~/Pictures /mnt/backup", 2.3 * DAY, False),
    ("https://shop.example.org/cart", 3.3 * DAY, False),
)


def write_history(zamber):
    now = time.time()
    zamber.data_folder.mkdir(parents=True, exist_ok=True, mode=0o700)
    zamber.history_path.write_text(json.dumps([
        {"type": "text" if isinstance(content, str) else "image",
         "value": content if isinstance(content, str) else base64.b64encode(content).decode(),
         "timestamp": now - age, "isPinned": is_pinned}
        for content, age, is_pinned in HISTORY
    ], ensure_ascii=False))


class Popover:
    """Opened by its hot key; `typed` is what is searched for, `position` the row that is selected."""

    def __init__(self, name, typed="", position=0):
        self.name, self._typed, self._position = name, typed, position

    def prepare(self, desktop, zamber):
        zamber.open_popover()
        if self._typed:
            desktop.keyboard.type_text(self._typed)
        if self._position:
            desktop.keyboard.tap(*["Down"] * self._position)

    def place(self, zamber):
        return zamber.popover()

    def refresh(self, desktop):
        desktop.keyboard.tap("x", "BackSpace")  # the caret is shown for half a second after each letter


class Settings:
    name = "settings"

    def prepare(self, desktop, zamber):
        zamber.open_popover()
        desktop.keyboard.chord("Control_L", "comma")
        wait_until(lambda: self.place(zamber), 10.0, "the settings")
        zamber.wait_until_closed()

    def place(self, zamber):
        return next((window for window in zamber.windows() if window.title == "Zamber Settings"), None)

    def refresh(self, desktop):
        """The scroll bar fades by itself, and nothing blinks."""


SCENES = (Popover("popover"), Popover("popover-links", typed="example"), Settings())
