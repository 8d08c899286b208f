#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""icons.py ICONS.icns: holds a PNG of the right size for each kind of icon, with something on it."""

import struct
import sys
import zlib

PIXELS = {"icp4": 16, "icp5": 32, "ic07": 128, "ic08": 256, "ic09": 512, "ic10": 1024, "ic11": 32, "ic12": 64,
          "ic13": 256, "ic14": 512}

with open(sys.argv[1], "rb") as file:
    data = file.read()
if data[:4] != b"icns" or struct.unpack(">I", data[4:8])[0] != len(data):
    raise SystemExit("  no icon file, or of another length than it says")
found, at = {}, 8
while at < len(data):
    kind, length = data[at : at + 4].decode(), struct.unpack(">I", data[at + 4 : at + 8])[0]
    png = data[at + 8 : at + length]
    if png[:8] != b"\x89PNG\r\n\x1a\n":
        raise SystemExit(f"  {kind} is no PNG")
    width, height = struct.unpack(">II", png[16:24])
    pixels, chunk = b"", 8
    while chunk < len(png):
        size, name = struct.unpack(">I4s", png[chunk : chunk + 8])
        if name == b"IDAT":
            pixels += png[chunk + 8 : chunk + 8 + size]
        chunk += size + 12
    if len(set(zlib.decompress(pixels))) < 16:
        raise SystemExit(f"  {kind} is blank")
    found[kind] = width if width == height else None
    at += length
if found != PIXELS:
    raise SystemExit(f"  {found} instead of {PIXELS}")
print("  " + ", ".join(f"{kind} {side}x{side}" for kind, side in found.items()))
