# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Installed from the build folder, into a folder of one's own or, for packagers, into a destination."""

import os
import pathlib
import tempfile
import unittest

import test_update
from case import DesktopTestCase
from harness import wait_until
from harness.zamber import READY_LINE
from installed import LAUNCH_BY_NAME, InstalledZamber
from package import BUILD_FOLDER, ICON_SIZES, ID, entry_keys, run, tree


def install(prefix, **environment):
    run("cmake", "--install", BUILD_FOLDER, "--prefix", prefix, env=dict(os.environ, **environment))


def expected_files():
    icons = {f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in ICON_SIZES}
    return icons | {
        "bin/zamber", "libexec/zamber/zamber-fetch", f"share/applications/{ID}.desktop",
        f"share/metainfo/{ID}.metainfo.xml",
        f"share/dbus-1/services/{ID}.service", f"share/icons/hicolor/scalable/apps/{ID}.svg",
        "share/man/man1/zamber.1", "share/doc/zamber/LICENSE", "share/doc/zamber/copyright",
    }


def files(folder):
    return {name for name, (mode, _) in tree(folder).items() if not mode.startswith("d")}


class PrefixTest(DesktopTestCase):
    """The folder is not on the path, and its name is full of characters with a meaning to shells and entries."""

    resource_lock = "installation"  # an installation writes its entries in the build folder first

    def prepare(self):
        self.prefix = pathlib.Path(self.desktop.directory) / "it's a \"place\" for $HOME & `more`"
        install(self.prefix)
        self.zamber = InstalledZamber(self.desktop, self.prefix / "bin" / "zamber", XDG_DATA_DIRS=self.prefix / "share")

    def start_zamber(self):
        """The cases do."""

    def test_the_menu_entry_starts_the_program(self):
        self.assertEqual(files(self.prefix), expected_files())
        self.assertEqual(run("desktop-file-validate", self.prefix / "share" / "applications" / f"{ID}.desktop"), "")
        self.expected_lines.append(READY_LINE)
        self.zamber.launch(LAUNCH_BY_NAME, f"{ID}.desktop")
        self.copy_and_wait("copied", ["copied"])

    def test_the_bus_starts_the_program(self):
        service = self.prefix / "share" / "dbus-1" / "services" / f"{ID}.service"
        (self.desktop.directory / "services" / service.name).write_bytes(service.read_bytes())
        self.desktop.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/org/freedesktop/DBus",
                          "-m", "org.freedesktop.DBus.ReloadConfig"])
        self.zamber.activate_by_bus()
        (pid,) = wait_until(self.zamber.pids, what="the installed program")
        wait_until(lambda: self.desktop.window(title="Zamber", pid=pid), what="its popover")

    def tearDown(self):
        # A process that the bus has started is no child of ours: the desktop ends it.
        if self.zamber.child:
            super().tearDown()


class UpdateFromPrefixTest(test_update.UpdateTestCase):
    """The program finds the one that makes its requests where that was installed."""

    resource_lock = "installation"
    answer = {"updateAvailable": True, "latestVersion": "9.9.9"}

    def prepare(self):
        super().prepare()
        prefix = pathlib.Path(self.desktop.directory) / "prefix"
        install(prefix)
        self.zamber.binary = prefix / "bin" / "zamber"

    def test_it_is_learnt_of_a_newer_version(self):
        self.expected_lines.append("🔄 Update available: v9.9.9")
        self.wait_for_request()


class DestinationTest(unittest.TestCase):
    resource_lock = "installation"

    def test_destdir_is_where_the_files_go_and_nothing_in_them_knows(self):
        destination = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="zamber-destination-")))
        install("/opt/zamber", DESTDIR=str(destination))
        self.assertEqual(files(destination), {f"opt/zamber/{name}" for name in expected_files()})
        keys = entry_keys(destination / "opt/zamber/share/applications" / f"{ID}.desktop")
        self.assertEqual((keys["Exec"], keys["TryExec"]), ("/opt/zamber/bin/zamber",) * 2)
        self.assertEqual(entry_keys(destination / f"opt/zamber/share/dbus-1/services/{ID}.service")["Exec"],
                         "/opt/zamber/bin/zamber")
        for name in files(destination):
            self.assertNotIn(str(destination).encode(), (destination / name).read_bytes(), name)


if __name__ == "__main__":
    unittest.main()
