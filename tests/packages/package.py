# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The package of this build, the build's own version, and a root to install the package in."""

import hashlib
import os
import pathlib
import re
import shutil
import stat
import subprocess

SOURCES = pathlib.Path(__file__).resolve().parents[2]
BUILD_FOLDER = pathlib.Path(os.environ.get("ZAMBER_BUILD_FOLDER") or SOURCES / "build" / "release")
MADE = pathlib.Path(os.environ.get("ZAMBER_PACKAGES") or BUILD_FOLDER)
ID = "app.zamber.Zamber"
DESKTOP_ENTRY = f"usr/share/applications/{ID}.desktop"
METAINFO = f"usr/share/metainfo/{ID}.metainfo.xml"
SERVICE = f"usr/share/dbus-1/services/{ID}.service"
ICON_SIZES = (16, 22, 24, 32, 48, 64, 96, 128, 192, 256, 512)
TOOL_SECONDS = 100.0


def run(*command, status=0, **arguments):
    """Runs a program, which has to end with that status, and returns the output of both streams."""
    answer = subprocess.run([*map(str, command)], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, timeout=TOOL_SECONDS, check=False, **arguments)
    output = answer.stdout.decode("utf-8", "replace")
    if answer.returncode != status:
        raise AssertionError(f"{' '.join(map(str, command))} ended with {answer.returncode}:\n{output}")
    return output


def declared():
    """Version, build number and day of the release, as the project declares them."""
    text = (SOURCES / "CMakeLists.txt").read_text()
    return (re.search(r"^ +VERSION (\S+)$", text, re.MULTILINE)[1],
            re.search(r"^set\(ZAMBER_BUILD (\d+)\)", text, re.MULTILINE)[1],
            re.search(r"^set\(ZAMBER_RELEASE_DATE (\S+)\)", text, re.MULTILINE)[1])


def package():
    """The package file; that there is just one is part of it."""
    (made,) = MADE.glob("*.deb")
    return made


def unpack(folder):
    run("dpkg-deb", "--extract", package(), folder)
    return pathlib.Path(folder)


def entry_keys(path):
    """The keys of a desktop entry or a service file, which has one group here."""
    lines = pathlib.Path(path).read_text().splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


def tree(folder):
    """Everything below a folder: kinds, modes and contents."""
    found = {}
    for path in sorted(pathlib.Path(folder).rglob("*")):
        status = path.lstat()
        content = None
        if stat.S_ISLNK(status.st_mode):
            content = os.readlink(path)
        elif stat.S_ISREG(status.st_mode):
            content = hashlib.sha256(path.read_bytes()).hexdigest()
        found[str(path.relative_to(folder))] = (stat.filemode(status.st_mode), content)
    return found


def changes(before, after):
    """The names that differ between two trees."""
    return {name: (before.get(name), after.get(name)) for name in before.keys() | after.keys()
            if before.get(name) != after.get(name)}


class Root:
    """A tree that dpkg installs into, with the package database of this machine, so that dependencies count, and
    without its files."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        database = self.folder / "var" / "lib" / "dpkg"
        for name in ("info", "updates", "triggers"):
            (database / name).mkdir(parents=True)
        for name in ("etc", "usr/bin", "usr/share"):
            (self.folder / name).mkdir(parents=True)
        (self.folder / "etc" / "marker").write_text("somebody else's")
        (self.folder / "usr" / "share" / "marker").write_text("somebody else's, too")
        (database / "available").touch()
        shutil.copy("/var/lib/dpkg/status", database / "status")
        for name in run("dpkg-query", "--show", "--showformat", "${binary:Package}\n").split():
            (database / "info" / f"{name}.list").touch()
        (database / "info" / "base-files.list").write_text("/.\n/etc\n/usr\n/usr/bin\n/usr/share\n/var\n/var/lib\n")
        self._database = database
        if self.status():
            self._dpkg("--purge", "--force-depends", "zamber")  # this machine has it; this root has not

    def _dpkg(self, *arguments):
        # Without the superuser's rights files keep their owner; some machines leave out man pages and documents.
        return run("dpkg", f"--root={self.folder}", "--path-include=/*", "--force-not-root", "--force-bad-path",
                   *arguments, env=dict(os.environ, LC_ALL="C.UTF-8"))

    def install(self, made):
        return self._dpkg("--install", made)

    def remove(self):
        return self._dpkg("--remove", "zamber")

    def purge(self):
        return self._dpkg("--purge", "zamber")

    def status(self):
        """The package's status in the database; nothing when it was never there."""
        stanzas = (self._database / "status").read_text().split("\n\n")
        found = next((stanza for stanza in stanzas if "Package: zamber\n" in stanza + "\n"), "")
        return re.search(r"^Status: .*$", found, re.MULTILINE)[0] if found else None

    def tree(self):
        """All but the package database's own books."""
        books = ("var/lib/dpkg/status", "var/lib/dpkg/available", "var/lib/dpkg/lock", "var/lib/dpkg/triggers/",
                 "var/lib/dpkg/info/format", "var/log")
        return {name: what for name, what in tree(self.folder).items() if not name.startswith(books)}
