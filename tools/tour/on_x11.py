# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The tour on an X server: a window manager, a panel with a tray, a compositor, and applications of X."""

from Xlib import Xatom

from guide import check
from harness import Mousepad, Partner, PrivateDesktop, holds_for, wait_until
from stages import COMMAND_TEXT, EARLIER, IMAGE_PREVIEW, PINNED, Tour

BACKGROUND = ((0x3A, 0x6E, 0x8F), (0x1D, 0x3A, 0x55))  # from top to bottom


class X11Tour(Tour):
    name = "an X server"
    folder = "x11"
    editor_name = "the editor Mousepad"
    note = "Dear team, the tour starts at nine.\nBring a copy of everything."

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

        self.copy_in_the_editor()

        with guide.stage("text-copied-on-the-command-line", "In a terminal, another text is copied by xclip."):
            self.terminal = Partner(desktop, "xterm", [
                "xterm", "-fa", "DejaVu Sans Mono", "-fs", "11", "-T", "Terminal", "-bg", "#fbfbf8", "-fg", "#202428",
                "-e", "env", "PS1=$ ", "ENV=", "sh", "-i",
            ])
            self.place(self.terminal, 24, 420, 640, 340)
            self.shell(f"printf '{COMMAND_TEXT}' | xclip -selection clipboard")
            wait_until(lambda: self.clipboard.text() == COMMAND_TEXT, what="the clipboard to hold the text")
            self.expect_history(COMMAND_TEXT, self.note, *EARLIER)
            guide.ok("the clipboard holds it, and it is the newest entry of the history")

        with guide.stage("picture-copied-on-the-command-line", "In the same terminal, a picture is copied by xclip."):
            path = self.paint_picture()
            self.shell(f"xclip -selection clipboard -t image/png {path.name}")
            wait_until(lambda: self.clipboard.read("image/png") == self.picture,
                       what="the clipboard to hold the picture")
            self.expect_history(self.picture, COMMAND_TEXT, self.note, *EARLIER)
            guide.ok(f"all {len(self.picture)} bytes of the picture are in the history, unchanged")

        self.open_by_the_hot_key()
        self.search()

        with guide.stage("arrow-keys", "The arrow key down moves the selection to the second of them."):
            self.keyboard.tap("Down")
            self.expect_selected(self.note)
            guide.ok("a screen reader is told that the second entry is selected")

        with guide.stage("before-return", "The arrow key up moves it back to the first."):
            self.keyboard.tap("Up")
            self.expect_selected(COMMAND_TEXT)
            self.expect_shown(COMMAND_TEXT, self.note)
            guide.ok("the first entry is selected; the arrows have not touched the search")

        self.paste_into_the_editor()

        with guide.stage("picture-found", "For a window that shows pictures, the picture is looked for: “image”."):
            self.place(self.open_picture_board(), 730, 490, 420, 280)
            self.zamber.open_popover()
            self.keyboard.chord("Control_L", "a")
            self.keyboard.type_text("image")
            self.expect_shown(IMAGE_PREVIEW)
            self.expect_selected(IMAGE_PREVIEW)
            guide.ok("the picture is the only entry left, and it is selected")

        with guide.stage("picture-pasted-back", "Return takes it."):
            self.paste_into_the_picture_board()
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

        self.close_by_escape()
        self.check_that_zamber_is_well()

    def open_editor(self):
        editor = Mousepad(self.desktop)
        self.place(editor, 24, 52, 640, 330)
        return editor

    def wait_for_editor(self, text):
        self.editor.wait_for_saved_text(text)

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
