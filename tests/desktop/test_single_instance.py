# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""One program a session, however often and by whomever it is started."""

from case import DesktopTestCase
from harness import wait_until
from harness.processes import pids_with_environment
from harness.zamber import READY_LINE

HANG_SECONDS = 8.0


class SecondStartTest(DesktopTestCase):
    history = ("first",)

    def start_another(self):
        return self.desktop.start("another", [self.zamber.binary])

    def test_it_shows_the_running_ones_popover_and_ends_well(self):
        for _ in range(3):
            another = self.start_another()
            self.assertEqual(another.wait(5), 0)
            self.assertEqual((another.stdout(), another.stderr()), ("", ""))
            popover = self.zamber.wait_for_popover()
            self.assertEqual(popover.pid, self.zamber.pid)
            self.keyboard.tap("Escape")
            self.zamber.wait_until_closed()

    def test_a_popover_that_is_open_stays_open(self):
        self.zamber.open_popover()
        self.assertEqual(self.start_another().wait(5), 0)
        self.zamber.wait_for_popover()

    def test_a_paste_afterwards_goes_to_the_window_that_was_active(self):
        self.assertEqual(self.start_another().wait(5), 0)
        self.zamber.wait_for_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")

    def test_the_desktop_may_ask_over_the_bus(self):
        self.zamber.activate_by_bus()
        self.zamber.wait_for_popover()

    def test_one_that_hangs_is_not_taken_for_one_that_shows_itself(self):
        self.zamber.child.pause()
        another = self.start_another()
        self.assertNotEqual(another.wait(HANG_SECONDS), 0)
        self.zamber.child.resume()
        self.assertEqual(another.stdout(), "")
        self.assertIn("does not answer", another.stderr())
        self.zamber.wait_for_popover()  # it hears of it in the end

    def test_one_that_ends_while_it_is_asked_leaves_its_place(self):
        self.zamber.child.pause()
        another = self.start_another()
        wait_until(lambda: self.is_asking(another.pid), what="the second start to ask")
        self.zamber.child.kill()
        wait_until(lambda: READY_LINE in another.stdout_lines(), what="the second start to be the program")
        self.zamber_has_ended = True
        another.stop()

    def is_asking(self, pid):
        """Waits for an answer: connected to the bus, and asleep with next to nothing done since."""
        with open(f"/proc/{pid}/stat", encoding="ascii") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        with open(f"/proc/{pid}/maps", encoding="ascii") as maps:
            return fields[0] == "S" and "libQt6DBus" in maps.read() and self.is_connected(pid)

    def is_connected(self, pid):
        names = self.desktop.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/", "-m",
                                  "org.freedesktop.DBus.ListNames"])
        unique = [name.strip("[]'(), ") for name in names.split(",")]
        for name in unique:
            if name.startswith(":"):
                try:
                    answer = self.desktop.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/",
                                               "-m", "org.freedesktop.DBus.GetConnectionUnixProcessID", name])
                except RuntimeError:
                    continue  # it has gone meanwhile
                if f"uint32 {pid}," in answer:
                    return True
        return False

    def test_after_a_crash_the_next_start_works(self):
        for _ in range(2):
            self.zamber.child.kill()
            self.zamber.start()
        self.zamber.open_popover()


class StartsAtTheSameMomentTest(DesktopTestCase):
    history = ("first",)

    def start_zamber(self):
        """The cases start it, several times at once."""

    def test_exactly_one_stays_and_is_shown(self):
        for _ in range(5):
            started = [self.desktop.start("zamber", [self.zamber.binary]) for _ in range(3)]
            wait_until(lambda: sum(child.is_running() for child in started) == 1, 10.0,
                       lambda: f"one to stay: {[child.process.returncode for child in started]}")
            (self.zamber.child,) = [child for child in started if child.is_running()]
            self.assertEqual({child.wait(1) for child in started if not child.is_running()}, {0})
            self.zamber.wait_for_popover()
            self.assertEqual([child.stdout() for child in started if not child.is_running()], ["", ""])
            self.assertIn(READY_LINE, self.zamber.stdout_lines())
            last, self.zamber.child = self.zamber.child, None
            last.stop()
        self.zamber.start()
        self.expected_lines += ["📋 Loaded 1 items from disk", READY_LINE]


class StartByTheBusTest(DesktopTestCase):
    """Desktops start programs by their name on the bus."""

    history = ("first",)

    def prepare(self):
        services = self.desktop.directory / "services"
        (services / "app.zamber.Zamber.service").write_text(
            f"[D-BUS Service]\nName=app.zamber.Zamber\nExec={self.zamber.binary}\n"
        )
        self.desktop.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/org/freedesktop/DBus",
                          "-m", "org.freedesktop.DBus.ReloadConfig"])

    def start_zamber(self):
        """The bus does."""

    def tearDown(self):
        """A process that the bus has started is no child of ours: the desktop ends it."""

    def test_the_program_is_started_and_shown(self):
        self.zamber.activate_by_bus()
        popover = wait_until(
            lambda: next((window for window in self.desktop.windows()
                          if window.visible and window.title == "Zamber" and window.width > 300), None),
            what="the popover",
        )
        self.assertIn(popover.pid, pids_with_environment("XDG_RUNTIME_DIR", self.desktop.runtime_folder))
        another = self.desktop.start("another", [self.zamber.binary])
        self.assertEqual(another.wait(5), 0)
