# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The tour on sway: a Wayland compositor with its bar, and applications of Wayland."""

from guide import check
from harness import Editor, Partner, SwayDesktop, wait_until
from stages import COMMAND_TEXT, EARLIER, IMAGE_PREVIEW, PICTURE_BOARD, PINNED, SEARCH, Tour

NOTE = "Dear team, the tour starts at nine."
BAR_AND_BACKGROUND = """
output * background #2b516b solid_color
bar {
  position top
  tray_output *
}
"""


class SwayTour(Tour):
    name = "sway"
    folder = "sway"

    @staticmethod
    def make_desktop():
        return SwayDesktop(configuration=BAR_AND_BACKGROUND)

    def play(self):
        desktop, guide = self.desktop, self.guide
        self.zamber.write_history(*EARLIER, pinned=(PINNED,))

        with guide.stage("start", "sway with its bar and nothing else. Zamber starts; three entries from earlier are in "
                                  "its history."):
            self.zamber.start()
            guide.ok("its log says that it is ready")

        with guide.stage("text-copied-in-the-editor", "A text is typed in an editor of Wayland, all of it selected "
                                                      "(Ctrl+A) and copied (Ctrl+C)."):
            self.editor = Editor(desktop)
            self.keyboard.type_text(NOTE)
            self.keyboard.chord("Control_L", "a")
            self.keyboard.chord("Control_L", "c")
            wait_until(lambda: self.clipboard.text() == NOTE, what="the clipboard to hold the text")
            self.expect_history(NOTE, *EARLIER)
            guide.ok("the clipboard holds what was typed, and it is the newest entry in Zamber's history file")

        with guide.stage("copied-on-the-command-line", "In the terminal foot, a text and then a picture are copied by "
                                                       "wl-copy."):
            self.terminal = Partner(desktop, "foot", ["foot", "--config=/dev/null", "env", "PS1=$ ", "ENV=", "sh", "-i"])
            self.shell(f"printf '{COMMAND_TEXT}' | wl-copy")
            self.expect_history(COMMAND_TEXT, NOTE, *EARLIER)
            path = self.paint_picture()
            self.picture = path.read_bytes()
            self.shell(f"wl-copy --type image/png < {path}")
            self.expect_history(self.picture, COMMAND_TEXT, NOTE, *EARLIER)
            guide.ok(f"both are in the history, the {len(self.picture)} bytes of the picture unchanged")

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
            self.expect_selected(COMMAND_TEXT)
            guide.ok("two entries are left, those that have the word in them, and the first is selected")

        with guide.stage("text-arrived-in-the-editor", "Return takes it. The popover closes, and the text is pasted "
                                                       "into the application that was in front before: the editor."):
            self.keyboard.tap("Return")
            self.zamber.wait_until_closed()
            self.editor.wait_for_text(f"{NOTE}\n{COMMAND_TEXT}")
            check(self.clipboard.text() == COMMAND_TEXT, f"the clipboard holds {self.clipboard.text()!r}")
            guide.ok("the editor has the note and, below it, the text; the clipboard holds it too")

        with guide.stage("picture-pasted-back", "For a window that shows pictures, the picture is looked for: “image”. "
                                                "Return takes it."):
            pasted = desktop.home / "pasted.png"
            Partner(desktop, "picture-board", ["/usr/bin/python3", PICTURE_BOARD, pasted])
            self.zamber.open_popover()
            self.keyboard.type_text("image")
            self.expect_shown(IMAGE_PREVIEW)
            self.keyboard.tap("Return")
            self.zamber.wait_until_closed()
            wait_until(pasted.exists, 6.0, "the picture to arrive")
            check(pasted.read_bytes() == self.picture, "what arrived is not what was copied")
            guide.ok(f"the window gets the {len(self.picture)} bytes that were copied")

        with guide.stage("escape", "The hot key opens it once more; Escape closes it, and nothing is pasted."):
            self.editor.activate()
            self.zamber.open_popover()
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()
            desktop.wait_until_active(self.editor.window)
            self.keyboard.type_text("!")
            self.editor.wait_for_text(f"{NOTE}\n{COMMAND_TEXT}!")
            guide.ok("the keyboard is the editor's again: an exclamation mark typed now is all that was added")

        check(self.zamber.is_running(), "Zamber has ended by itself")
        check(not self.zamber.stderr_lines(), f"Zamber complained: {self.zamber.stderr_lines()}")
