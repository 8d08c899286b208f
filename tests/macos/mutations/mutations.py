#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Breaks the macOS adapters one line at a time and sees whether the tests on stand-ins notice.

Usage: tests/macos/mutations/mutations.py [--build FOLDER] [--jobs N] [NAME …]

The tests have to be built (preset "macos") and to pass with the adapters as they are. Each breakage is compiled beside
the build and linked before the library that has the adapter as it is, or in the place of its object. The exit status is
0 when every breakage was noticed; a text that does not occur in its file exactly once, or does not compile, counts as
not noticed. NAME picks breakages by a part of the adapter's name.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

from breakages import BREAKAGES

ROOT = pathlib.Path(__file__).resolve().parents[3]
PROGRAMS = {kind: f"tests/macos_{kind}_tests" for kind in ("recorded", "contract", "program")}
SECONDS = 120  # of a program of tests, which may hang on what is broken
ADAPTERS = ROOT / "platform" / "macos"
# What the adapters include and takes the most time, compiled once.
HEADERS = """#include <QApplication>
#include <QPainter>
#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>
#include <functional>
#include <map>
"""


def run(command, folder, environment=None, timeout=None):
    return subprocess.run(command, cwd=folder, env=environment, capture_output=True, text=True, timeout=timeout,
                          stdin=subprocess.DEVNULL, check=False)


class Build:
    def __init__(self, folder):
        self.folder = folder
        self.common = tempfile.TemporaryDirectory(prefix="zamber-headers-")
        entries = json.loads((folder / "compile_commands.json").read_text())
        self.compilations = {entry["file"]: entry for entry in entries}
        self.links = {kind: self.link_command(program) for kind, program in PROGRAMS.items()}
        headers = pathlib.Path(self.common.name) / "headers.h"
        headers.write_text(HEADERS)
        any_adapter = str(next(ADAPTERS.glob("*.mm")))
        run([*self.compile_command(any_adapter, headers.with_suffix(".pch")), "-x", "objective-c++-header", headers],
            folder).check_returncode()
        self.headers = headers.with_suffix(".pch")

    def compile_command(self, source, output):
        """How that source is compiled, without its name."""
        command = [part for part in shlex.split(self.compilations[source]["command"]) if not part.endswith("ccache")]
        command[command.index("-o") + 1] = str(output)
        command.remove("-c")
        command.remove(source)
        return [*command, "-Wno-error", "-g0"]

    def link_command(self, program):
        lines = run(["ninja", "-t", "commands", "-s", program], self.folder).stdout.splitlines()
        return [part for part in shlex.split(lines[-1]) if part not in (":", "&&")]

    def passes(self, program, tests):
        """None when it does, else what it said."""
        environment = {key: value for key, value in os.environ.items()
                       if key not in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}
        environment |= {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
        try:
            answer = run([str(program), f"--gtest_filter={tests}"], self.folder, environment, SECONDS)
        except subprocess.TimeoutExpired:
            return f"does not end within {SECONDS} s"
        if " 0 tests from" in answer.stdout:
            return "no such test"
        return None if answer.returncode == 0 else answer.stdout + answer.stderr

    def compiled_file(self, source):
        """The source itself, or what CMake has put together of all sources of its room."""
        if str(source) in self.compilations:
            return source
        return next(pathlib.Path(file) for file in self.compilations
                    if "/Unity/" in file and f'"{source}"' in pathlib.Path(file).read_text())

    def noticed(self, breakage):
        source = ROOT / ("" if "/" in breakage.adapter else "platform/macos") / breakage.adapter
        original = source.read_text()
        if (times := original.count(breakage.text)) != 1:
            return False, f"the text occurs {times} times"
        with tempfile.TemporaryDirectory(prefix="zamber-mutation-") as name:
            workspace = pathlib.Path(name)
            broken = workspace / source.name
            broken.write_text(original.replace(breakage.text, breakage.replacement))
            compiled = self.compiled_file(source)
            to_compile = broken
            if compiled != source:
                to_compile = workspace / compiled.name
                to_compile.write_text(compiled.read_text().replace(f'"{source}"', f'"{broken}"'))
            ready = ["-include-pch", self.headers] if source.suffix == ".mm" and source.parent == ADAPTERS else []
            answer = run([*self.compile_command(str(compiled), workspace / "broken.o"), *ready, "-iquote", source.parent,
                          "-c", to_compile], self.folder)
            if answer.returncode:
                return False, "does not compile: " + answer.stderr[-1500:]
            program = workspace / "tests"
            as_it_is = shlex.split(self.compilations[str(compiled)]["command"])
            link = [part for part in self.links[breakage.program] if part != as_it_is[as_it_is.index("-o") + 1]]
            link[link.index("-o") + 1] = str(program)
            link.insert(link.index("-o"), str(workspace / "broken.o"))
            answer = run(link, self.folder)
            if answer.returncode:
                return False, "does not link: " + answer.stderr[-1500:]
            said = self.passes(program, breakage.tests)
            return said is not None and said != "no such test", said or "passes"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build" / "macos")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    build = Build(options.build.resolve())
    for program in PROGRAMS.values():
        if (said := build.passes(build.folder / program, "*")) is not None:
            raise SystemExit(f"{program} fails with the adapters as they are:\n" + said[-3000:])
    chosen = [each for each in BREAKAGES if not options.names or any(name in each.adapter for name in options.names)]
    survived = 0
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for breakage, (was_noticed, said) in zip(chosen, pool.map(build.noticed, chosen)):
            line = breakage.text.strip().splitlines()[0]
            print(f"{'noticed' if was_noticed else 'NOT NOTICED'}: {breakage.adapter}: {line}", flush=True)
            if not was_noticed:
                survived += 1
                print("    " + said[-1500:].replace("\n", "\n    "), flush=True)
    print(f"{len(chosen) - survived} of {len(chosen)} noticed")
    sys.exit(1 if survived or not chosen else 0)


main()
