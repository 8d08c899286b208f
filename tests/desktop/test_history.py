# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The history file when things go wrong: killed, disk full, folder read-only, file replaced; and how often it is written."""

import ctypes
import os
import pathlib
import select
import shutil
import struct
import time

from case import DesktopTestCase
from harness import Zamber, holds_for, wait_until
from harness.tracing import kill_before_write

POLL_SECONDS = 0.5
SAVE_DELAY_SECONDS = 1.0
# A copy is captured by the next poll and saved a second later; with something to spare.
SAVED_SECONDS = POLL_SECONDS + SAVE_DELAY_SECONDS + 0.5

IN_MODIFY, IN_CLOSE_WRITE = 0x2, 0x8
IN_NONBLOCK = os.O_NONBLOCK


class FileWatch:
    """The writing of a file as the kernel reports it."""

    EVENT = struct.Struct("iIII")

    def __init__(self, path):
        libc = ctypes.CDLL(None, use_errno=True)
        self._descriptor = libc.inotify_init1(IN_NONBLOCK)
        if self._descriptor < 0 or libc.inotify_add_watch(
                self._descriptor, os.fsencode(path), IN_MODIFY | IN_CLOSE_WRITE) < 0:
            raise OSError(ctypes.get_errno(), "inotify")

    def events(self, timeout=0.0):
        """The events since the last call, each as (mask, time); waits for the first of them."""
        if not select.select([self._descriptor], [], [], timeout)[0]:
            return []
        data, now, found = os.read(self._descriptor, 1 << 16), time.time(), []
        while data:
            _, mask, _, length = self.EVENT.unpack_from(data)
            found.append((mask, now))
            data = data[self.EVENT.size + length:]
        return found

    def closings_within(self, seconds):
        """The times at which the file was closed after writing."""
        deadline, closings = time.monotonic() + seconds, []
        while (left := deadline - time.monotonic()) > 0:
            closings += [moment for mask, moment in self.events(left) if mask & IN_CLOSE_WRITE]
        return closings

    def close(self):
        os.close(self._descriptor)


class HistoryTestCase(DesktopTestCase):
    def watch(self, path):
        watch = FileWatch(path)
        self.addCleanup(watch.close)
        return watch

    def kill(self):
        self.zamber.child.kill()
        self.expected_lines = []

    def restart(self, loaded):
        """Starts again and expects so many entries to be loaded, or none at all to be spoken of."""
        self.expected_lines = [] if loaded is None else [f"📋 Loaded {loaded} items from disk"]
        self.expected_lines.append("✅ Accessibility: trusted")
        self.zamber.start()


class KilledTest(HistoryTestCase):
    history = ("old", "older")

    def test_killed_right_after_a_copy_loses_that_copy_alone(self):
        before = self.zamber.history_path.read_bytes()
        self.clipboard.copy_text("too late")
        self.kill()
        self.assertEqual(self.zamber.history_path.read_bytes(), before)
        self.restart(loaded=2)
        self.copy_and_wait("next", ["next", "old", "older"])

    def test_killed_two_seconds_after_a_copy_loses_nothing(self):
        self.clipboard.copy_text("in time")
        self.zamber.wait_for_history(["in time", "old", "older"], 2.0)
        self.kill()
        self.restart(loaded=3)
        self.copy_and_wait("next", ["next", "in time", "old", "older"])

    def test_ended_while_a_save_waits_does_not_save(self):
        before = self.zamber.history_path.read_bytes()
        self.clipboard.copy_text("too late")
        # The copy has been captured by then, which nothing shows before the save that must not come.
        holds_for(lambda: self.zamber.history_path.read_bytes() == before, POLL_SECONDS + 0.1, "nothing is saved")
        self.zamber.stop()
        self.assertEqual(self.zamber.history_path.read_bytes(), before)
        self.restart(loaded=2)


