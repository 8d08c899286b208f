#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""How fast the popover is, from the key press to the last pixel, with histories of all sizes.

    bench/popover_cost.py [--runs N] [--only NAME] ZAMBER PROBE

ZAMBER is the program, PROBE the one of PopoverProbe.cpp. Everything happens on a private X server. Times are
milliseconds: the median, and the slowest in brackets. Measure on a quiet machine. Ends with 1 when a goal was missed by more than half.
"""

import argparse
import base64
import json
import pathlib
import statistics
import struct
import subprocess
import sys
import time
import zlib

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "desktop"))

from harness import PrivateDesktop, Zamber  # noqa: E402
from harness.waiting import wait_until  # noqa: E402
from hostile import HostileOwner  # noqa: E402

GOALS = {"mapped, warm": 4.6, "painted, warm": 9.4, "painted, first": 24.0, "key, 20": 2.2, "key, 10000": 5.0,
         "scroll": 16.0}
TOLERANCE = 1.5
WORDS = "the clipboard keeps what people copy from window report number http return value function image line".split()
KEY_CODES = {"k": 45, "e": 26, "p": 33, "BackSpace": 22, "Escape": 9, "Down": 116}
WHEEL_DOWN = 5
SETTLE_SECONDS = 2.0
PIECE_BYTES = 200_000
PIECES = 5_000  # more than can be sent while the popover opens


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def pictures(count, width=3840, height=2160):
    """4K pictures that compress about as well as screen shots; each differs from the others in its comment only."""
    row = bytes((x * 7 + y * 3) & 0xFF for x in range(width) for y in range(3))
    pixels = b"".join(b"\0" + row[3 * (y % 97):] + row[:3 * (y % 97)] for y in range(height))
    header = chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
    data = chunk(b"IDAT", zlib.compress(pixels, 6))
    for number in range(count):
        comment = chunk(b"tEXt", b"Comment\0" + str(number).encode())
        yield b"\x89PNG\r\n\x1a\n" + header + comment + data + chunk(b"IEND", b"")


def texts(count):
    for number in range(count):
        words = [WORDS[(number * 31 + place * 7 + place * place) % len(WORDS)] for place in range(4 + number % 14)]
        yield f"{number} " + " ".join(words) + ("\nand a second line" if number % 5 == 0 else "")


class Probe:
    """Presses keys on a desktop, and tells when the answer to each was on the screen."""

    def __init__(self, desktop, program):
        self._process = subprocess.Popen([program], env=desktop.environment, stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, text=True)

    def ask(self, question):
        self._process.stdin.write(question + "\n")
        self._process.stdin.flush()
        answer = json.loads(self._process.stdout.readline())
        if "error" in answer or (question == "open" and not answer["mapped"]):
            raise RuntimeError(f"{question}: {answer}")
        return answer

    def key(self, name):
        return self.ask(f"key {KEY_CODES[name]}")

    def stop(self):
        self._process.stdin.close()
        self._process.wait(10)


class Popover(Probe):
    """A running program on a desktop of its own, and the probe that presses its keys."""

    def __init__(self, desktop, binary, probe, contents):
        self.zamber = Zamber(desktop, binary)
        self.zamber.environment = {}  # nobody reads the screen
        self.zamber.write_preferences(maxItems=10000)
        self.zamber.data_folder.mkdir(parents=True)
        now = time.time()
        self.zamber.history_path.write_text(json.dumps([
            {"type": "text" if isinstance(content, str) else "image",
             "value": content if isinstance(content, str) else base64.b64encode(content).decode(),
             "timestamp": now - 60.0 * index, "isPinned": index in (3, 4)}
            for index, content in enumerate(contents)]))
        self.zamber.start()
        time.sleep(SETTLE_SECONDS)
        super().__init__(desktop, probe)

    def close(self):
        self.key("Escape")
        self.zamber.wait_until_closed()

    def stop(self):
        super().stop()
        self.zamber.stop()


def typed_keys(popover, runs):
    """The answers to letters that are typed into the search, with the popover open; they find ever less."""
    typed = []
    popover.key("k"), popover.key("BackSpace")
    for _ in range(runs):
        letters = [popover.key(letter) for letter in "kee"]
        typed += [letter for letter in letters if letter["drawings"]]
        for _ in "kee":
            popover.key("BackSpace")
    return typed


class Report:
    def __init__(self):
        self.missed = 0

    def tell(self, what, times, goal=None):
        median = statistics.median(times)
        verdict = ""
        if goal:
            if median > goal * TOLERANCE:
                self.missed += 1
            verdict = ("met" if median <= goal else "within" if median <= goal * TOLERANCE else "MISSED") + f" {goal:g}"
        print(f"{what:44} {median:8.2f} ms  ({max(times):.2f})  {verdict}", flush=True)


def measure(report, name, popover, runs):
    first = popover.ask("open")
    report.tell(f"{name}: first opening, mapped", [first["mapped"]])
    report.tell(f"{name}: first opening, painted", [first["complete"]], GOALS["painted, first"])
    popover.close()
    opened = []
    for _ in range(runs):
        opened.append(popover.ask("open"))
        popover.close()
    report.tell(f"{name}: opening, mapped", [one["mapped"] for one in opened], GOALS["mapped, warm"])
    report.tell(f"{name}: opening, painted", [one["complete"] for one in opened], GOALS["painted, warm"])

    popover.ask("open")
    typed = typed_keys(popover, max(2, runs // 3))
    if typed:
        goal = GOALS["key, 10000"] if name.startswith("10000") else GOALS["key, 20"] if name.startswith("20 ") else None
        report.tell(f"{name}: key press, first right frame", [one["first"] for one in typed], goal)
        report.tell(f"{name}: key press, last frame", [one["complete"] for one in typed])
    turned = [one for one in (popover.ask(f"button {WHEEL_DOWN}") for _ in range(runs)) if one["drawings"]]
    report.tell(f"{name}: a turn of the wheel, first frame", [one["first"] for one in turned], GOALS["scroll"])
    report.tell(f"{name}: a turn of the wheel, last frame", [one["complete"] for one in turned])
    popover.close()


def measure_disturbed(report, desktop, popover, runs):
    """The same beside an owner that does not answer, and while one sends hundreds of megabytes."""
    owner = HostileOwner(desktop)

    for what, offer in (("an owner hangs", {"silent": True}),
                        ("a large text arrives", {"endless": True, "incr": PIECE_BYTES, "pieces": PIECES})):
        opened = []
        for _ in range(runs):
            asked, ended = owner.requests().count("UTF8_STRING"), len(owner.notes("stopped"))
            owner.offer({"UTF8_STRING": offer})
            wait_until(lambda: owner.requests().count("UTF8_STRING") > asked, 5.0, "the owner to be asked")
            opened.append(popover.ask("open"))
            if len(owner.notes("stopped")) > ended:
                raise RuntimeError(f"{what}: it was over before the popover had been painted")
            popover.close()
            owner.offer({})  # what has arrived is dropped, so that no save follows
            if "incr" in offer:
                wait_until(lambda: len(owner.notes("stopped")) > ended, 30.0, "the rest to be sent")
        report.tell(f"{what}: opening, mapped", [one["mapped"] for one in opened], GOALS["mapped, warm"])
        report.tell(f"{what}: opening, painted", [one["complete"] for one in opened], GOALS["painted, warm"])


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=15)
    parser.add_argument("--only", default="", help="just the histories whose name contains this")
    parser.add_argument("zamber", type=lambda path: pathlib.Path(path).resolve())
    parser.add_argument("probe", type=lambda path: pathlib.Path(path).resolve())
    options = parser.parse_args()
    report = Report()
    histories = [(f"{count} texts", lambda count=count: texts(count)) for count in (20, 100, 1000, 10000)]
    histories.append(("100 images of 4K", lambda: pictures(100)))
    for name, contents in histories:
        if options.only not in name:
            continue
        with PrivateDesktop(accessibility=False) as desktop:
            popover = Popover(desktop, options.zamber, options.probe, contents())
            measure(report, name, popover, options.runs)
            if name == histories[0][0]:
                measure_disturbed(report, desktop, popover, options.runs)
            wait_until(popover.zamber.is_running, what="the program to be alive")
            popover.stop()
    return 1 if report.missed else 0


if __name__ == "__main__":
    sys.exit(main())
