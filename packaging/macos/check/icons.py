#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""icons.py ICONS.iconset: holds a PNG of the right size for each that iconutil asks for, with something on it."""

import pathlib
import struct
import sys
import zlib

PIXELS = {f"icon_{points}x{points}{suffix}.png": points * scale
          for points in (16, 32, 128, 256, 512) for suffix, scale in (("", 1), ("@2x", 2))}


def side(path):
    """The width and height, which are one; a complaint where they are not, or where nothing is drawn."""
    png = path.read_bytes()
    if png[:8] != b"\x89PNG\r\n\x1a\n":
        raise SystemExit(f"  {path.name} is no PNG")
    width, height = struct.unpack(">II", png[16:24])
    pixels, at = b"", 8
    while at < len(png):
        size, name = struct.unpack(">I4s", png[at : at + 8])
        if name == b"IDAT":
            pixels += png[at + 8 : at + 8 + size]
        at += size + 12
    if len(set(zlib.decompress(pixels))) < 16:
        raise SystemExit(f"  {path.name} is blank")
    return width if width == height else None


found = {path.name: side(path) for path in pathlib.Path(sys.argv[1]).iterdir()}
if found != PIXELS:
    raise SystemExit(f"  {found} instead of {PIXELS}")
print("  " + ", ".join(f"{name} {pixels}" for name, pixels in sorted(found.items(), key=lambda each: each[1])))
