#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""That tools/in-debian runs a command in another release and leaves nothing behind, whatever happens. Takes root and the
root folder of the release in ZAMBER_RELEASE, which it makes where it is missing; ./test --full runs it."""

import os
import pathlib
import platform
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
SCRIPT = TREE / "tools" / "in-debian"
RELEASE = os.environ.get("ZAMBER_RELEASE", "trixie")
PATIENCE_SECONDS = 60.0
# Found in the command line of every process that a case leaves in the namespaces.
MARK = f"987.{os.getpid()}"


def in_debian(*command, release=RELEASE, script=SCRIPT, **options):
    return subprocess.run([script, release, *command], capture_output=True, text=True, check=False, **options)


def marked_processes():
    found = []
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if MARK.encode() in (folder / "cmdline").read_bytes() and int(folder.name) != os.getpid():
                found.append(int(folder.name))
        except OSError:
            continue  # has ended meanwhile
    return found


def mounts():
    return [line for line in pathlib.Path("/proc/self/mountinfo").read_text().splitlines() if "/build/roots/" in line]


def wait_until(condition, what):
    end = time.monotonic() + PATIENCE_SECONDS
    while not (answer := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"waited {PATIENCE_SECONDS} s for {what}")
        time.sleep(0.05)
    return answer


def take_signals():
    """A command in the background of a script ignores some, and hands that on."""
    for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
        signal.signal(number, signal.SIG_DFL)


class InDebianTest(unittest.TestCase):
    def setUp(self):
        self.addCleanup(self.assert_nothing_is_left)

    def assert_nothing_is_left(self):
        self.assertEqual(marked_processes(), [])
        self.assertEqual(mounts(), [])

    def test_it_is_the_other_release_with_a_copy_of_the_tree(self):
        answer = in_debian("sh", "-c", ". /etc/os-release && echo $VERSION_CODENAME && pwd && ls -A | sort && id -u")
        lines = answer.stdout.split()
        self.assertEqual((answer.returncode, lines[-1]), (0, "0"), answer.stderr)
        self.assertIn(RELEASE, lines)
        self.assertIn("/zamber", lines)
        self.assertIn("CMakeLists.txt", lines)
        self.assertNotIn(".git", lines)

    def test_the_copy_keeps_its_builds_and_nothing_else_of_its_own(self):
        self.assertEqual(in_debian("sh", "-c", "mkdir -p build && touch build/kept stray").returncode, 0)
        self.addCleanup(in_debian, "rm", "-f", "build/kept")
        answer = in_debian("sh", "-c", "test -e build/kept && ! test -e stray && ! test -e build/roots")
        self.assertEqual(answer.returncode, 0, answer.stderr)

    def test_the_status_is_the_commands(self):
        self.assertEqual(in_debian("sh", "-c", "exit 7").returncode, 7)
        self.assertEqual(in_debian("sh", "-c", "kill -TERM $$").returncode, 128 + signal.SIGTERM)
        self.assertEqual(in_debian("no-such-command").returncode, 127)

    def test_arguments_and_input_arrive_as_they_are(self):
        answer = in_debian("sh", "-c", "printf '<%s>' \"$@\"; cat", "sh", "a b", "$HOME", "", "'\"", input="typed")
        self.assertEqual((answer.returncode, answer.stdout), (0, "<a b><$HOME><><'\">typed"), answer.stderr)

    def test_a_build_finds_what_it_needs(self):
        answer = in_debian("sh", "-c", "echo x >/dev/null && test -r /proc/self/status && test -d /dev/shm && "
                                       "echo x >/dev/shm/x && echo x >/tmp/x && head -c 1 /dev/urandom >/dev/null && "
                                       "script -qec true /dev/null >/dev/null && test -d /sys/class")
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))

    def test_signals_are_not_ignored_inside(self):
        self.assertEqual(in_debian("sh", "-c", "kill -INT $$; sleep 5").returncode, 128 + signal.SIGINT)

    def test_what_runs_on_in_the_background_ends_with_the_command(self):
        answer = in_debian("sh", "-c", f"setsid sleep {MARK} >/dev/null 2>&1 </dev/null & exit 3")
        self.assertEqual(answer.returncode, 3, answer.stderr)

    def test_signals_end_all_of_it(self):
        for number, status in ((signal.SIGTERM, 143), (signal.SIGINT, 130), (signal.SIGHUP, 129),
                               (signal.SIGKILL, -signal.SIGKILL)):
            with self.subTest(number):
                running = subprocess.Popen(
                    [SCRIPT, RELEASE, "sh", "-c", f"trap '' TERM INT HUP; setsid sleep {MARK} & sleep {MARK}"],
                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL,
                    preexec_fn=take_signals)
                self.addCleanup(running.kill)
                # The script's own and its namespaces' first process have the mark in their arguments too.
                wait_until(lambda: len([pid for pid in marked_processes() if self.is_sleep(pid)]) == 2, "the command")
                running.send_signal(number)
                self.assertEqual(running.wait(PATIENCE_SECONDS), status)
                if number == signal.SIGKILL:  # nobody is left to wait for the others
                    wait_until(lambda: not marked_processes(), "the end of the processes")
                self.assert_nothing_is_left()

    def is_sleep(self, pid):
        try:
            return pathlib.Path(f"/proc/{pid}/cmdline").read_bytes().startswith(b"sleep\0")
        except OSError:
            return False

    def test_two_at_a_time_wait_for_each_other(self):
        first = subprocess.Popen([SCRIPT, RELEASE, "sh", "-c", "mkdir /zamber/alone && sleep 2 && rmdir /zamber/alone"],
                                 stdout=subprocess.DEVNULL, stdin=subprocess.DEVNULL)
        wait_until((TREE / "build" / "roots" / RELEASE / "zamber" / "alone").exists, "the first command")
        second = in_debian("test", "!", "-e", "/zamber/alone")
        self.assertEqual((first.wait(PATIENCE_SECONDS), second.returncode), (0, 0))

    def test_without_root_it_says_so(self):
        with tempfile.TemporaryDirectory() as folder:
            # A tree that anybody may read, unlike perhaps this one.
            os.chmod(folder, 0o755)
            shutil.copytree(TREE / "tools", pathlib.Path(folder) / "tools")
            answer = subprocess.run(["setpriv", "--reuid", "65534", "--regid", "65534", "--clear-groups",
                                     pathlib.Path(folder) / "tools" / "in-debian", RELEASE, "true"],
                                    capture_output=True, text=True, check=False)
        self.assertEqual(answer.returncode, 1)
        self.assertIn("takes root", answer.stderr)

    def test_what_is_no_release_is_refused(self):
        for release in ("", "Trixie/..", "--nonsense"):
            self.assertEqual(in_debian("true", release=release).returncode, 2, release)

    def test_a_release_that_cannot_be_installed_leaves_nothing(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copytree(TREE / "tools", pathlib.Path(folder) / "tools")
            answer = in_debian("true", release="nosuchrelease", script=pathlib.Path(folder) / "tools" / "in-debian")
            self.assertEqual(answer.returncode, 1, answer.stdout)
            self.assertIn("could not be installed", answer.stderr)
            self.assertFalse((pathlib.Path(folder) / "build" / "roots" / "nosuchrelease").exists())


if __name__ == "__main__":
    if platform.system() != "Linux" or os.geteuid() != 0:
        sys.exit("this takes root on Linux")
    unittest.main()
