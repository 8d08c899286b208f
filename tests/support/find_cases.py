# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Finds the classes of test cases in a folder's test_*.py, for CTest: each becomes one of its tests.

The modules are read, not imported, so that a machine without the packages of the desktop tests can list its others.
A class counts when it descends from unittest's and has a case, its own or inherited, and no `oldest_debian` that is
newer than this machine's: a release that has not got the partners of its cases. What it says of itself counts for its
CTest test: `timeout_seconds`, and `resource_lock` for what only one class at a time may use."""

import argparse
import ast
import dataclasses
import pathlib
import platform
import sys

TIMEOUT_SECONDS = 480  # each wait has a bound of its own; this is for a class that hangs on a busy machine


@dataclasses.dataclass
class Found:
    module: str
    name: str
    timeout_seconds: int
    resource_lock: str


class Sources:
    """The modules of some folders, each parsed once; the first folder that has a module counts."""

    def __init__(self, folders):
        self._folders = [pathlib.Path(folder) for folder in folders]
        self._modules = {}

    def module(self, name):
        if name not in self._modules:
            path = next((folder / f"{name}.py" for folder in self._folders if (folder / f"{name}.py").exists()), None)
            self._modules[name] = ast.parse(path.read_text(), path) if path else None
        return self._modules[name]

    def ancestry(self, module, name):
        """A class and all it descends from, nearest first: pairs of a base's full name and its definition, which is
        None when it is not ours."""
        tree = self.module(module)
        for node in tree.body if tree else ():
            if isinstance(node, ast.ClassDef) and node.name == name:
                yield f"{module}.{name}", node
                for base in node.bases:
                    if isinstance(base, ast.Attribute):
                        yield from self.ancestry(ast.unparse(base.value), base.attr)
                    else:
                        yield from self.ancestry(module, ast.unparse(base))
                return
            if isinstance(node, ast.ImportFrom) and any((alias.asname or alias.name) == name for alias in node.names):
                original = next(alias.name for alias in node.names if (alias.asname or alias.name) == name)
                yield from self.ancestry(node.module, original)
                return
        yield f"{module}.{name}", None


def attribute(ancestry, name, fallback):
    for _, definition in ancestry:
        for node in definition.body if definition else ():
            if isinstance(node, ast.Assign) and any(isinstance(target, ast.Name) and target.id == name
                                                    for target in node.targets):
                return ast.literal_eval(node.value)
    return fallback


def debian_version():
    """The number of this machine's release; what has none is newer than all that have, or another system."""
    try:
        release = platform.freedesktop_os_release()
    except OSError:
        return sys.maxsize
    number = release.get("VERSION_ID", "")
    return int(number) if release.get("ID") == "debian" and number.isdecimal() else sys.maxsize


def classes(folders, debian):
    """The classes of cases in the first folder; the others are where its modules find their imports."""
    sources = Sources(folders)
    for path in sorted(pathlib.Path(folders[0]).glob("test_*.py")):
        for node in sources.module(path.stem).body:
            if not isinstance(node, ast.ClassDef):
                continue
            ancestry = list(sources.ancestry(path.stem, node.name))
            is_case = any(name.startswith("unittest.") and name.endswith("TestCase") for name, _ in ancestry)
            has_case = any(isinstance(member, ast.FunctionDef) and member.name.startswith("test")
                           for _, definition in ancestry if definition for member in definition.body)
            if is_case and has_case and attribute(ancestry, "oldest_debian", 0) <= debian:
                yield Found(path.stem, node.name, attribute(ancestry, "timeout_seconds", TIMEOUT_SECONDS),
                            attribute(ancestry, "resource_lock", ""))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folders", nargs="+", help="the tests' own, then those that they import from")
    found = list(classes(parser.parse_args().folders, debian_version()))
    if not found:
        sys.exit("no test cases were found")
    if len({one.name for one in found}) < len(found):
        sys.exit(f"two classes have the same name: {sorted(one.name for one in found)}")
    for one in found:  # for CMake: a line a class, with a field that may be empty at its end
        print(f"{one.module},{one.name},{one.timeout_seconds},{one.resource_lock}")


if __name__ == "__main__":
    main()
