#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""An hour's use at speed: copies of all kinds, hot keys, pastes, changed preferences, panels and window managers that
restart. Reports what the program holds on to, from one lap to the next, and every entry that got lost.

    tests/soak/soak.py [--minutes N] [--binary PATH]

Needs what ./test needs, touches nothing of the session it is started from, and ends with status 0 when nothing grew
and nothing was lost. It is no part of ./test: it takes as long as it is told to.
"""

import argparse
import collections
import itertools
import pathlib
import random
import signal
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "desktop"))

from Xlib.ext import res  # noqa: E402

from harness import (  # noqa: E402
    Editor, NotifierHost, PrivateDesktop, SelectionOwner, Terminal, Zamber, convert, default_binary, png_bytes, wait_until,
)

WARM_UP_LAPS = 3
MAX_ITEMS = 20
# The growth that is allowed over all laps after the warm-up: the allocator's leftovers, not a leak.
MOST_GROWTH_KIBIBYTES = 2048
POLL_SECONDS = 0.55
LONG_TEXT_CHARACTERS = 2_000_000


class Measures:
    """The program's memory, threads and files at one moment."""

    def __init__(self, desktop, pid):
        rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
        sizes = {line.split(":")[0]: int(line.split()[1]) for line in rollup[1:]}
        self.pss = sizes["Pss"]
        self.private = sizes["Private_Clean"] + sizes["Private_Dirty"]
        self.descriptors = len(list(pathlib.Path(f"/proc/{pid}/fd").iterdir()))
        self.threads = len(list(pathlib.Path(f"/proc/{pid}/task").iterdir()))
        self.resources = self._resources(desktop.display, pid)

    @staticmethod
    def _resources(display, pid):
        """How many things of each kind the X server keeps for the program, over all its connections."""
        counts = collections.Counter()
        ids = display.res_query_client_ids([{"client": 0, "mask": res.LocalClientPIDMask}]).ids
        for client in [entry.spec.client for entry in ids if list(entry.value) == [pid]]:
            for kind in display.res_query_client_resources(client).types:
                counts[display.get_atom_name(kind.resource_type)] += kind.count
        return counts

    def line(self):
        return (f"pss {self.pss} KiB  private {self.private} KiB  descriptors {self.descriptors}  "
                f"threads {self.threads}  X resources {sum(self.resources.values())}")


