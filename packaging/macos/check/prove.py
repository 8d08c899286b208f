#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""prove.py FOLDER EXPECTED: takes a call out of an adapter, compiles it as FOLDER does, and sees that it is missed."""

import json
import os
import shlex
import subprocess
import sys
import tempfile

BREAKAGES = [  # adapter, what is taken out, what stands there instead, what is missed then
    ("MacApplication", "    [NSApp activateIgnoringOtherApps:YES];\n", "", "activateIgnoringOtherApps:"),
    ("MacDiskImageTool", ', @"-force" ]', " ]", "-force"),
    ("MacHotKeyCenter", "    InstallEventHandler(GetApplicationEventTarget(), hotKeyPressed, 1, &pressed, this, nullptr);\n",
     "    (void)hotKeyPressed, (void)pressed;\n", "InstallEventHandler"),
    ("MacKeystrokePoster", "        CGEventPost(kCGHIDEventTap, event);\n", "", "CGEventPost"),
    ("MacKeystrokePoster", "        CGEventSetFlags(event, kCGEventFlagMaskCommand);\n", "", "CGEventSetFlags"),
    ("MacLoginItem", "[SMAppService.mainAppService unregister", "[SMAppService.mainAppService register",
     "unregisterAndReturnError:"),
    ("MacPasteboard", "    [borrowed<NSPasteboard>(m_pasteboard) clearContents];\n", "", "clearContents"),
    ("MacPopover", "    get(m_popover).behavior = NSPopoverBehaviorTransient;\n", "", "setBehavior:"),
    ("MacStatusItem", "    [item.button sendActionOn:NSEventMaskLeftMouseUp | NSEventMaskRightMouseUp];\n", "", "sendActionOn:"),
    ("MacUserDefaults", "    [defaults addObserver:self forKeyPath:key options:NSKeyValueObservingOptionNew context:nullptr];\n",
     "", "addObserver:forKeyPath:options:context:"),
    ("MacWindows", "            systemWindow(widget->winId()).level = NSFloatingWindowLevel;\n", "            (void)widget;\n",
     "setLevel:"),
    ("MacWorkspace", "    configuration.createsNewApplicationInstance = YES;\n", "", "setCreatesNewApplicationInstance:"),
]


def broken(command, source, old, new, folder):
    """The folder with nothing but the object of the source as it is without the call."""
    with open(source, encoding="utf-8") as file:
        text = file.read()
    if text.count(old) != 1:
        raise SystemExit(f"  {source} has not exactly one of: {old.strip()}")
    path = os.path.join(folder, os.path.basename(source))
    with open(path, "w", encoding="utf-8") as file:
        file.write(text.replace(old, new))
    words = shlex.split(command["command"])
    words = words[1:] if os.path.basename(words[0]) == "ccache" else words
    words[words.index("-c") + 1] = path
    words[words.index("-o") + 1] = path + ".o"
    subprocess.run([*words, "-Wno-error"], cwd=command["directory"], check=True, stderr=subprocess.DEVNULL)


def main():
    build, expected = sys.argv[1:]
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = {os.path.basename(command["file"]): command for command in json.load(file)}
    survived = 0
    for adapter, old, new, missed in BREAKAGES:
        command = commands[adapter + ".mm"]
        with tempfile.TemporaryDirectory() as folder:
            broken(command, command["file"], old, new, folder)
            occurs = os.path.join(os.path.dirname(os.path.abspath(__file__)), "occurs.py")
            report = subprocess.run([sys.executable, occurs, "objects", expected, folder], capture_output=True, text=True)
        lines = [line for line in report.stdout.splitlines() if line.startswith(f"  MISSING {adapter}: ")]
        is_missed = report.returncode != 0 and len(lines) == 1 and f" {missed} " in lines[0]
        survived += not is_missed
        print(f"  {adapter} without {missed}: " + ("missed" if is_missed else f"NOT MISSED {lines}"))
    raise SystemExit(1 if survived else 0)


main()
