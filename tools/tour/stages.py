# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What the tours of all desktops share: Zamber, the applications' hands, and what is expected of the list."""

import pathlib

from guide import Guide, check
from harness import Partner, Zamber, wait_until

PICTURE_BOARD = pathlib.Path(__file__).with_name("picture_board.py")
EARLIER = ("ssh deploy@staging.example.org", "Meeting moved to Thursday, 14:30", "https://zamber.example/handbook")
PINNED = 0
COMMAND_TEXT = "tour of the harbour, 12 seats"
IMAGE_PREVIEW = "📷 Image"
SEARCH = "tour"


class Tour:
    """One tour, on the desktop of its kind; a subclass puts its stages together in `play`: those that are the same on
    every desktop are here. `name` is what the desktop is called, `folder` where its pictures go, `editor_name` the
    editor, and `note` what is typed in it."""

    def __init__(self, desktop, pictures):
        self.desktop = desktop
        self.keyboard = desktop.keyboard
        self.clipboard = desktop.clipboard
        self.zamber = Zamber(desktop)
        self.guide = Guide(desktop, pictures)

    def play(self):
        raise NotImplementedError

    def open_editor(self):
        raise NotImplementedError

    def wait_for_editor(self, text):
        raise NotImplementedError

    # Stages

    def copy_in_the_editor(self):
        with self.guide.stage("text-copied-in-the-editor", f"A text is typed in {self.editor_name}, all of it selected "
                                                           "(Ctrl+A) and copied (Ctrl+C)."):
            self.editor = self.open_editor()
            self.keyboard.type_text(self.note)
            self.keyboard.chord("Control_L", "a")
            self.keyboard.chord("Control_L", "c")
            wait_until(lambda: self.clipboard.text() == self.note, what="the clipboard to hold the text")
            self.expect_history(self.note, *EARLIER)
            self.guide.ok("the clipboard holds what was typed, and it is the newest entry in Zamber's history file")

    def open_by_the_hot_key(self):
        with self.guide.stage("popover", "Back in the editor, a new line is begun and the hot key is pressed: "
                                         "Super+Shift+V."):
            self.editor.activate()
            self.keyboard.tap("End", "Return")
            self.zamber.open_popover()
            self.expect_shown(EARLIER[PINNED], IMAGE_PREVIEW, COMMAND_TEXT, self.note, *EARLIER[1:])
            self.guide.ok("the popover has the keyboard; it lists the pinned entry, then the five others, newest first")

    def search(self):
        with self.guide.stage("search", f"“{SEARCH}” is typed into the popover."):
            self.keyboard.type_text(SEARCH)
            self.expect_shown(COMMAND_TEXT, self.note)
            self.expect_selected(COMMAND_TEXT)
            self.guide.ok("two entries are left, those that have the word in them, and the first is selected")

    def paste_into_the_editor(self):
        with self.guide.stage("text-arrived-in-the-editor", "Return takes it. The popover closes, and the text is pasted "
                                                            "into the application that was in front before: the "
                                                            "editor."):
            self.keyboard.tap("Return")
            self.zamber.wait_until_closed()
            self.wait_for_editor(f"{self.note}\n{COMMAND_TEXT}")
            check(self.clipboard.text() == COMMAND_TEXT, f"the clipboard holds {self.clipboard.text()!r}")
            self.guide.ok("the editor has the note and, below it, the text; the clipboard holds it too")

    def close_by_escape(self):
        with self.guide.stage("escape", "The hot key opens it once more; Escape closes it, and nothing is pasted."):
            self.zamber.open_popover()
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
            self.desktop.wait_until_active(self.editor.window)
            self.keyboard.type_text("!")
            self.wait_for_editor(f"{self.note}\n{COMMAND_TEXT}!")
            self.guide.ok("the keyboard is the editor's again: an exclamation mark typed now is all that was added")

    # Parts of stages

    def open_picture_board(self):
        self.pasted = self.desktop.home / "pasted.png"
        return Partner(self.desktop, "picture-board", ["/usr/bin/python3", PICTURE_BOARD, self.pasted])

    def paste_into_the_picture_board(self):
        self.keyboard.tap("Return")
        self.zamber.wait_until_closed()
        wait_until(self.pasted.exists, 6.0, "the picture to arrive")
        check(self.pasted.read_bytes() == self.picture, "what arrived is not what was copied")

    def check_that_zamber_is_well(self):
        check(self.zamber.is_running(), "Zamber has ended by itself")
        check(not self.zamber.stderr_lines(), f"Zamber complained: {self.zamber.stderr_lines()}")

    def shell(self, command):
        self.keyboard.type_text(command + "\n")

    def paint_picture(self):
        """The file of the picture; its bytes are `picture`."""
        path = self.desktop.home / "picture.png"
        hills = "path 'M 0,170 C 60,120 120,150 180,165 S 300,140 360,160 L 360,220 L 0,220 Z'"
        self.desktop.run([
            "convert", "-size", "360x220", "gradient:#355c7d-#f8b195", "-fill", "#ffe9c9",
            "-draw", "circle 250,120 250,78", "-fill", "#2a3d55", "-draw", hills, path,
        ])
        self.picture = path.read_bytes()
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
