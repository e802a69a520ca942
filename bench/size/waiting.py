# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a program has in memory while it waits at its prompt, on a terminal.

Under qemu-user the program's memory is part of the emulator's. The emulator is told where to put
the program's 4 GiB of addresses, and what lies there is counted: the program's pages, no page of
the emulator's own. Code that the emulator has read to translate it is there like code that a
machine has run.
"""

import ctypes
import os
import pty
import re
import select
import signal
import time
from contextlib import contextmanager
from dataclasses import dataclass

PROMPT = b"> "
SECONDS = 60  # longer than any start, emulated or not
SETTLED = 0.02  # seconds without a change, after which a program is taken to wait

GUEST_BASE = 1 << 44  # far from where Linux puts what is the emulator's own
GUEST_SIZE = 1 << 32

ADDR_NO_RANDOMIZE = 0x0040000  # of <sys/personality.h>


@dataclass(frozen=True)
class Waiting:
    """A program that waits. Memory is in KiB."""

    resident: int  # its pages that are in memory, shared ones included
    own: int  # those of them that belong to no file: what one more such process costs at least
    files: frozenset  # the files that are mapped


def become(command, environment):
    """Runs a command in this process's place. Its libraries lie at the same addresses in each run,
    where that is permitted: Linux maps pages around the one that is asked for, and which those are
    depends on the address."""
    ctypes.CDLL(None).personality(ADDR_NO_RANDOMIZE)
    os.execvpe(command[0], command, environment)


@contextmanager
def started(command, environment):
    """The process of a command on a terminal, once it has printed its prompt."""
    process, terminal = pty.fork()
    if process == 0:
        try:
            become(command, environment)
        except OSError as error:
            os.write(2, str(error).encode())
        finally:
            os._exit(127)
    try:
        await_prompt(terminal, command)
        yield process
    finally:
        os.kill(process, signal.SIGKILL)
        os.close(terminal)
        os.waitpid(process, 0)


def await_prompt(terminal, command):
    """Reads what a program prints until that ends with its prompt."""
    printed = b""
    until = time.monotonic() + SECONDS
    while not printed.endswith(PROMPT):
        ready, _, _ = select.select([terminal], [], [], max(0, until - time.monotonic()))
        try:
            got = os.read(terminal, 4096) if ready else b""
        except OSError:  # the program has ended
            got = b""
        if not got:
            raise RuntimeError(f"no prompt from {' '.join(command)}: {printed.decode('latin-1')}")
        printed += got


def read(process, addresses):
    """What a process has in memory within a range of addresses."""
    resident = own = 0
    files = set()
    counted = False
    with open(f"/proc/{process}/smaps", encoding="utf-8") as smaps:
        for line in smaps:
            words = line.split(None, 5)
            if re.fullmatch("[0-9a-f]+-[0-9a-f]+", words[0]):
                counted = int(words[0].partition("-")[0], 16) in addresses
                if counted and len(words) == 6 and words[5].startswith("/"):
                    files.add(words[5].rstrip("\n"))
            elif counted and words[0] == "Rss:":
                resident += int(words[1])
            elif counted and words[0] == "Anonymous:":
                own += int(words[1])
    return Waiting(resident, own, frozenset(files))


def measure(command, emulator=(), **variables):
    """Starts a command, lets it come to its prompt, and ends it."""
    addresses = range(0, 1 << 64)
    if emulator:
        addresses = range(GUEST_BASE, GUEST_BASE + GUEST_SIZE)
        command = [*emulator, "-B", hex(GUEST_BASE), *command]
    environment = {"PATH": os.environ["PATH"], "LC_ALL": "C", "TERM": "dumb"} | variables
    with started(command, environment) as process:
        before, now = None, read(process, addresses)
        while now != before:
            time.sleep(SETTLED)
            before, now = now, read(process, addresses)
        return now
