# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The file that lets only this desktop's programs connect to its X server."""

import contextlib
import os
import secrets
import socket
import struct

FAMILY_LOCAL = 256
FAMILY_WILD = 65535
PROTOCOL = b"MIT-MAGIC-COOKIE-1"


def write_authority(path):
    """A new cookie for whichever display number the server will find free. Returns the cookie."""
    cookie = secrets.token_bytes(16)
    descriptor = os.open(path, os.O_WRONLY | os.O_CREAT | os.O_EXCL, 0o600)
    with os.fdopen(descriptor, "wb") as stream:
        stream.write(_entry(FAMILY_WILD, b"", b"", cookie))
    return cookie


def add_display(path, cookie, display_number):
    """Names the display as well: python-xlib does not read entries that are for any display."""
    with open(path, "ab") as stream:
        stream.write(_entry(FAMILY_LOCAL, socket.gethostname().encode(), str(display_number).encode(), cookie))


def _entry(family, address, number, cookie):
    fields = b"".join(struct.pack(">H", len(field)) + field for field in (address, number, PROTOCOL, cookie))
    return struct.pack(">H", family) + fields


@contextlib.contextmanager
def authority_in_environment(path):
    """X libraries look up the cookie in this process's environment while they connect."""
    before = os.environ.get("XAUTHORITY")
    os.environ["XAUTHORITY"] = str(path)
    try:
        yield
    finally:
        if before is None:
            del os.environ["XAUTHORITY"]
        else:
            os.environ["XAUTHORITY"] = before
