# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Ends a program at one of its own system calls, which no clock can do."""

import ctypes
import os
import platform
import signal
import struct

PTRACE_SEIZE, PTRACE_INTERRUPT, PTRACE_SYSCALL, PTRACE_GET_SYSCALL_INFO = 0x4206, 0x4207, 24, 0x420E
PTRACE_O_TRACESYSGOOD = 1
SYSCALL_STOP = signal.SIGTRAP | 0x80
ENTRY = 1
# struct ptrace_syscall_info: what happens, the machine, two pointers, then of an entry its number and arguments.
SYSCALL_INFO = struct.Struct("B3xIQQQ6Q")
PWRITE = {"x86_64": 18, "aarch64": 67}[platform.machine()]


def _ptrace(request, pid, address=0, data=0):
    libc = ctypes.CDLL(None, use_errno=True)
    libc.ptrace.argtypes = [ctypes.c_long, ctypes.c_long, ctypes.c_void_p, ctypes.c_void_p]
    libc.ptrace.restype = ctypes.c_long
    if libc.ptrace(request, pid, address, data) < 0:
        raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))


def kill_before_write(pid, number):
    """Lets the program's main thread run until it is about to write into a file for that many times, counted from 1,
    and kills it there. Returns when it is dead."""
    _ptrace(PTRACE_SEIZE, pid, data=PTRACE_O_TRACESYSGOOD)
    _ptrace(PTRACE_INTERRUPT, pid)
    info = ctypes.create_string_buffer(SYSCALL_INFO.size)
    while number > 0:
        _, status = os.waitpid(pid, 0)
        if not os.WIFSTOPPED(status):
            raise RuntimeError(f"ended by itself with status {status}")
        passed_on = 0
        if os.WSTOPSIG(status) == SYSCALL_STOP:
            _ptrace(PTRACE_GET_SYSCALL_INFO, pid, len(info), ctypes.addressof(info))
            kind, _, _, _, call, *_ = SYSCALL_INFO.unpack(info.raw)
            if kind == ENTRY and call == PWRITE:
                number -= 1
        elif status >> 16 == 0:
            passed_on = os.WSTOPSIG(status)  # a signal that was meant for it
        if number > 0:
            _ptrace(PTRACE_SYSCALL, pid, data=passed_on)
    os.kill(pid, signal.SIGKILL)
    os.waitpid(pid, 0)
