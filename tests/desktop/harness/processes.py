# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Child processes that never outlive their desktop."""

import ctypes
import os
import pathlib
import signal
import subprocess

from .waiting import wait_until

STOP_SECONDS = 3.0
PR_SET_CHILD_SUBREAPER = 36


def adopt_orphans():
    """From now on a process that outlives a child of ours becomes our child, so that it can be ended."""
    ctypes.CDLL(None, use_errno=True).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


class Child:
    """A started program. Its output goes to two files: a pipe that is not read would fill and stop it."""

    def __init__(self, name, command, environment, directory, *, stdin=None, pass_fds=(), death_signal="KILL", cwd=None):
        self.name = name
        logs = pathlib.Path(directory)
        logs.mkdir(parents=True, exist_ok=True)
        self.stdout_path = _unused(logs, f"{name}.out")
        self.stderr_path = self.stdout_path.with_suffix(".err")
        # setpriv replaces itself by the command. Should this process be killed, the kernel ends the child.
        guarded = ["/usr/bin/setpriv", "--pdeathsig", death_signal, "--", *map(str, command)]
        with open(self.stdout_path, "wb") as out, open(self.stderr_path, "wb") as err:
            self.process = subprocess.Popen(
                guarded,
                env=environment,
                stdin=subprocess.DEVNULL if stdin is None else stdin,
                stdout=out,
                stderr=err,
                pass_fds=pass_fds,
                cwd=cwd,
                start_new_session=True,
            )

    @property
    def pid(self):
        return self.process.pid

    def is_running(self):
        return self.process.poll() is None

    def stdout(self):
        return self.stdout_path.read_bytes().decode("utf-8", "replace")

    def stderr(self):
        return self.stderr_path.read_bytes().decode("utf-8", "replace")

    def stdout_lines(self):
        return self.stdout().splitlines()

    def stderr_lines(self):
        return self.stderr().splitlines()

    def wait(self, timeout):
        return self.process.wait(timeout)

    def stop(self):
        """Asks the program to end, then makes it. Returns its exit status."""
        for ask in (self.process.terminate, self.process.kill):
            if self.is_running():
                # A stopped process takes note of SIGTERM only when it goes on.
                self._send(signal.SIGCONT)
                ask()
            try:
                status = self.process.wait(STOP_SECONDS)
                break
            except subprocess.TimeoutExpired:
                continue
        else:
            raise RuntimeError(f"{self.name} (pid {self.pid}) cannot be ended")
        if self.process.stdin:
            self.process.stdin.close()
        return status

    def kill(self):
        """Ends the program as a crash would."""
        self._send(signal.SIGKILL)
        return self.process.wait(STOP_SECONDS)

    def pause(self):
        self._send(signal.SIGSTOP)

    def resume(self):
        self._send(signal.SIGCONT)

    def _send(self, number):
        if self.is_running():
            os.kill(self.pid, number)


def _unused(folder, name):
    path = folder / name
    stem, suffix = path.stem, path.suffix
    number = 2
    while path.exists():
        path = folder / f"{stem}-{number}{suffix}"
        number += 1
    return path


def pids_with_environment(name, value):
    """The processes that were started with this environment variable, however they have detached themselves since."""
    wanted = f"{name}={value}".encode()
    found = []
    for entry in os.listdir("/proc"):
        if not entry.isdigit() or int(entry) == os.getpid():
            continue
        try:
            with open(f"/proc/{entry}/environ", "rb") as stream:
                if wanted in stream.read().split(b"\0"):
                    found.append(int(entry))
        except OSError:
            continue
    return found


def end_all_with_environment(name, value):
    """Ends by their pids all processes that carry the variable; there are none left when it returns."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        for pid in pids_with_environment(name, value):
            try:
                os.kill(pid, signal.SIGCONT)
                os.kill(pid, number)
            except ProcessLookupError:
                pass
        try:
            wait_until(lambda: not pids_with_environment(name, value), STOP_SECONDS, "the desktop's processes to end")
            return
        except AssertionError:
            if number == signal.SIGKILL:
                raise


def reap(pids):
    """Lets those of the ended processes go that are children of ours by adoption."""
    for pid in pids:
        try:
            os.waitpid(pid, os.WNOHANG)
        except ChildProcessError:
            pass
