# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What ./run and CMake say on a machine where something is missing."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
SYSTEMS = {"fedora": "ID=fedora", "arch": "ID=endeavouros\nID_LIKE=arch", "opensuse": 'ID="opensuse-tumbleweed"\nID_LIKE="opensuse suse"'}


def rows(name):
    lines = (TREE / "tools" / name).read_text().splitlines()
    return [line.split() for line in lines if line and not line.startswith("#")]


class MissingPackagesTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="zamber-packages-")))
        shutil.copytree(TREE / "tools", self.folder / "tools")
        (self.folder / "bin").mkdir()
        for tool in ("bash", "awk", "sed", "basename", "uname", "cut", "sort", "cat"):
            (self.folder / "bin" / tool).symlink_to(shutil.which(tool))

    def require(self, group="run", release="", **probes):
        """tools/build.sh's answer on a machine that has neither Debian's tools nor anything else but these probes."""
        (self.folder / "os-release").write_text(release)
        functions = "".join(f"{name}() {{ {body}; }}\n" for name, body in probes.items())
        script = f'root=$1; os_release=$1/os-release; . "$1/tools/build.sh"; {functions} require {group}'
        answer = subprocess.run(["/bin/bash", "-euc", script, "run", self.folder], capture_output=True, text=True,
                                check=False, env={"PATH": str(self.folder / "bin")})
        return answer.returncode, answer.stderr

    def test_one_command_installs_what_is_missing(self):
        for system, command in (("fedora", "sudo dnf install gcc-c++ cmake ninja-build pkgconf-pkg-config qt6-qtbase-devel"),
                                ("arch", "sudo pacman -S --needed gcc cmake ninja pkgconf qt6-base qt6-svg"),
                                ("opensuse", "sudo zypper install gcc-c++ cmake ninja pkgconf-pkg-config qt6-base-devel")):
            with self.subTest(system):
                status, words = self.require(release=SYSTEMS[system], is_there="false")
                self.assertEqual(status, 1)
                self.assertIn(f"\n    {command}", words)
                line = next(line for line in words.splitlines() if command in line).split()
                self.assertEqual(len(line), len(set(line)), "no package is named twice")
                self.assertNotIn("-", line)
                self.assertNotIn("?", line)

    def test_what_has_no_known_name_is_told_by_debians(self):
        _, words = self.require(release=SYSTEMS["fedora"], is_there="false")
        self.assertIn("(Debian: bootstrap-icons)", words)
        self.assertIn("build/bootstrap-icons will do", words)

    def test_an_unknown_system_is_told_debians_names(self):
        status, words = self.require(release="ID=gentoo", is_there="false")
        self.assertEqual(status, 1)
        self.assertIn("pkg-config Qt6Widgets (Debian: qt6-base-dev)", words)
        self.assertNotIn("install it with", words)

    def test_nothing_is_said_when_nothing_is_missing(self):
        self.assertEqual(self.require(release=SYSTEMS["arch"], is_there="true"), (0, ""))

    def test_the_library_that_can_be_done_without_is_not_asked_for(self):
        missing = 'case $1 in *modp*) false ;; *) true ;; esac'
        self.assertEqual(self.require(release=SYSTEMS["arch"], is_there=missing), (0, ""))
        self.assertIn("stringencoders-devel", self.require(release=SYSTEMS["fedora"], is_there=missing)[1])

    def test_icons_that_were_unpacked_by_hand_count(self):
        only_icons = 'case $1 in *clipboard.svg*) is_a_file "${1#*:}" ;; *) true ;; esac'
        (self.folder / "tools" / "packages.txt").write_text(
            (self.folder / "tools" / "packages.txt").read_text().replace("/usr/share/bootstrap-icons", "/nowhere"))
        self.assertEqual(self.require(release=SYSTEMS["arch"], is_there=only_icons)[0], 1)
        (self.folder / "build" / "bootstrap-icons").mkdir(parents=True)
        (self.folder / "build" / "bootstrap-icons" / "clipboard.svg").touch()
        self.assertEqual(self.require(release=SYSTEMS["arch"], is_there=only_icons), (0, ""))

    def test_the_list_for_elsewhere_has_every_package_of_run_and_no_other(self):
        elsewhere = rows("packages-elsewhere.txt")
        self.assertEqual([row[0] for row in elsewhere], [row[1] for row in rows("packages.txt") if row[0] == "run"])
        self.assertEqual({len(row) for row in elsewhere}, {4})


class MissingForCMakeTest(unittest.TestCase):
    def configure(self, *options, **environment):
        """Configures the tree in a folder of its own; returns the status and all that was said, on one line."""
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="zamber-configure-"))
        answer = subprocess.run(["cmake", "-G", "Ninja", "-S", TREE, "-B", folder, "-D", "ZAMBER_TESTS=OFF", *options],
                                capture_output=True, text=True, check=False, env=dict(os.environ, **environment))
        return answer.returncode, " ".join((answer.stdout + answer.stderr).split())

    def test_a_missing_library_is_told_by_its_package(self):
        status, words = self.configure(PKG_CONFIG_LIBDIR="/nowhere")
        self.assertNotEqual(status, 0)
        self.assertIn("xcb-xtest: install libxcb-xtest0-dev", words)
        self.assertIn("libcanberra: install libcanberra-dev", words)

    def test_nothing_is_missing_here_and_the_codec_of_base64_can_be(self):
        status, words = self.configure("-D", "ZAMBER_MODPBASE64=OFF")
        self.assertEqual(status, 0, words)
        self.assertNotIn("does not find what Zamber is built with", words)
        self.assertIn("Base64: Qt's codec", words)

    def test_missing_symbols_are_told_by_their_package(self):
        status, words = self.configure("-D", "CMAKE_IGNORE_PATH=/usr/share/bootstrap-icons/svg;" + str(TREE / "build" / "bootstrap-icons"))
        self.assertNotEqual(status, 0)
        self.assertIn("have the package bootstrap-icons", words)


if __name__ == "__main__":
    unittest.main()
