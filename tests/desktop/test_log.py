# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Standard output: whole lines, at once, and the program goes on when they are not read."""

import fcntl
import os

from case import DesktopTestCase
from harness import wait_until
from harness.zamber import READY_LINE

F_SETPIPE_SZ = 1031
SMALLEST_PIPE = 4096


class LogTestCase(DesktopTestCase):
    """The cases start the program by a shell that does something to its output."""

    history = ("first", "second")
    redirection = None

    def start_zamber(self):
        self.zamber.child = self.desktop.start(
            "zamber", ["/bin/sh", "-c", f'exec "$0" {self.redirection}', self.zamber.binary], pass_fds=self.descriptors()
        )
        wait_until(lambda: self.desktop.tray_icon(self.zamber.pid), 10.0, lambda: f"the icon; {self.zamber.stderr_lines()}")

    def descriptors(self):
        return ()

    def paste_all(self):
        """The log is lost; the program works all the same."""
        for position, expected in ((0, "first"), (1, "firstsecond")):
            self.zamber.open_popover()
            self.choose(position)
            self.editor.wait_for_text(expected)


class ClosedOutputTest(LogTestCase):
    redirection = ">&-"

    def test_the_program_works(self):
        self.paste_all()


class EveryStreamClosedTest(LogTestCase):
    redirection = "<&- >&- 2>&-"

    def test_the_program_works(self):
        self.paste_all()
        self.assertEqual([os.readlink(f"/proc/{self.zamber.pid}/fd/{stream}") for stream in range(3)],
                         ["/dev/null"] * 3)


class FullDiskOutputTest(LogTestCase):
    redirection = "> /dev/full"

    def test_the_program_works(self):
        self.paste_all()


class PipeTestCase(LogTestCase):
    pipe_size = 65536

    def descriptors(self):
        self.reader, writer = os.pipe()
        self.addCleanup(os.close, self.reader)
        fcntl.fcntl(writer, F_SETPIPE_SZ, self.pipe_size)
        self.writer = writer
        self.redirection = f">&{writer}"
        return (writer,)

    def start_zamber(self):
        descriptors = self.descriptors()
        self.descriptors = lambda: descriptors
        super().start_zamber()
        os.close(self.writer)


class PipeTest(PipeTestCase):
    def test_every_line_is_there_as_soon_as_it_happens(self):
        self.paste_all()
        expected = ["📋 Loaded 2 items from disk", READY_LINE, *["🔵 Pasting into: Editor", "✅ Pasted via CGEvent"] * 2]
        text = ""
        os.set_blocking(self.reader, False)

        def whole():
            nonlocal text
            try:
                text += os.read(self.reader, 65536).decode()
            except BlockingIOError:
                pass
            return text == "".join(line + "\n" for line in expected)

        wait_until(whole, 4.0, lambda: f"{expected}; it is {text!r}")


class ReaderThatLeavesTest(PipeTestCase):
    def start_zamber(self):
        super().start_zamber()
        null = os.open("/dev/null", os.O_RDONLY)
        os.dup2(null, self.reader)  # the last reader of the pipe is gone
        os.close(null)

    def test_the_program_works(self):
        self.paste_all()


class ReaderThatStopsReadingTest(PipeTestCase):
    pipe_size = SMALLEST_PIPE

    def start_zamber(self):
        super().start_zamber()
        # Another program has filled the pipe: there is no room for another line.
        with open(f"/proc/{self.zamber.pid}/fd/1", "wb", buffering=0) as stuffing:
            os.set_blocking(stuffing.fileno(), False)
            try:
                while stuffing.write(b"x" * 64):
                    pass
            except BlockingIOError:
                pass

    def test_the_program_works(self):
        self.paste_all()