class KilledWhileSavingTest(HistoryTestCase):
    IMAGES = 10
    history = tuple(b"\x89PNG" + bytes([number]) * 2_000_000 for number in range(IMAGES))
    preferences = {"maxItems": 1000}
    # A blank over the opening bracket, blocks of 4 MB, and the bracket.
    WRITES = 9

    def kill_before_write(self, number):
        old = self.zamber.history_path.stat()
        self.clipboard.copy_text("the straw")
        kill_before_write(self.zamber.pid, number)
        self.expected_lines = []
        self.assertEqual(self.zamber.history_path.stat().st_ino, old.st_ino)
        name = self.zamber.history_path.name
        self.assertEqual(sorted(os.listdir(self.zamber.data_folder)), [name, name + ".lock"])

    def test_before_the_first_write_nothing_is_lost(self):
        self.kill_before_write(1)
        self.restart(loaded=self.IMAGES)

    def test_in_between_the_next_start_is_empty_and_the_one_after_it_is_well(self):
        for number in (2, 3, self.WRITES):
            with self.subTest(write=number):
                self.kill_before_write(number)
                with open(self.zamber.history_path, "rb") as file:
                    self.assertEqual(file.read(1), b" ")
                self.restart(loaded=None)
                self.copy_and_wait("a new beginning", ["a new beginning"])
                self.zamber.stop()
                self.zamber.write_history(*self.history)
                self.restart(loaded=self.IMAGES)

    def test_left_alone_it_saves_everything(self):
        watch = self.watch(self.zamber.history_path)
        self.clipboard.copy_text("the straw")
        wait_until(lambda: any(mask & IN_CLOSE_WRITE for mask, _ in watch.events(1.0)), 10.0, "the save to end")
        self.assertEqual(self.zamber.history(), ["the straw", *self.history])


class ReplacedFileTest(HistoryTestCase):
    history = ("old",)

    def test_a_file_that_replaces_it_is_written_over_and_the_replaced_one_is_left_alone(self):
        path = self.zamber.history_path
        kept = path.with_name("kept.json")
        os.link(path, kept)
        before = kept.read_bytes()
        other = path.with_name("other.json")
        other.write_text('[{"type":"text","value":"somebody else\'s","timestamp":1,"isPinned":true}]' + " " * 5000)
        inode = other.stat().st_ino
        os.rename(other, path)
        self.copy_and_wait("new", ["new", "old"])
        self.assertEqual(path.stat().st_ino, inode)
        self.assertEqual(path.stat().st_mode & 0o777, 0o600)
        self.assertEqual(kept.read_bytes(), before)

    def test_a_file_or_folder_that_was_taken_away_is_made_again(self):
        self.zamber.history_path.unlink()
        self.copy_and_wait("new", ["new", "old"])
        shutil.rmtree(self.zamber.data_folder)
        self.copy_and_wait("newer", ["newer", "new", "old"])
        self.assertEqual(self.zamber.data_folder.stat().st_mode & 0o777, 0o700)
        self.assertEqual(self.zamber.history_path.stat().st_mode & 0o777, 0o600)

    def test_a_folder_in_its_place_costs_saves_and_nothing_else(self):
        self.zamber.history_path.unlink()
        self.zamber.history_path.mkdir()
        self.clipboard.copy_text("not saved yet")
        holds_for(self.zamber.is_running, SAVED_SECONDS, "the program runs")
        self.zamber.history_path.rmdir()
        self.copy_and_wait("saved", ["saved", "not saved yet", "old"])


class OddFileAtStartTest(HistoryTestCase):
    """The program starts within the usual time, also when the file's place is taken by something else."""

    def start_zamber(self):
        self.expected_lines = ["✅ Accessibility: trusted"]
        self.zamber.data_folder.mkdir(parents=True, mode=0o700)
        self.put_something_odd()
        self.zamber.start()

    def put_something_odd(self):
        os.mkfifo(self.zamber.history_path)

    def take_it_away(self):
        self.zamber.history_path.unlink()

    def tearDown(self):
        self.take_it_away()  # reading the pipe would wait for ever
        super().tearDown()

    def test_it_starts_with_an_empty_history_and_goes_on_capturing(self):
        self.clipboard.copy_text("captured")
        holds_for(self.zamber.is_running, SAVED_SECONDS, "the program runs")
        self.zamber.open_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("captured")


class FolderAtStartTest(OddFileAtStartTest):
    def put_something_odd(self):
        self.zamber.history_path.mkdir()

    def take_it_away(self):
        self.zamber.history_path.rmdir()


class GigabytesAtStartTest(OddFileAtStartTest):
    def put_something_odd(self):
        with open(self.zamber.history_path, "wb") as file:
            file.write(b'[{"type":"text","value":"a","timestamp":1}]')
            file.truncate(3 << 30)  # a hole


class BeginningOfOnlyOneArrayAtStartTest(OddFileAtStartTest):
    def put_something_odd(self):
        self.zamber.history_path.write_bytes(b"[" * 20_000_000)


