# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The package file: its contents, its dependencies, and the verdicts of the tools that check packages."""

import gzip
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

from package import DESKTOP_ENTRY, ICON_SIZES, ID, METAINFO, SERVICE, SOURCES, declared, entry_keys, package, run, tree, unpack

BINARY = "usr/bin/zamber"
FETCH = "usr/libexec/zamber/zamber-fetch"
PROGRAMS = (BINARY, FETCH)
MAN_PAGE = "usr/share/man/man1/zamber.1.gz"
DOCUMENTS = "usr/share/doc/zamber"


class PackageTestCase(unittest.TestCase):
    def setUp(self):
        self.root = unpack(self.enterContext(tempfile.TemporaryDirectory(prefix="zamber-package-")))

    def man_page(self):
        return gzip.decompress((self.root / MAN_PAGE).read_bytes())

    def field(self, name):
        return run("dpkg-deb", "--field", package(), name).strip()


class ContentTest(PackageTestCase):
    def test_just_these_files_are_in_it_and_belong_to_root(self):
        icons = {f"usr/share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in ICON_SIZES}
        icons.add(f"usr/share/icons/hicolor/scalable/apps/{ID}.svg")
        expected = {*PROGRAMS, DESKTOP_ENTRY, METAINFO, SERVICE, MAN_PAGE, "usr/share/lintian/overrides/zamber", f"{DOCUMENTS}/copyright",
                    f"{DOCUMENTS}/changelog.Debian.gz"} | icons
        found = tree(self.root)
        self.assertEqual({name for name, (mode, _) in found.items() if not mode.startswith("d")}, expected)
        modes = {name: mode for name, (mode, _) in found.items()}
        for program in PROGRAMS:
            self.assertEqual(modes.pop(program), "-rwxr-xr-x")
        for name, mode in modes.items():
            self.assertIn(mode, ("drwxr-xr-x", "-rw-r--r--"), name)
        owners = {line.split()[1] for line in run("dpkg-deb", "--contents", package()).splitlines()}
        self.assertEqual(owners, {"root/root"})

    def test_the_icons_have_the_sizes_of_their_folders_and_show_something(self):
        for size in ICON_SIZES:
            path = self.root / f"usr/share/icons/hicolor/{size}x{size}/apps/{ID}.png"
            with self.subTest(size):
                head = path.read_bytes()[:24]
                self.assertEqual((head[:8], struct.unpack(">II", head[16:])), (b"\x89PNG\r\n\x1a\n", (size, size)))
                colours = int(run("identify", "-format", "%k", path))
                self.assertGreater(colours, 10)

    def test_the_programs_are_stripped_hardened_and_look_for_libraries_where_the_system_does(self):
        for program in PROGRAMS:
            with self.subTest(program):
                sections = run("readelf", "--section-headers", "--wide", self.root / program)
                self.assertNotIn(".debug_", sections)
                self.assertNotIn(".symtab", sections)
                dynamic = run("readelf", "--dynamic", "--wide", self.root / program)
                self.assertNotRegex(dynamic, r"\((RPATH|RUNPATH)\)")
                self.assertIn("NOW", dynamic)
                self.assertIn("PIE", dynamic)
                self.assertIn("GNU_RELRO", run("readelf", "--program-headers", "--wide", self.root / program))
                self.assertIn("__stack_chk_fail", run("readelf", "--dyn-syms", "--wide", self.root / program))

    def test_nothing_names_the_folder_it_was_built_in(self):
        # As a path of its own, not as the end of another one.
        folder = re.compile(rb"(?<![a-z0-9_./-])" + re.escape(str(SOURCES).encode()) + rb"(?![\w.-])")
        for name, (mode, _) in tree(self.root).items():
            if mode.startswith("-"):
                self.assertNotRegex((self.root / name).read_bytes(), folder, name)


class DependenciesTest(PackageTestCase):
    def names(self, field):
        return {name.split()[0] for name in re.split(r"[,|] *", self.field(field))}

    def test_every_library_it_loads_at_its_start_is_in_a_package_it_depends_on(self):
        for program, one in ((BINARY, "libQt6Widgets.so.6"), (FETCH, "libQt6Network.so.6")):
            listed = run("readelf", "--dynamic", "--wide", self.root / program)
            wanted = set(re.findall(r"\(NEEDED\).*\[(.+)\]", listed))
            self.assertIn(one, wanted)
            paths = {path.rsplit("/", 1)[1]: path for path in re.findall(r"/\S+\.so\S*", run("ldd", self.root / program))}
            for library in wanted:
                with self.subTest(library):
                    # The package database may know the file by its place before /lib became part of /usr.
                    place = paths[library].removeprefix("/usr")
                    answer = subprocess.run(["dpkg-query", "--search", place, f"/usr{place}"], capture_output=True,
                                            check=False).stdout.decode()
                    owners = {line.split(":")[0] for line in answer.splitlines()}
                    self.assertTrue(owners & self.names("Depends"), f"{library} of {owners}")

    def test_the_program_that_stays_loads_no_network_library(self):
        loaded = run("ldd", self.root / BINARY)
        self.assertIn("libQt6Widgets", loaded)
        self.assertNotRegex(loaded, "libQt6Network|libssl|libcrypto")

    def test_what_it_loads_later_is_named_too(self):
        self.assertIn("qt6-image-formats-plugins", self.names("Depends"))
        self.assertLessEqual({"libcanberra-pulse", "ca-certificates", "liblayershellqtinterface6", "qt6-wayland", "xdg-utils"}, self.names("Recommends"))

    def test_nothing_runs_when_it_is_installed_or_removed(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="zamber-control-"))
        run("dpkg-deb", "--control", package(), folder)
        self.assertEqual(set(tree(folder)), {"control", "md5sums"})