class Soak:
    def __init__(self, desktop, zamber):
        self.desktop, self.zamber = desktop, zamber
        self.random = random.Random(20260102)
        self.numbers = itertools.count(1)
        self.done = collections.Counter()
        self.lost = []
        self.pinned = []
        self.pixels = png_bytes(640, 400, compression=6)
        self.editor = Editor(desktop)
        self.terminal = None
        self.owner = SelectionOwner(desktop)
        self.host = None

    # Copies

    def copy_text(self, text):
        self.owner.offer({"UTF8_STRING": text.encode()})

    def expect_newest(self, content, what):
        """The history shows up in its file; another entry in its place is a lost one."""
        try:
            wait_until(lambda: self.zamber.history()[:1] == [content], 8.0)
            self.done["captured and saved"] += 1
        except AssertionError:
            self.lost.append(what)

    def copy_texts(self):
        last = None
        for _ in range(150):
            number = next(self.numbers)
            last = f"text {number} " + "größe 漢字 👍 " * self.random.randrange(1, 30)
            self.copy_text(last)
            self.done["texts copied"] += 1
            time.sleep(0.01)
        self.expect_newest(last, "the last of a burst of texts")

    def copy_each_and_expect_it(self):
        names = []
        for _ in range(6):
            text = f"one by one {next(self.numbers)}"
            self.copy_text(text)
            self.done["texts copied"] += 1
            names.append(text)
            time.sleep(POLL_SECONDS)
        try:
            wait_until(lambda: self.zamber.history()[: len(names)] == names[::-1], 8.0)
            self.done["captured and saved"] += len(names)
        except AssertionError:
            got = self.zamber.history()[: len(names)]
            self.lost += [name for name in names if name not in got] or ["the order of texts"]

    def copy_images(self):
        for kind in ("png", "tiff", "jpeg", "bmp"):
            picture = png_bytes(320, 200, seed=next(self.numbers) % 250)
            data = picture if kind == "png" else convert(picture, "png", kind)
            self.owner.offer({f"image/{kind}": data})
            self.done["pictures copied"] += 1
            time.sleep(POLL_SECONDS)
        try:
            wait_until(lambda: all(isinstance(entry, bytes) for entry in self.zamber.history()[:4]), 8.0)
            self.done["captured and saved"] += 4
        except AssertionError:
            self.lost.append("pictures")

    def copy_long_text(self):
        text = f"{next(self.numbers)} " + "x" * LONG_TEXT_CHARACTERS
        copier = self.desktop.clipboard.copy_text(text)
        self.done["long texts copied"] += 1
        self.expect_newest(text, "a long text")
        copier.stop()  # the program goes on serving it
        try:
            wait_until(lambda: self.desktop.clipboard.text() == text, 5.0)
        except AssertionError:
            self.lost.append("a long text whose owner has gone")

    def copy_what_is_not_to_be_kept(self):
        before = self.zamber.history()
        self.owner.offer({"UTF8_STRING": b"a secret", "x-kde-passwordManagerHint": b"secret"})
        time.sleep(POLL_SECONDS)
        self.owner.offer({"text/uri-list-of-another-kind": b"nothing for us"})
        time.sleep(POLL_SECONDS)
        self.owner.offer({"UTF8_STRING": None})  # never answers
        time.sleep(POLL_SECONDS)
        self.done["odd copies"] += 3
        if "a secret" in self.zamber.history() or len(self.zamber.history()) < len(before):
            self.lost.append("what an odd copy should have left alone")

    # Pastes and openings

    def open_and_close(self):
        for _ in range(15):
            self.zamber.open_popover()
            self.desktop.keyboard.tap("Down", "Down", "Up")
            # The typed search stays for the next opening.
            self.desktop.keyboard.type_text(self.random.choice(["text", "one ", "zzzz"]))
            self.desktop.keyboard.tap(*["BackSpace"] * 4)
            self.desktop.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
            self.desktop.wait_until_active(self.editor.window)
            self.done["openings"] += 1

    def paste(self):
        for position in (0, 1, 2):
            text = f"pasted {next(self.numbers)} "
            self.copy_text(text)
            self.expect_newest(text, "a text to be pasted")
            before = self.editor.text()
            self.zamber.open_popover()
            self.desktop.keyboard.tap("Return")
            self.expect_in_editor(before + text, f"paste {position}")
            self.zamber.wait_until_closed()

    def quick_paste(self):
        for _ in range(4):
            expected = self.zamber.history()[1]
            if isinstance(expected, bytes) or len(expected) > 1000:
                return
            before = self.editor.text()
            self.desktop.keyboard.chord("Super_L", "Shift_L", "2")
            self.expect_in_editor(before + expected, "quick paste")
            self.done["quick pastes"] += 1

    def expect_in_editor(self, text, what):
        try:
            wait_until(lambda: self.editor.text() == text, 6.0)
            self.done["pastes"] += 1
        except AssertionError:
            self.lost.append(what)

    def paste_into_terminal(self):
        terminal = Terminal(self.desktop)
        text = f"terminal {next(self.numbers)}"
        self.copy_text(text)
        self.expect_newest(text, "a text for the terminal")
        self.zamber.open_popover()
        self.desktop.keyboard.tap("Return")
        try:
            terminal.wait_for(text.encode())
            self.done["pastes"] += 1
        except AssertionError:
            self.lost.append("a paste into the terminal")
        terminal.quit()
        self.desktop.activate(self.editor.window)

    # Everything around

    def change_preferences(self):
        for size, theme, hide in itertools.product(("compact", "normal", "large"), ("light", "dark", "auto"), (True, False)):
            self.zamber.write_preferences(popoverSize=size, appTheme=theme, hideSensitive=hide, quickPasteEnabled=True,
                                          maxItems=MAX_ITEMS, playSoundOnPaste=hide)
            self.done["preferences written"] += 1
            time.sleep(0.05)

    def restart_tray(self):
        for _ in range(3):
            self.desktop.tray_host.stop()
            self.desktop.start_tray()
            wait_until(lambda: self.desktop.tray_icon(self.zamber.pid), 10.0, "the icon in the tray")
            self.done["trays restarted"] += 1

    def restart_notifier_host(self):
        for _ in range(3):
            host = NotifierHost(self.desktop)
            host.wait_for_item()
            host.click()
            self.zamber.wait_for_popover()
            host.click()
            self.zamber.wait_until_closed()
            host.open_menu()
            host.stop()
            self.done["notifier hosts restarted"] += 1
        wait_until(lambda: self.desktop.tray_icon(self.zamber.pid), 10.0, "the icon in the tray again")

    def open_menu(self):
        for _ in range(5):
            icon = wait_until(lambda: self.desktop.tray_icon(self.zamber.pid), 10.0, "the icon in the tray")
            self.desktop.mouse.click(icon.x + icon.width // 2, icon.y + icon.height // 2, 3)
            wait_until(self.zamber.menu, 5.0, "the menu")
            self.desktop.keyboard.tap("Escape")
            wait_until(lambda: self.zamber.menu() is None, 5.0, "the menu to be gone")
            time.sleep(0.1)
            self.done["menus"] += 1

    def restart_window_manager(self):
        self.desktop.window_manager_process.stop()
        self.desktop.start_window_manager()
        self.desktop.activate(self.editor.window)
        self.done["window managers restarted"] += 1

    def start_again(self):
        for _ in range(3):
            self.zamber.activate_by_bus()
            self.zamber.wait_for_popover()
            self.desktop.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
            self.done["starts of another"] += 1

    def change_layout(self):
        for layouts in ("us,ru", "de", "us"):
            self.desktop.set_layout(layouts)
            self.done["layouts changed"] += 1

    def lap(self):
        self.desktop.activate(self.editor.window)
        for part in (
            self.copy_texts, self.copy_each_and_expect_it, self.open_and_close, self.copy_images, self.open_menu, self.paste,
            self.quick_paste, self.copy_long_text, self.copy_what_is_not_to_be_kept, self.change_preferences,
            self.paste_into_terminal, self.restart_tray, self.restart_notifier_host, self.start_again,
            self.change_layout, self.restart_window_manager, self.copy_texts, self.paste,
        ):
            part()
            if not self.zamber.is_running():
                raise RuntimeError(f"the program has ended in {part.__name__}: {self.zamber.stderr_lines()}")

    def settle(self):
        """The same state at the end of every lap: the same entries, nothing under way."""
        self.zamber.write_preferences(quickPasteEnabled=True, maxItems=MAX_ITEMS)
        last = None
        for number in range(MAX_ITEMS + 2):
            last = f"settled {number}"
            self.copy_text(last)
            time.sleep(POLL_SECONDS)
        self.expect_newest(last, "the last of the lap")
        kept = self.zamber.history()
        wanted = [f"settled {number}" for number in range(MAX_ITEMS + 1, 1, -1)]
        if kept != wanted:
            self.lost += [entry for entry in wanted if entry not in kept] or ["the order of the history"]
        self.zamber.open_popover()
        self.desktop.keyboard.tap("Escape")
        self.zamber.wait_until_closed()


def judge(laps, soak):
    """The faults after all laps, in sentences."""
    complaints = [f"lost: {what} ({count} times)" for what, count in collections.Counter(soak.lost).items()]
    steady = laps[WARM_UP_LAPS:]
    if len(steady) < 4:
        return [*complaints, "too few laps to tell: give it more minutes"]
    # Each lap ends at a slightly different moment. A value has grown when its least is above its former most.
    first, last = steady[: len(steady) // 2], steady[-(len(steady) // 2):]

    def growth(amount):
        return min(map(amount, last)) - max(map(amount, first))

    if growth(lambda lap: lap.private) > MOST_GROWTH_KIBIBYTES:
        complaints.append(f"private memory grew by {growth(lambda lap: lap.private)} KiB")
    if growth(lambda lap: lap.descriptors) > 0:
        complaints.append("file descriptors grew")
    if growth(lambda lap: lap.threads) > 0:
        complaints.append("threads grew")
    for kind in sorted({kind for lap in steady for kind in lap.resources}):
        if growth(lambda lap, kind=kind: lap.resources[kind]) > 0:
            complaints.append(f"X resources of kind {kind} grew: {[lap.resources[kind] for lap in steady]}")
    return complaints


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--minutes", type=float, default=15.0, help="no new lap is begun after that; default 15")
    parser.add_argument("--binary", type=pathlib.Path, default=default_binary())
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    laps = []
    with PrivateDesktop() as desktop:
        zamber = Zamber(desktop, options.binary)
        zamber.write_preferences(quickPasteEnabled=True, maxItems=MAX_ITEMS)
        soak = Soak(desktop, zamber.start())
        started = time.monotonic()
        while (time.monotonic() - started) / 60 < options.minutes:
            soak.lap()
            soak.settle()
            laps.append(Measures(desktop, zamber.pid))
            minutes = (time.monotonic() - started) / 60
            print(f"lap {len(laps):3d}  {minutes:5.1f} min  {laps[-1].line()}  lost {len(soak.lost)}", flush=True)
        unexpected = zamber.stderr_lines()
    print("\n".join(f"{count:7d} {what}" for what, count in soak.done.items()))
    complaints = judge(laps, soak) + [f"on standard error: {line}" for line in unexpected]
    print("\n".join(complaints) or "nothing grew, nothing was lost")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
