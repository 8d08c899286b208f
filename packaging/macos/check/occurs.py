#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Looks into Mach-O files for what has to be in them.

    occurs.py objects EXPECTED FOLDER    every line of EXPECTED occurs in the object of its name below FOLDER
    occurs.py program PROGRAM EXPECTED   what the program takes from outside is in the stubs of the system's frameworks,
                                         or is of a library for which there are no stubs
"""

import os
import re
import struct
import sys

MAGIC_64 = 0xFEEDFACF
SEGMENT_64, SYMBOL_TABLE = 0x19, 0x2
DYLIBS = {0xC, 0x80000018, 0x8000001F, 0x80000023}  # loaded, weak, re-exported, upward
UNDEFINED, TYPE_MASK, EXTERNAL, DEBUGGING = 0x0, 0x0E, 0x01, 0xE0
DYNAMIC_LOOKUP = 0xFE


class MachO:
    """A 64-bit little-endian Mach-O file: its sections, its symbols, the libraries it loads."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.data = file.read()
        magic, self.cpu, _, self.kind, commands, *_ = struct.unpack_from("<8I", self.data)
        if magic != MAGIC_64:
            raise SystemExit(f"{path} is no Mach-O file")
        self.sections, self.libraries, self.symbols = {}, [], []
        at = 32
        for _ in range(commands):
            command, size = struct.unpack_from("<2I", self.data, at)
            if command == SEGMENT_64:
                self._read_sections(at)
            elif command in DYLIBS:
                name = at + struct.unpack_from("<I", self.data, at + 8)[0]
                self.libraries.append(self.data[name : at + size].split(b"\0")[0].decode())
            elif command == SYMBOL_TABLE:
                self._read_symbols(at)
            at += size

    def _read_sections(self, at):
        count = struct.unpack_from("<I", self.data, at + 64)[0]
        for section in range(at + 72, at + 72 + 80 * count, 80):
            name = self.data[section : section + 16].rstrip(b"\0").decode()
            size, offset = struct.unpack_from("<QI", self.data, section + 40)
            self.sections[name] = self.sections.get(name, b"") + self.data[offset : offset + size]

    def _read_symbols(self, at):
        start, count, strings, _ = struct.unpack_from("<4I", self.data, at + 8)
        for entry in range(start, start + 16 * count, 16):
            name, kind, _, description, _ = struct.unpack_from("<IBBHQ", self.data, entry)
            end = self.data.index(b"\0", strings + name)
            if not kind & DEBUGGING:
                self.symbols.append((self.data[strings + name : end].decode(), kind, description >> 8))

    def undefined(self):
        """(name, ordinal of the library) of what comes from outside."""
        return [(name, ordinal) for name, kind, ordinal in self.symbols if kind & TYPE_MASK == UNDEFINED and kind & EXTERNAL]

    def texts(self, section):
        return set(self.sections.get(section, b"").decode(errors="replace").split("\0"))


def occurring(macho):
    """Everything of the file that an expectation may name, as "kind name"."""
    found = set()
    for name, _ in macho.undefined():
        if name.startswith("_OBJC_CLASS_$_"):
            found.add("class " + name.removeprefix("_OBJC_CLASS_$_"))
        elif name.startswith("_objc_msgSend$"):
            found.add("selector " + name.removeprefix("_objc_msgSend$"))
        else:
            found |= {kind + name.removeprefix("_") for kind in ("call ", "constant ")}
    defined = {name for name, kind, _ in macho.symbols if kind & TYPE_MASK != UNDEFINED}
    methods = {match[1] for match in (re.match(r"[-+]\[\S+ (\S+)\]$", name) for name in defined) if match}
    found |= {"method " + name for name in methods}
    # The section holds the names of the messages that are sent and of the methods that are defined.
    found |= {"selector " + name for name in macho.texts("__objc_methname") - methods}
    found |= {"text " + text for text in macho.texts("__cstring")}
    wide = b"".join(data for name, data in macho.sections.items() if name in ("__const", "__ustring"))
    found |= {"wide " + match.decode("utf-16-le") for match in re.findall(rb"(?:[\x20-\x7e]\0){3,}", wide)}
    return found


def expectations(path):
    """The expectations by object, in the file's order."""
    expected, lines = {}, []
    with open(path, encoding="utf-8") as file:
        for line in file:
            if not line.strip() or line.startswith("#"):
                continue
            if line.startswith(" "):
                lines.append(line.strip())
            else:
                lines = expected.setdefault(line.strip(), [])
    return expected


def objects_below(folder):
    found = {}
    for parent, _, files in os.walk(folder):
        for name in files:
            if name.endswith((".mm.o", ".cpp.o")):
                found[name.rsplit(".", 2)[0]] = os.path.join(parent, name)
    return found


def check_objects(expected_path, folder):
    objects, missing, count = objects_below(folder), [], 0
    for name, expected in expectations(expected_path).items():
        if name not in objects:
            missing.append(f"{name}: was not compiled")
            continue
        found = occurring(MachO(objects[name]))
        absent = [expectation for expectation in expected if expectation not in found]
        count += len(expected) - len(absent)
        print(f"  {name}: " + ", ".join(e.split(" ", 1)[1] for e in expected if e in found))
        missing += [f"{name}: {expectation} does not occur" for expectation in absent]
    return count, missing


# What begins so is of a framework or of the Objective-C runtime, and must be in its stubs.
FRAMEWORKS = re.compile(r"_(OBJC_(CLASS|METACLASS|EHTYPE)_\$_|objc_|NS|CF|kCF|CG|kCG|AX|kAX|SM|class_|imp_|sel_)")


def check_program(path, expected_path):
    program, missing, taken = MachO(path), [], {}
    names = {e.split(" ", 1)[1] for lines in expectations(expected_path).values() for e in lines if e.startswith(("call", "class"))}
    no_stubs = {"_OBJC_CLASS_$_SMAppService"}
    for name, ordinal in program.undefined():
        if ordinal != DYNAMIC_LOOKUP:
            library = os.path.basename(program.libraries[ordinal - 1])
            taken.setdefault(library, set()).add(name)
        elif name in no_stubs:
            taken.setdefault("ServiceManagement (no stubs)", set()).add(name)
        elif FRAMEWORKS.match(name) or (name.removeprefix("_") in names and not name.startswith("_dispatch_")):
            missing.append(f"{name} is in no stub")
        elif name.startswith(("__Z", "__ZT", "___cxa", "___gxx")):
            taken.setdefault("C++ libraries (no stubs)", set()).add(name)
        else:
            taken.setdefault("C libraries (no stubs)", set()).add(name)
    for library, symbols in sorted(taken.items()):
        shown = sorted(s for s in symbols if s.removeprefix("_OBJC_CLASS_$").lstrip("_") in names)
        print(f"  {library}: {len(symbols)}" + (": " + ", ".join(shown) if shown else ""))
    return len(program.undefined()) - len(missing), missing


def main():
    if len(sys.argv) != 4 or sys.argv[1] not in ("objects", "program"):
        raise SystemExit(__doc__)
    check = check_objects if sys.argv[1] == "objects" else check_program
    count, missing = check(*sys.argv[2:])
    for line in missing:
        print(f"  MISSING {line}")
    print(f"  {count} found, {len(missing)} missing")
    raise SystemExit(1 if missing or count == 0 else 0)


main()
