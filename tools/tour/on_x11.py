# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The tour on an X server: a window manager, a panel with a tray, a compositor, and applications of X."""

from Xlib import Xatom

from guide import check
from harness import Mousepad, Partner, PrivateDesktop, holds_for, wait_until
from stages import COMMAND_TEXT, EARLIER, IMAGE_PREVIEW, NOTE, PICTURE_BOARD, PINNED, SEARCH, Tour

BACKGROUND = ((0x3A, 0x6E, 0x8F), (0x1D, 0x3A, 0x55))  # from top to bottom


class X11Tour(Tour):
    name = "an X server"
    folder = "x11"

    @staticmethod
    def make_desktop():
        return PrivateDesktop(compositor="picom")

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
