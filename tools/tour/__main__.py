# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A tour of Zamber with real applications in a private desktop. What it says is checked from outside the program:
by what an editor saves, what the clipboard gives, what is in the history file and what a screen reader would read."""

import pathlib
import shutil
import signal
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from Xlib import Xatom  # noqa: E402

from harness import Mousepad, Partner, PrivateDesktop, Zamber, default_binary, holds_for, wait_until  # noqa: E402
from guide import Guide, TourFailed, check, say  # noqa: E402

PICTURE_BOARD = pathlib.Path(__file__).with_name("picture_board.py")
PICTURES = ROOT / "build" / "tour"
BACKGROUND = ((0x3A, 0x6E, 0x8F), (0x1D, 0x3A, 0x55))  # from top to bottom
EARLIER = ("ssh deploy@staging.example.org", "Meeting moved to Thursday, 14:30", "https://zamber.example/handbook")
PINNED = 0
NOTE = "Dear team, the tour starts at nine.\nBring a copy of everything."
COMMAND_TEXT = "tour of the harbour, 12 seats"
IMAGE_PREVIEW = "📷 Image"
SEARCH = "tour"


class Tour:
    def __init__(self, desktop):
        self.desktop = desktop
        self.keyboard = desktop.keyboard
        self.clipboard = desktop.clipboard
        self.zamber = Zamber(desktop)
        self.guide = Guide(desktop, PICTURES)

    def play(self):
        desktop, guide = self.desktop, self.guide
        paint_background(desktop.display, BACKGROUND)
        desktop.mouse.move(700, 440)
        self.zamber.write_history(*EARLIER, pinned=(PINNED,))

        with guide.stage("tray-icon", "A desktop with a window manager, a panel and nothing else. Zamber starts; "
                                      "three entries from earlier are in its history."):
            self.zamber.start()
            icon = wait_until(lambda: desktop.tray_icon(self.zamber.pid), 5.0, "Zamber's icon in the tray")
            guide.ok(f"its log says that it is ready, and its icon is in the panel's tray at {icon.x}, {icon.y}")

        with guide.stage("text-copied-in-the-editor", "A text is typed in the editor Mousepad, all of it selected "
                                                      "(Ctrl+A) and copied (Ctrl+C)."):
            self.editor = Mousepad(desktop)
            self.place(self.editor, 24, 52, 640, 330)
            self.keyboard.type_text(NOTE)
            self.keyboard.chord("Control_L", "a")
            self.keyboard.chord("Control_L", "c")
            wait_until(lambda: self.clipboard.text() == NOTE, what="the clipboard to hold the text")
            self.expect_history(NOTE, *EARLIER)
            guide.ok("the clipboard holds what was typed, and it is the newest entry in Zamber's history file")

        with guide.stage("text-copied-on-the-command-line", "In a terminal, another text is copied by xclip."):
            self.terminal = Partner(desktop, "xterm", [
                "xterm", "-fa", "DejaVu Sans Mono", "-fs", "11", "-T", "Terminal", "-bg", "#fbfbf8", "-fg", "#202428",
                "-e", "env", "PS1=$ ", "ENV=", "sh", "-i",
            ])
            self.place(self.terminal, 24, 420, 640, 340)
            self.shell(f"printf '{COMMAND_TEXT}' | xclip -selection clipboard")
            wait_until(lambda: self.clipboard.text() == COMMAND_TEXT, what="the clipboard to hold the text")
            self.expect_history(COMMAND_TEXT, NOTE, *EARLIER)
            guide.ok("the clipboard holds it, and it is the newest entry of the history")

        with guide.stage("picture-copied-on-the-command-line", "In the same terminal, a picture is copied by xclip."):
            path = self.paint_picture()
            self.picture = path.read_bytes()
            self.shell(f"xclip -selection clipboard -t image/png {path.name}")
            wait_until(lambda: self.clipboard.read("image/png") == self.picture,
                       what="the clipboard to hold the picture")
            self.expect_history(self.picture, COMMAND_TEXT, NOTE, *EARLIER)
            guide.ok(f"all {len(self.picture)} bytes of the picture are in the history, unchanged")

        with guide.stage("popover", "Back in the editor, a new line is begun and the hot key is pressed: "
                                    "Super+Shift+V."):
            self.editor.activate()
            self.keyboard.tap("End", "Return")
            self.zamber.open_popover()
            self.expect_shown(EARLIER[PINNED], IMAGE_PREVIEW, COMMAND_TEXT, NOTE, *EARLIER[1:])
            guide.ok("the popover has the keyboard; it lists the pinned entry, then the five others, newest first")

        with guide.stage("search", f"“{SEARCH}” is typed into the popover."):
            self.keyboard.type_text(SEARCH)
            self.expect_shown(COMMAND_TEXT, NOTE)
            guide.ok("two entries are left, those that have the word in them")

        with guide.stage("arrow-keys", "The arrow key down moves the selection to the second of them."):
            self.keyboard.tap("Down")
            self.expect_selected(NOTE)
            guide.ok("a screen reader is told that the second entry is selected")

        with guide.stage("before-return", "The arrow key up moves it back to the first."):
            self.keyboard.tap("Up")
            self.expect_selected(COMMAND_TEXT)
            self.expect_shown(COMMAND_TEXT, NOTE)
            guide.ok("the first entry is selected; the arrows have not touched the search")

        with guide.stage("text-arrived-in-the-editor", "Return takes it. The popover closes, and the text is pasted "
                                                       "into the application that was in front before: the editor."):
            self.keyboard.tap("Return")
            self.zamber.wait_until_closed()
            self.editor.wait_for_saved_text(f"{NOTE}\n{COMMAND_TEXT}")
            check(self.clipboard.text() == COMMAND_TEXT, f"the clipboard holds {self.clipboard.text()!r}")
            guide.ok("the editor saves the note and, below it, the text; the clipboard holds it too")

        with guide.stage("picture-found", "For a window that shows pictures, the picture is looked for: “image”."):
            pasted = desktop.home / "pasted.png"
            board = Partner(desktop, "picture-board", ["/usr/bin/python3", PICTURE_BOARD, pasted])
            self.place(board, 730, 490, 420, 280)
            self.zamber.open_popover()
            self.keyboard.chord("Control_L", "a")
            self.keyboard.type_text("image")
            self.expect_shown(IMAGE_PREVIEW)
            self.expect_selected(IMAGE_PREVIEW)
            guide.ok("the picture is the only entry left, and it is selected")

        with guide.stage("picture-pasted-back", "Return takes it."):
            self.keyboard.tap("Return")
            self.zamber.wait_until_closed()
            wait_until(pasted.exists, 6.0, "the picture to arrive")
            check(pasted.read_bytes() == self.picture, "what arrived is not what was copied")
            check(self.clipboard.read("image/png") == self.picture, "xclip gets other bytes than were copied")
            guide.ok(f"the window and xclip both get the {len(self.picture)} bytes that were copied, each the same")

        with guide.stage("popover-from-the-tray", "A click on the icon in the tray opens the popover as well."):
            self.editor.activate()
            self.click(icon)
            self.zamber.wait_for_popover()
            (field,) = self.zamber.tree().all(role="text", states=("focused",))
            check(field.extents[1] > icon.y + icon.height, f"the popover's field at {field.extents} covers the icon")
            guide.ok("it hangs below the icon and has the keyboard")

        with guide.stage("closed-from-the-tray", "Another click on the icon closes it."):
            self.click(icon)
            self.zamber.wait_until_closed()
            holds_for(lambda: self.zamber.popover() is None, 0.5, "the popover is closed")
            guide.ok("it is gone and stays away")

        with guide.stage("escape", "The hot key opens it once more; Escape closes it, and nothing is pasted."):
            self.zamber.open_popover()
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
            desktop.wait_until_active(self.editor.window)
            self.keyboard.type_text("!")
            self.editor.wait_for_saved_text(f"{NOTE}\n{COMMAND_TEXT}!")
            guide.ok("the keyboard is the editor's again: an exclamation mark typed now is all that was added")

        check(self.zamber.is_running(), "Zamber has ended by itself")
        check(not self.zamber.stderr_lines(), f"Zamber complained: {self.zamber.stderr_lines()}")

    def place(self, partner, x, y, width, height):
        self.desktop.run(["xdotool", "windowsize", "--sync", partner.window.id, width, height])
        self.desktop.run(["xdotool", "windowmove", "--sync", partner.window.id, x, y])

    def click(self, window):
        self.desktop.mouse.click(window.x + window.width // 2, window.y + window.height // 2)

    def shell(self, command):
        self.keyboard.type_text(command + "\n")

    def paint_picture(self):
        path = self.desktop.home / "picture.png"
        hills = "path 'M 0,170 C 60,120 120,150 180,165 S 300,140 360,160 L 360,220 L 0,220 Z'"
        self.desktop.run([
            "convert", "-size", "360x220", "gradient:#355c7d-#f8b195", "-fill", "#ffe9c9",
            "-draw", "circle 250,120 250,78", "-fill", "#2a3d55", "-draw", hills, path,
        ])
        return path

    def expect_history(self, *newest_first):
        self.zamber.wait_for_history(list(newest_first))

    def expect_shown(self, *texts):
        def shown():
            return [node.name for node in self.zamber.tree().all(role="list item")]

        wait_until(lambda: shown() == list(texts), 5.0, lambda: f"the list to show {texts}; it shows {shown()}")

    def expect_selected(self, text):
        def selected():
            return [node.name for node in self.zamber.tree().all(role="list item", states=("selected",))]

        wait_until(lambda: selected() == [text], 5.0, lambda: f"{text!r} to be selected; it is {selected()}")


def paint_background(display, colours):
    """As a wallpaper program would: a pixmap on the root window, known by its property to the compositor."""
    screen = display.screen()
    width, height = screen.width_in_pixels, screen.height_in_pixels
    pixmap = screen.root.create_pixmap(width, height, screen.root_depth)
    brush = pixmap.create_gc()
    for row in range(height):
        red, green, blue = (top + (bottom - top) * row // height for top, bottom in zip(*colours))
        brush.change(foreground=red << 16 | green << 8 | blue)
        pixmap.fill_rectangle(brush, 0, row, width, 1)
    for name in ("_XROOTPMAP_ID", "ESETROOT_PMAP_ID"):
        screen.root.change_property(display.intern_atom(name), Xatom.PIXMAP, 32, [pixmap.id])
    screen.root.change_attributes(background_pixmap=pixmap)
    screen.root.clear_area(0, 0, width, height)
    display.sync()


def main():
    if not default_binary().is_file():
        say(f"There is no {default_binary()}: ./run builds it.")
        return 1
    shutil.rmtree(PICTURES, ignore_errors=True)
    PICTURES.mkdir(parents=True)
    # Being asked to end is leaving the desktop the ordinary way, with all that is cleared up then.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    started = time.monotonic()
    say("No display is used: this opens a private desktop, starts Zamber in it and shows it round. Nothing touches "
        "your clipboard, your files or your settings.")
    with PrivateDesktop(compositor="picom") as desktop:
        tour = Tour(desktop)
        try:
            tour.play()
        except (TourFailed, AssertionError) as failure:
            if not isinstance(failure, TourFailed):
                say(f"FAILED: {failure}")
            status = 1
        else:
            status = 0
        finally:
            if tour.zamber.child:
                (PICTURES / "zamber.log").write_text(tour.zamber.child.stdout() + tour.zamber.child.stderr())
    seconds = time.monotonic() - started
    outcome = f"All {tour.guide.stages} stages are as they should be" if status == 0 else "The tour has failed"
    say(f"\n{outcome} ({seconds:.0f} s). Screenshots and Zamber's log: build/tour/")
    return status


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        say("\nEnded before its end.")
        sys.exit(130)
