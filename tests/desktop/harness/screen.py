# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Pictures: of the screen, to be copied, and to be compared."""

import struct
import subprocess
import zlib

from Xlib import X

TOOL_SECONDS = 20.0


def screenshot(desktop, path, environment=None):
    """The screen as a user sees it, the compositor's work included, as a picture file of the type that the name ends in.
    The screen is the desktop's unless the environment of another one is given."""
    subprocess.run(
        ["/usr/bin/import", "-window", "root", str(path)], env=environment or desktop.environment, stdin=subprocess.DEVNULL,
        capture_output=True, timeout=TOOL_SECONDS, check=True,
    )
    return path


def mean_color(desktop, x, y, width, height):
    """The average colour of a rectangle of the screen: red, green and blue, each from 0 to 255."""
    data = desktop.display.screen().root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data
    count = width * height
    return tuple(sum(data[channel::4]) / count for channel in (2, 1, 0))


def png_bytes(width=24, height=16, *, seed=1, compression=6):
    """A picture that is no other's: opaque RGB, a different pattern for every seed; large when not compressed (0)."""
    rows = b"".join(
        b"\0" + bytes(
            value for column in range(width)
            for value in ((column * 10 + seed) % 256, (row * 16 + 3 * seed) % 256, (seed * 37 + row * column) % 256)
        )
        for row in range(height)
    )

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, compression)) + chunk(b"IEND", b"")


def convert(data, kind, to):
    """The same picture in another format, by ImageMagick. Without a kind it goes by what the bytes themselves say;
    `to` may be "rgba" for bare pixels."""
    answer = subprocess.run(
        ["/usr/bin/convert", f"{kind}:-" if kind else "-", "-depth", "8", f"{to}:-"], input=data, capture_output=True,
        timeout=TOOL_SECONDS, check=True,
    )
    return answer.stdout


def pixels(data, kind=None):
    """Eight-bit red, green, blue and opacity of every pixel, row by row."""
    return convert(data, kind, "rgba")
