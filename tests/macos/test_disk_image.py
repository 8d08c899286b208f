#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What makes the disk image: the check of the bundle on made-up programs and libraries, and the order of the calls with
tools that write down how they were called."""

import os
import pathlib
import plistlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging" / "macos"
LLVM = pathlib.Path("/usr/lib/llvm-19/bin")
OTOOL = str(LLVM / "llvm-otool")
LIPO = str(LLVM / "llvm-lipo")
UNIVERSAL = ("arm64", "x86_64")


def run(command, **options):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True, check=False, **options)


class Folder(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="zamber-disk-image-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def make(self, *command):
        answer = run(command)
        self.assertEqual(answer.returncode, 0, answer.stderr)

    def library(self, path, name, architectures=UNIVERSAL, oldest="13.0", loads=(), rpaths=(), kind="-dylib"):
        """A Mach-O library, or a program, that loads those libraries, which are (file, name to be loaded by)."""
        path.parent.mkdir(parents=True, exist_ok=True)
        slices = []
        for architecture in architectures:
            source = self.folder / f"source-{architecture}.o"
            code = "int main(void) { return 0; }" if kind == "-execute" else f"int {path.stem.replace('-', '_').replace('.', '_')};"
            self.make("sh", "-c", f"echo '{code}' | {LLVM}/clang -target {architecture}-apple-macos{oldest} -x c -c - -o {source}")
            one = self.folder / f"slice-{architecture}"
            command = [LLVM / "ld64.lld", "-arch", architecture, "-platform_version", "macos", oldest, "14.0", kind, "-o", one, source]
            if kind == "-dylib":
                command += ["-install_name", name]
            for rpath in rpaths:
                command += ["-rpath", rpath]
            self.make(*command, *loads, "-undefined", "dynamic_lookup")
            slices.append(one)
        self.make(LLVM / "llvm-lipo", "-create", *slices, "-output", path)
        return path

    def stub(self, name):
        """What is loaded by that name, wherever it is."""
        return self.library(self.folder / "stubs" / name.strip("/@").replace("/", "-"), name)


class CheckBundleTest(Folder):
    def setUp(self):
        super().setUp()
        self.bundle = self.folder / "Zamber.app"
        self.library(self.bundle / "Contents/PlugIns/imageformats/libqtiff.dylib", "@rpath/libqtiff.dylib")

    def program(self, **options):
        return self.library(self.bundle / "Contents/MacOS/Zamber", "", kind="-execute", **options)

    def check(self, *architectures):
        return run([PACKAGING / "check-bundle", self.bundle, "13.0", *(architectures or UNIVERSAL)],
                   env={**os.environ, "OTOOL": OTOOL, "LIPO": LIPO})

    def assert_complains(self, words):
        answer = self.check()
        self.assertEqual(answer.returncode, 1, answer.stderr)
        self.assertIn(words, answer.stderr)

    def test_a_bundle_with_all_it_loads_is_good(self):
        inner = self.library(self.bundle / "Contents/Frameworks/libinner.dylib", "@rpath/libinner.dylib")
        self.program(loads=[inner, self.stub("/usr/lib/libSystem.B.dylib")], rpaths=["@executable_path/../Frameworks"])
        answer = self.check()
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))

    def test_a_system_that_is_newer_than_promised(self):
        self.program(oldest="14.2")
        self.assert_complains("Contents/MacOS/Zamber: wants macOS 14.2 (arm64), and 13.0 is promised")

    def test_a_library_of_a_newer_system(self):
        self.program()
        self.library(self.bundle / "Contents/Frameworks/libnew.dylib", "@rpath/libnew.dylib", oldest="13.1")
        self.assert_complains("Contents/Frameworks/libnew.dylib: wants macOS 13.1")

    def test_an_architecture_that_is_missing(self):
        self.program(architectures=("arm64",))
        self.assert_complains("Contents/MacOS/Zamber: is not there for x86_64")
        self.assertEqual(self.check("arm64").returncode, 0)

    def test_what_the_builder_has_and_others_have_not(self):
        for place in ("/opt/homebrew/lib", "/usr/local/lib"):
            self.program(loads=[self.stub(f"{place}/libicu.dylib")])
            self.assert_complains(f"loads {place}/libicu.dylib, which other Macs have not")
            self.program(rpaths=[place])
            self.assert_complains(f"searches in {place}")

    def test_a_library_that_no_path_of_search_leads_to(self):
        self.program(loads=[self.stub("@rpath/QtGone.dylib")], rpaths=["@executable_path/../Frameworks"])
        self.assert_complains("loads @rpath/QtGone.dylib, which is in none of its paths of search")

    def test_a_library_that_lies_in_the_bundle_where_nothing_searches(self):
        inner = self.library(self.bundle / "Contents/Frameworks/libinner.dylib", "@rpath/libinner.dylib")
        self.program(loads=[inner])
        self.assert_complains("Contents/MacOS/Zamber: loads @rpath/libinner.dylib, which is in none of its paths of search")

    def test_a_library_is_found_by_the_programs_path_of_search(self):
        inner = self.library(self.bundle / "Contents/Frameworks/libinner.dylib", "@rpath/libinner.dylib")
        self.library(self.bundle / "Contents/Frameworks/libouter.dylib", "@rpath/libouter.dylib", loads=[inner])
        self.program(rpaths=["@loader_path/../Frameworks"])
        self.assertEqual(self.check().stderr, "")

    def test_a_library_beside_the_file_that_is_not_there(self):
        self.program(loads=[self.stub("@loader_path/libgone.dylib")])
        self.assert_complains("loads @loader_path/libgone.dylib, which is not there")

    def test_a_library_by_a_path_of_its_own(self):
        self.program(loads=[self.stub("/Users/builder/libmine.dylib")])
        self.assert_complains("loads /Users/builder/libmine.dylib, which is neither in the bundle nor in the system")

    def test_without_the_plug_in_for_tiff(self):
        self.program()
        (self.bundle / "Contents/PlugIns/imageformats/libqtiff.dylib").unlink()
        self.assert_complains("has no plug-in for TIFF pictures")

    def test_an_empty_bundle(self):
        shutil.rmtree(self.bundle / "Contents/PlugIns")
        self.assert_complains("has no program in it")


class ImageFormatsTest(Folder):
    def configure(self):
        script = self.folder / "try.cmake"
        script.write_text(f'include("{PACKAGING}/ImageFormats.cmake")\nzamber_require_tiff("{self.folder}/plugins")\n')
        return run(["cmake", "-P", script])

    def test_the_build_fails_without_the_plug_in(self):
        answer = self.configure()
        self.assertNotEqual(answer.returncode, 0)
        self.assertIn("install Qt Image Formats", answer.stderr)
        plugin = self.folder / "plugins/imageformats/libqtiff.dylib"
        plugin.parent.mkdir(parents=True)
        plugin.touch()
        self.assertEqual(self.configure().returncode, 0)


class IconSetTest(Folder):
    """The rule for the icon, in a project of its own whose tools are stand-ins."""

    def setUp(self):
        super().setUp()
        self.tool("make_icons", 'mkdir "$2" && cp "$1" "$2/icon_16x16.png"')
        self.tool("iconutil", 'cat "$5"/* >"$4"')
        (self.folder / "picture.svg").write_text("one")
        (self.folder / "CMakeLists.txt").write_text(
            f"""cmake_minimum_required(VERSION 3.25)
            project(icons LANGUAGES NONE)
            add_executable(make_icons IMPORTED)
            set_target_properties(make_icons PROPERTIES IMPORTED_LOCATION {self.folder}/bin/make_icons)
            include({PACKAGING}/Icons.cmake)
            zamber_icon_set({self.folder}/picture.svg ${{CMAKE_BINARY_DIR}}/Zamber.icns)
            add_custom_target(all_of_it ALL DEPENDS ${{CMAKE_BINARY_DIR}}/Zamber.icns)
            """)

    def tool(self, name, body):
        path = self.folder / "bin" / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(f'#!/bin/sh\necho "{name} $*" >>{self.folder}/calls\n{body}\n')
        path.chmod(0o755)

    def cmake(self, *arguments):
        return run(["cmake", *arguments], env={**os.environ, "PATH": f"{self.folder}/bin:{os.environ['PATH']}"})

    def build(self):
        build = self.folder / "build"
        for arguments in (["-G", "Ninja", "-S", self.folder, "-B", build], ["--build", build]):
            answer = self.cmake(*arguments)
            self.assertEqual(answer.returncode, 0, answer.stdout + answer.stderr)
        return (build / "Zamber.icns").read_text()

    def test_the_sizes_are_drawn_and_put_together_by_the_systems_tool(self):
        self.assertEqual(self.build(), "one")
        build = self.folder / "build"
        self.assertEqual((self.folder / "calls").read_text().splitlines(), [
            f"make_icons {self.folder}/picture.svg {build}/Zamber.iconset",
            f"iconutil --convert icns --output {build}/Zamber.icns {build}/Zamber.iconset",
        ])

    def test_a_picture_that_has_changed_is_drawn_again(self):
        self.build()
        picture = self.folder / "picture.svg"
        picture.write_text("two")
        later = picture.stat().st_mtime + 10
        os.utime(picture, (later, later))
        self.assertEqual(self.build(), "two")

    def test_without_the_systems_tool_the_build_stops(self):
        (self.folder / "bin/iconutil").unlink()
        answer = self.cmake("-G", "Ninja", "-S", self.folder, "-B", self.folder / "build")
        self.assertNotEqual(answer.returncode, 0)
        self.assertIn("ZAMBER_ICONUTIL", answer.stderr)


class MakeDiskImageTest(Folder):
    """The script, whole, where every tool of a Mac is a stand-in that writes down its call."""

    def setUp(self):
        super().setUp()
        self.calls = self.folder / "calls"
        self.root = self.folder / "root"
        app = self.root / "build/release/Zamber.app"
        self.library(app / "Contents/MacOS/Zamber", "", kind="-execute")
        (app / "Contents/Info.plist").write_bytes(plistlib.dumps({}))
        self.plugin = app / "Contents/PlugIns/imageformats/libqtiff.dylib"
        self.library(self.plugin, "@rpath/libqtiff.dylib")
        (app / "Contents/Frameworks").mkdir()
        tools = {"uname": "echo Darwin", "codesign": "", "hdiutil": "", "spctl": "",
                 "ditto": 'case $1 in -c) : >"$5" ;; *) cp -R "$1" "$2" ;; esac',
                 "xcrun": f'tool=$1; shift; case $tool in otool) exec {OTOOL} "$@" ;; lipo) exec {LIPO} "$@" ;; esac'}
        for name, body in tools.items():
            self.tool(self.folder / "bin" / name, body)
        self.tool(self.folder / "qt/bin/macdeployqt", "")
        # The only tool that the script names by its whole path.
        self.script = self.folder / "packaging/make-disk-image"
        shutil.copytree(PACKAGING, self.script.parent)
        text = self.script.read_text()
        self.assertEqual(text.count("/usr/libexec/PlistBuddy"), 2)
        self.script.write_text(text.replace("/usr/libexec/PlistBuddy", "PlistBuddy"))
        self.tool(self.folder / "bin/PlistBuddy", 'case $2 in *Minimum*) echo 13.0 ;; *) echo 1.2.3 ;; esac')

    def tool(self, path, body):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f'#!/bin/sh\necho "{path.name} $*" >>{self.calls}\n{body}\n')
        path.chmod(0o755)

    def run_script(self, **environment):
        wanted = {"ZAMBER_SIGNING_IDENTITY": "Someone", "ZAMBER_NOTARY_PROFILE": "profile", "ZAMBER_QT": self.folder / "qt",
                  "ZAMBER_ROOT": self.root, "PATH": f"{self.folder}/bin:/usr/bin:/bin", "TMPDIR": self.folder} | environment
        return run([self.script], env={name: str(value) for name, value in wanted.items() if value is not None})

    def called(self, *tools):
        lines = self.calls.read_text().splitlines() if self.calls.exists() else []
        shown = []
        for line in lines:
            words = [word.rpartition("/")[2] for word in line.split()]
            if words[0] in tools and words[1:2] not in (["otool"], ["lipo"]):
                shown.append(" ".join(words))
        return shown

    def test_both_are_signed_notarised_and_stapled_in_that_order(self):
        answer = self.run_script()
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertEqual(self.called("macdeployqt", "codesign", "xcrun", "hdiutil", "spctl"), [
            "macdeployqt Zamber.app -no-strip -always-overwrite",
            "codesign --force --sign Someone --timestamp --options runtime libqtiff.dylib",
            "codesign --force --sign Someone --timestamp --options runtime --entitlements Zamber.entitlements Zamber.app",
            "codesign --verify --deep --strict --verbose=2 Zamber.app",
            "xcrun notarytool submit Zamber.zip --keychain-profile profile --wait",
            "xcrun stapler staple Zamber.app",
            "xcrun stapler validate Zamber.app",
            "hdiutil create -volname Zamber -srcfolder image -fs HFS+ -format UDZO -ov Zamber-1.2.3.dmg",
            "codesign --force --sign Someone --timestamp Zamber-1.2.3.dmg",
            "xcrun notarytool submit Zamber-1.2.3.dmg --keychain-profile profile --wait",
            "xcrun stapler staple Zamber-1.2.3.dmg",
            "xcrun stapler validate Zamber-1.2.3.dmg",
            "spctl --assess --type open --context context:primary-signature --verbose Zamber-1.2.3.dmg",
        ])

    def test_for_this_mac_alone_nothing_is_notarised(self):
        answer = self.run_script(ZAMBER_SIGNING_IDENTITY="-", ZAMBER_NOTARY_PROFILE=None)
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertEqual(self.called("xcrun", "spctl"), [])
        self.assertIn("codesign --force --sign - --timestamp=none libqtiff.dylib", self.called("codesign"))

    def test_a_bundle_that_would_not_start_elsewhere_is_not_signed(self):
        self.library(self.root / "build/release/Zamber.app/Contents/MacOS/Zamber", "", kind="-execute", oldest="15.0")
        answer = self.run_script()
        self.assertEqual(answer.returncode, 1)
        self.assertIn("would not start on other Macs", answer.stderr)
        self.assertEqual(self.called("codesign", "hdiutil"), [])

    def test_what_is_missing_is_named(self):
        for name in ("ZAMBER_SIGNING_IDENTITY", "ZAMBER_NOTARY_PROFILE", "ZAMBER_QT"):
            answer = self.run_script(**{name: None})
            self.assertEqual(answer.returncode, 1)
            self.assertIn(f"{name} is not set", answer.stderr)
        answer = self.run_script(ZAMBER_QT=self.folder)
        self.assertIn("bin/macdeployqt", answer.stderr)
        self.assertEqual(self.called("codesign", "hdiutil"), [])


if __name__ == "__main__":
    unittest.main()
