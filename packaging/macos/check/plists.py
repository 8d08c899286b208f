#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""plists.py INFO ENTITLEMENTS CMAKELISTS: both are property lists, and the first says what it has to."""

import plistlib
import re
import sys

info_path, entitlements_path, cmake_path = sys.argv[1:]
with open(info_path, "rb") as file:
    info = plistlib.load(file)
with open(entitlements_path, "rb") as file:
    entitlements = plistlib.load(file)
with open(cmake_path, encoding="utf-8") as file:
    cmake = file.read()

expected = {
    "CFBundleIdentifier": "app.zamber.Zamber",
    "CFBundleExecutable": "Zamber",
    "CFBundleShortVersionString": re.search(r"VERSION (\d+\.\d+\.\d+)", cmake)[1],
    "CFBundleVersion": re.search(r"set\(ZAMBER_BUILD (\d+)\)", cmake)[1],
    "LSMinimumSystemVersion": "13.0",
    "LSUIElement": True,
}
wrong = {key: info.get(key) for key, value in expected.items() if info.get(key) != value}
if "Copyright" not in info.get("NSHumanReadableCopyright", ""):
    wrong["NSHumanReadableCopyright"] = info.get("NSHumanReadableCopyright")
if entitlements != {}:
    wrong["entitlements"] = entitlements
for key, value in expected.items():
    print(f"  {key}: {value}")
raise SystemExit(f"  not so: {wrong}" if wrong else 0)
