# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What the tours of all desktops share: Zamber, the applications' hands, and what is expected of the list."""

import pathlib

from guide import Guide
from harness import Zamber, wait_until

PICTURE_BOARD = pathlib.Path(__file__).with_name("picture_board.py")
EARLIER = ("ssh deploy@staging.example.org", "Meeting moved to Thursday, 14:30", "https://zamber.example/handbook")
PINNED = 0
NOTE = "Dear team, the tour starts at nine.\nBring a copy of everything."
COMMAND_TEXT = "tour of the harbour, 12 seats"
IMAGE_PREVIEW = "📷 Image"
SEARCH = "tour"


class Tour:
    """One tour, on the desktop of its kind; a subclass has the stages in `play`. `name` is what the desktop is called,
    `folder` where its pictures go."""

    def __init__(self, desktop, pictures):
        self.desktop = desktop
        self.keyboard = desktop.keyboard
        self.clipboard = desktop.clipboard
        self.zamber = Zamber(desktop)
        self.guide = Guide(desktop, pictures)

    def play(self):
        raise NotImplementedError

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
