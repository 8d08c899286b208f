# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""One line of the program that could be broken, and the test that has to notice."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Breakage:
    name: str
    file: str
    text: str  # occurs in the file exactly once
    replacement: str
    test: str  # of tests/desktop as unittest names it, or a test program, a colon and a filter of its cases
