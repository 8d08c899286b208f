#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Breaks the program one line at a time and sees whether the tests notice.

Usage: tests/mutations/mutations.py [--build FOLDER] [--jobs N] [NAME …]

Each breakage of adapter_breakages.py and use_breakages.py is compiled beside the build, which is brought up to date
before and else left alone as the sources are; the program is linked with the one object file exchanged, and the named
test run with it. First all those tests have to pass with the program as it is. The exit status is 0 when every breakage
was noticed; a text that does not occur in its file exactly once, or does not compile, counts as not noticed. NAME picks
breakages by a part of their names.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile
import time

from adapter_breakages import ADAPTER_BREAKAGES
from use_breakages import USE_BREAKAGES

ROOT = pathlib.Path(__file__).resolve().parents[2]
DESKTOP_TESTS = ROOT / "tests" / "desktop"
BREAKAGES = ADAPTER_BREAKAGES + USE_BREAKAGES
TEST_SECONDS = 150
BUILD_SECONDS = 1200
PYTHON = "/usr/bin/python3"


class Unusable(Exception):
    """The breakage says nothing: it does not apply or does not build."""


class Build:
    def __init__(self, folder, programs):
        self.folder = folder
        self._run(["cmake", "--build", str(folder), "--target", *programs], BUILD_SECONDS)
        self._compilations = {entry["file"]: entry for entry in
                              json.loads((folder / "compile_commands.json").read_text())}
        self.programs = {name: folder / ("" if name == "zamber" else "tests") / name for name in programs}

    def program_with(self, breakage, program, workspace):
        """Builds the program with the breakage in the workspace; returns its path."""
        source = ROOT / breakage.file
        original = source.read_text()
        if (times := original.count(breakage.text)) != 1:
            raise Unusable(f"the text occurs {times} times in {breakage.file}")
        broken = workspace / source.name
        broken.write_text(original.replace(breakage.text, breakage.replacement))

        entry = self._compilations[str(source)]
        command = shlex.split(entry["command"])
        output = command.index("-o") + 1
        object_file = pathlib.Path(command[output])
        new_object = workspace / object_file.name
        command[output] = str(new_object)
        command[command.index(str(source))] = str(broken)
        # A breakage may leave something unused; that is not what is to be found out.
        self._run([*command, "-Wno-error"], TEST_SECONDS, entry["directory"])

        target = object_file.parent.name.removesuffix(".dir")
        library = object_file.parents[2] / f"lib{target}.a"
        new_library = workspace / library.name
        shutil.copy(self.folder / library, new_library)
        self._run(["ar", "r", str(new_library), str(new_object)], TEST_SECONDS)
        result = workspace / program
        link = self._link_command(program)
        link[link.index("-o") + 1] = str(result)
        self._run([str(new_library) if part == str(library) else part for part in link], TEST_SECONDS, self.folder)
        return result

    def _link_command(self, program):
        name = str(self.programs[program].relative_to(self.folder))
        lines = subprocess.run(["ninja", "-C", str(self.folder), "-t", "commands", "-s", name], check=True,
                               capture_output=True, text=True).stdout.splitlines()
        parts = shlex.split(lines[-1])
        return [part for part in parts if part not in (":", "&&")]

    @staticmethod
    def _run(command, seconds, folder=None):
        answer = subprocess.run(command, cwd=folder, capture_output=True, text=True, timeout=seconds, check=False)
        if answer.returncode:
            raise Unusable(f"{command[0]} failed:\n{answer.stdout[-2000:]}{answer.stderr[-4000:]}")


def program_of(test):
    program, colon, _ = test.partition(":")
    return program if colon else "zamber"


def passes(test, program):
    """Whether the test passes with that program, and what it wrote."""
    environment = {**os.environ, "PYTHONDONTWRITEBYTECODE": "1"}
    _, colon, cases = test.partition(":")
    if not colon:
        environment["ZAMBER_BINARY"] = str(program)
        command = [PYTHON, "-m", "unittest", test]
    elif program_of(test) == "x11_contract_tests":
        command = [PYTHON, DESKTOP_TESTS / "private_desktop.py", "--timeout", str(TEST_SECONDS - 30), "--", program,
                   f"--gtest_filter={cases}"]
    else:
        command = [program, f"--gtest_filter={cases}"]
    process = subprocess.Popen([*map(str, command)], cwd=DESKTOP_TESTS, env=environment, text=True,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    try:
        output, _ = process.communicate(timeout=TEST_SECONDS)
    except subprocess.TimeoutExpired:
        process.terminate()
        output, _ = process.communicate()
    return process.returncode == 0 and "Running 0 tests" not in output, output


def passes_in_the_end(test, program):
    """The same for the program as it is, once more after a failure: a desktop may be slow for once."""
    passed, output = passes(test, program)
    return (True, output) if passed else passes(test, program)


def try_breakage(build, breakage):
    """Whether it was noticed, and what there is to say about it."""
    with tempfile.TemporaryDirectory(prefix="zamber-mutation-") as folder:
        try:
            program = build.program_with(breakage, program_of(breakage.test), pathlib.Path(folder))
        except (Unusable, subprocess.TimeoutExpired) as failure:
            return False, f"unusable: {failure}"
        # What a breakage lets happen may depend on who comes first: it has survived when the test passes twice.
        survived = all(passes(breakage.test, program)[0] for _ in range(2))
        return not survived, "SURVIVED" if survived else "noticed"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build" / "release", help="a configured build")
    parser.add_argument("--jobs", type=int, default=2, help="breakages tried side by side")
    parser.add_argument("names", nargs="*", metavar="NAME")
    options = parser.parse_args()
    chosen = [b for b in BREAKAGES if not options.names or any(name in b.name for name in options.names)]
    if not chosen:
        parser.error("no breakage has such a name")

    began = time.monotonic()
    build = Build(options.build.resolve(), sorted({program_of(breakage.test) for breakage in chosen}))
    good = True
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        tests = sorted({breakage.test for breakage in chosen})
        answers = pool.map(lambda t: passes_in_the_end(t, build.programs[program_of(t)]), tests)
        for test, (passed, output) in zip(tests, answers):
            if not passed:
                good = False
                print(f"fails also without any breakage: {test}\n{output[-3000:]}", flush=True)
        if not good:
            return 1
        width = max(len(breakage.name) for breakage in chosen)
        for breakage, (noticed, word) in zip(chosen, pool.map(lambda b: try_breakage(build, b), chosen)):
            good = good and noticed
            print(f"{breakage.name:{width}}  {word:8}  {breakage.test.split('.', 1)[-1]}", flush=True)
    print(f"{len(chosen)} breakages, {'all noticed' if good else 'NOT ALL NOTICED'}; "
          f"{time.monotonic() - began:.0f} s")
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