class OneWriteTest(HistoryTestCase):
    history = ("old",)

    def test_each_change_is_written_a_second_later_unless_another_comes_before(self):
        watch = self.watch(self.zamber.history_path)
        before = len(self.zamber.records())
        for text in ("first", "second", "third"):
            self.clipboard.copy_text(text)
            time.sleep(POLL_SECONDS + 0.02)  # a poll between two copies; only a save would tell of it
        closings = watch.closings_within(SAVED_SECONDS)
        wait_until(lambda: "third" in self.zamber.history(), 10.0, "the last change to be written")
        closings += watch.closings_within(SAVED_SECONDS)
        # The file says which copies were captured, and when; on a slow machine a poll comes late and may miss a copy.
        records = self.zamber.records()
        captured = sorted(record["timestamp"] for record in records[:len(records) - before])
        gaps = [later - earlier for earlier, later in zip(captured, captured[1:])]
        fewest = 1 + sum(gap > SAVE_DELAY_SECONDS + 0.1 for gap in gaps)
        most = 1 + sum(gap > SAVE_DELAY_SECONDS - 0.1 for gap in gaps)  # in between, either may come first
        self.assertLessEqual(fewest, len(closings), f"written at {closings}, changed at {captured}")
        self.assertLessEqual(len(closings), most, f"written at {closings}, changed at {captured}")
        self.assertGreaterEqual(closings[-1] - captured[-1], SAVE_DELAY_SECONDS - 0.01)

    def test_nothing_is_written_while_nothing_changes(self):
        watch = self.watch(self.zamber.history_path)
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.assertEqual(watch.closings_within(SAVED_SECONDS), [])


class MountedZamber(Zamber):
    """Sees another data folder than we do: one that is mounted for it alone. We look in through /proc."""

    @property
    def data_folder(self):
        outside = super().data_folder
        return pathlib.Path(f"/proc/{self.pid}/root{outside}") if self.is_running() else outside


class MountedDataTestCase(HistoryTestCase):
    mounting = ""

    def prepare(self):
        script = self.desktop.directory / "mounted"
        script.write_text(
            "#!/bin/sh\n"
            'if [ "$1" != inside ]; then\n'
            '    exec unshare --user --map-current-user --keep-caps --mount "$0" inside\n'
            "fi\n"
            f"{self.mounting} && exec {self.zamber.binary}\n"
        )
        script.chmod(0o700)
        self.zamber = MountedZamber(self.desktop, binary=script)


class FullDiskTest(MountedDataTestCase):
    mounting = 'mount -t tmpfs -o size=2m,mode=700 tmpfs "$XDG_DATA_HOME"'

    def test_the_old_file_stays_as_it_was_until_there_is_space_again(self):
        self.copy_and_wait("small", ["small"])
        path = self.zamber.history_path
        before, old = path.read_bytes(), path.stat()
        filler = path.with_name("filler")
        with open(filler, "wb", buffering=0) as file:
            try:
                while file.write(b"x" * 4096):
                    pass
            except OSError:
                pass  # full
        large = "large " * 100_000
        watch = self.watch(path)
        self.clipboard.copy_text(large)
        closings = watch.closings_within(SAVED_SECONDS)
        self.assertEqual(len(closings), 1, "it has tried")
        self.assertEqual(path.read_bytes(), before)
        self.assertEqual((path.stat().st_ino, path.stat().st_size), (old.st_ino, old.st_size))
        filler.unlink()
        self.copy_and_wait("after", ["after", large, "small"])

    def test_the_old_file_stays_also_when_there_is_space_for_a_part(self):
        self.copy_and_wait("small", ["small"])
        path = self.zamber.history_path
        before = path.read_bytes()
        free = os.statvfs(path).f_bavail
        huge = "huge " * 600_000
        self.clipboard.copy_text(huge)
        holds_for(self.zamber.is_running, SAVED_SECONDS, "the program runs")
        self.assertEqual(path.read_bytes(), before)
        self.assertEqual(os.statvfs(path).f_bavail, free, "what was set aside is given back")
        self.zamber.stop()
        self.expected_lines = []
        self.restart(loaded=None)  # another mount, as after a restart of the machine


class ReadOnlyFolderTest(MountedDataTestCase):
    history = ("old",)
    mounting = ('mount --bind "$XDG_DATA_HOME" "$XDG_DATA_HOME" && '
                'mount -o remount,bind,ro "$XDG_DATA_HOME" "$XDG_DATA_HOME"')

    def test_it_loads_captures_and_pastes_and_the_file_stays_as_it_was(self):
        before = self.zamber.history_path.read_bytes()
        self.clipboard.copy_text("captured")
        holds_for(self.zamber.is_running, SAVED_SECONDS, "the program runs")
        self.assertEqual(self.zamber.history_path.read_bytes(), before)
        self.zamber.open_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("captured")