class JudgesTest(PackageTestCase):
    def test_lintian_finds_neither_errors_nor_warnings(self):
        run("lintian", "--allow-root", "--no-cfg", "--fail-on", "error,warning", package())

    def test_lintian_would_find_something(self):
        root = self.root / "broken"
        (root / "DEBIAN").mkdir(parents=True)
        (root / "DEBIAN" / "control").write_text("Package: broken\nVersion: 1\nArchitecture: all\nDescription: broken\n")
        run("dpkg-deb", "--root-owner-group", "--build", root, self.root / "broken.deb")
        self.assertIn("E: broken", run("lintian", "--allow-root", "--no-cfg", "--fail-on", "error",
                                       self.root / "broken.deb", status=2))

    def test_the_menu_entry_is_valid(self):
        self.assertEqual(run("desktop-file-validate", self.root / DESKTOP_ENTRY), "")

    def test_the_metainfo_is_valid(self):
        run("appstreamcli", "validate", "--no-net", "--pedantic", self.root / METAINFO)

    def test_the_man_page_is_free_of_warnings_and_fits_a_terminal(self):
        page = self.root / "zamber.1"
        page.write_bytes(self.man_page())
        environment = {"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "MANWIDTH": "80"}
        self.assertEqual(run("groff", "-man", "-ww", "-Tutf8", "-z", page, env=environment), "")
        lines = run("man", "--warnings", "-l", page, env=environment).splitlines()
        self.assertTrue(lines[0].startswith("ZAMBER(1)"), lines[0])  # warnings would come before
        self.assertIn("       zamber - clipboard history that lives in the tray", lines)
        self.assertLessEqual(max(map(len, lines)), 80)

    def test_the_screenshots_are_those_of_the_repository_in_their_true_sizes(self):
        images = ElementTree.parse(self.root / METAINFO).findall("screenshots/screenshot/image")
        self.assertEqual(len(images), 3)
        for image in images:
            path = SOURCES / "docs" / image.text.rsplit("/", 1)[1]
            size = struct.unpack(">II", path.read_bytes()[16:24])
            self.assertEqual((int(image.get("width")), int(image.get("height"))), size, path)


class VersionTest(PackageTestCase):
    """Version and build number are declared in one place, and everything else has them from there."""

    def test_package_changelog_metainfo_and_man_page_say_what_is_declared(self):
        version, build, day = declared()
        self.assertEqual(self.field("Version"), f"{version}-{build}")
        self.assertEqual(package().name, f"zamber_{version}-{build}_{self.field('Architecture')}.deb")
        changelog = gzip.decompress((self.root / DOCUMENTS / "changelog.Debian.gz").read_bytes()).decode()
        self.assertTrue(changelog.startswith(f"zamber ({version}-{build}) "), changelog)
        (release,) = ElementTree.parse(self.root / METAINFO).findall("releases/release")
        self.assertEqual((release.get("version"), release.get("date")), (version, day))
        self.assertIn(f'.TH ZAMBER 1 "{day}" "Zamber {version}" ', self.man_page().decode())

    def test_no_other_file_of_the_sources_declares_them(self):
        version, build, _ = declared()
        pattern = re.compile(rf"ZAMBER_VERSION=.*\d|ZAMBER_BUILD[= ]\"?{build}\b|[Vv]ersion[\" :=>]*v?{re.escape(version)}")
        if shutil.which("git") and (SOURCES / ".git").exists():
            names = run("git", "-C", SOURCES, "ls-files").splitlines()
        else:
            names = [str(path.relative_to(SOURCES)) for path in SOURCES.rglob("*") if path.is_file()]
        folders = ("app/", "platform/", "settings/", "update/", "packaging/", "popover/", "ui/", "install/", "clipboard/", "cmake/")
        looked_at = [name for name in names if name.startswith(folders) and name.endswith((".cpp", ".h", ".txt", ".cmake", ".in"))]
        self.assertGreater(len(looked_at), 50)
        for name in looked_at:
            text = (SOURCES / name).read_text()
            self.assertIsNone(pattern.search(text), f"{name}: {pattern.search(text)}")

    def test_the_menu_entry_starts_the_program_by_its_whole_path_and_asks_kwin_for_keys_and_windows(self):
        keys = entry_keys(self.root / DESKTOP_ENTRY)
        self.assertEqual((keys["Exec"], keys["TryExec"], keys["Icon"]), ("/usr/bin/zamber", "/usr/bin/zamber", ID))
        self.assertEqual(keys["X-KDE-Wayland-Interfaces"],
                         "org_kde_kwin_fake_input,org_kde_kwin_keystate,org_kde_plasma_window_management")
        keys = entry_keys(self.root / SERVICE)
        self.assertEqual((keys["Name"], keys["Exec"]), (ID, "/usr/bin/zamber"))


if __name__ == "__main__":
    unittest.main()
