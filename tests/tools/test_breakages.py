# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The lines that tests/mutations and tests/macos/mutations break are in the sources as they are. To break them takes
many minutes; that a change has moved one is seen here in none."""

import pathlib
import sys
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
sys.path += [str(TREE / "tests" / "mutations"), str(TREE / "tests" / "macos" / "mutations")]

import breakages as macos
from adapter_breakages import ADAPTER_BREAKAGES
from use_breakages import USE_BREAKAGES


class BreakagesTest(unittest.TestCase):
    def assert_apply(self, places):
        """Each text, of pairs of a file and a text, occurs in its file exactly once."""
        self.assertGreater(len(places), 50)
        for file, text in places:
            with self.subTest(file=str(file), text=text):
                self.assertEqual((TREE / file).read_text().count(text), 1)

    def test_those_of_the_program(self):
        self.assert_apply([(one.file, one.text) for one in ADAPTER_BREAKAGES + USE_BREAKAGES])

    def test_those_of_the_macos_adapters(self):
        # An adapter without a folder lies in platform/macos.
        self.assert_apply([(one.adapter if "/" in one.adapter else f"platform/macos/{one.adapter}", one.text)
                           for one in macos.BREAKAGES])


if __name__ == "__main__":
    unittest.main()
