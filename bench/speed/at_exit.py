# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a program has in memory right before it exits, pages of its libraries that it shares with
other processes included. Nothing in the program is changed for it: the kernel stops it there."""

import ctypes
import os
import re
import signal
from pathlib import Path
from statistics import median

# Of <sys/ptrace.h>.
PTRACE_TRACEME, PTRACE_CONT, PTRACE_SETOPTIONS = 0, 7, 0x4200
PTRACE_O_TRACEEXIT, PTRACE_EVENT_EXIT = 0x40, 6

AT_ITS_EXIT = signal.SIGTRAP | PTRACE_EVENT_EXIT << 8

ptrace = ctypes.CDLL(None, use_errno=True).ptrace
ptrace.argtypes = [ctypes.c_long, ctypes.c_long, ctypes.c_void_p, ctypes.c_void_p]


def traced(request, process=0, data=None):
    if ptrace(request, process, None, data) == -1:
        raise OSError(ctypes.get_errno(), "ptrace")


def become(command, environment):
    nothing = os.open(os.devnull, os.O_RDWR)
    os.dup2(nothing, 0)
    os.dup2(nothing, 1)
    traced(PTRACE_TRACEME)
    os.execvpe(command[0], command, environment)


def run_to_exit(process):
    """Lets a traced program run until it is about to exit."""
    _, status = os.waitpid(process, 0)  # at its first instruction
    traced(PTRACE_SETOPTIONS, process, PTRACE_O_TRACEEXIT)
    while status >> 8 != AT_ITS_EXIT:
        traced(PTRACE_CONT, process)
        _, status = os.waitpid(process, 0)
        if not os.WIFSTOPPED(status):
            raise RuntimeError("the program was killed")


def of_one_run(command, environment):
    process = os.fork()
    if process == 0:
        try:
            become(command, environment)
        finally:
            os._exit(127)
    run_to_exit(process)
    smaps = Path(f"/proc/{process}/smaps").read_text(encoding="utf-8")
    traced(PTRACE_CONT, process)
    _, status = os.waitpid(process, 0)
    if status != 0:
        raise RuntimeError(f"{' '.join(command)} failed")
    return sum(map(int, re.findall(r"^Rss: +(\d+) kB$", smaps, re.M)))


def resident(command, environment, times):
    """The median of several runs, in KiB. Which pages around the one that is asked for come into
    memory depends on the addresses, which differ from run to run as they do for a user."""
    return median(of_one_run(command, environment) for _ in range(times))
