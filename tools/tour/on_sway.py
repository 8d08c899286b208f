# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The tour on sway: a Wayland compositor with its bar, and applications of Wayland."""

from harness import Editor, Partner, SwayDesktop
from stages import COMMAND_TEXT, EARLIER, IMAGE_PREVIEW, PINNED, Tour

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
    editor_name = "an editor of Wayland"
    note = "Dear team, the tour starts at nine."

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

        self.copy_in_the_editor()

        with guide.stage("copied-on-the-command-line", "In the terminal foot, a text and then a picture are copied by "
                                                       "wl-copy."):
            self.terminal = Partner(desktop, "foot", ["foot", "--config=/dev/null", "env", "PS1=$ ", "ENV=", "sh", "-i"])
            self.shell(f"printf '{COMMAND_TEXT}' | wl-copy")
            self.expect_history(COMMAND_TEXT, self.note, *EARLIER)
            path = self.paint_picture()
            self.shell(f"wl-copy --type image/png < {path}")
            self.expect_history(self.picture, COMMAND_TEXT, self.note, *EARLIER)
            guide.ok(f"both are in the history, the {len(self.picture)} bytes of the picture unchanged")

        self.open_by_the_hot_key()
        self.search()
        self.paste_into_the_editor()

        with guide.stage("picture-pasted-back", "For a window that shows pictures, the picture is looked for: “image”. "
                                                "Return takes it."):
            self.open_picture_board()
            self.zamber.open_popover()
            self.keyboard.type_text("image")
            self.expect_shown(IMAGE_PREVIEW)
            self.paste_into_the_picture_board()
            guide.ok(f"the window gets the {len(self.picture)} bytes that were copied")

        self.editor.activate()
        self.close_by_escape()
        self.check_that_zamber_is_well()

    def open_editor(self):
        return Editor(self.desktop)

    def wait_for_editor(self, text):
        self.editor.wait_for_text(text)
