#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Runs a command in a private desktop: private_desktop.py [options] -- COMMAND …; see --help."""

import sys

from harness.__main__ import main

if __name__ == "__main__":
    sys.exit(main())
