#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Runs inside a terminal and writes every byte that the terminal sends to a file, line discipline switched off."""

import os
import sys
import tty

tty.setraw(0)
with open(sys.argv[1], "wb", buffering=0) as stream:
    while True:
        data = os.read(0, 65536)
        if not data:
            break
        stream.write(data)
