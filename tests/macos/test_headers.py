#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Our headers in the place of a Mac's give no number that is not held against the system's headers as well: each of
their constants occurs in the file that both are compiled with."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
NUMBERS = ROOT / "packaging" / "macos" / "check" / "Numbers.mm"
HEADERS = sorted((ROOT / "tests" / "macos" / "include").rglob("*.h"))
CONSTANT = re.compile(r"^constexpr \w+ (\w+) = ", re.MULTILINE)
ENUMERATION = re.compile(r"\benum\b[^{;]*\{([^}]*)\}")


def constants(text):
    enumerators = (name for body in ENUMERATION.findall(text) for name in re.findall(r"(\w+)\s*=", body))
    return {*enumerators, *CONSTANT.findall(text)}


class HeadersTest(unittest.TestCase):
    def test_each_number_is_held_against_the_systems(self):
        held = set(re.findall(r"\w+", NUMBERS.read_text()))
        found = set()
        for header in HEADERS:
            with self.subTest(header=str(header.relative_to(ROOT))):
                mine = constants(header.read_text())
                found |= mine
                self.assertEqual(mine - held, set())
        self.assertGreater(len(found), 50)


if __name__ == "__main__":
    unittest.main()
