# SPDX-License-Identifier: LicenseRef-Proprietary
"""Lines as people type them, and what a program takes to run them from its standard input."""

import os
import random
import subprocess
import time
from dataclasses import dataclass

import instructions
from loops import on_trivial_driver

LEAVE = "exit\n"  # what ends the shell; the end of the input ends the loop beside it

# Assignments, calls and comparisons; none fails, and none costs more for those before it.
STATEMENTS = (
    "gain = {}",
    "power = -{}.5",
    "band = 'B{}'",
    "frequency = 2140000000 + {}",
    "levels = {{{}, 20, 30}}",
    "print({})",
    "type({})",
    "text = tostring({})",
    "low = math.min({}, 7)",
    "assert({} >= 0)",
    "equal = gain == {}",
    "if power ~= {} then ok = true end",
)


def good_lines(count):
    """The same lines whenever they are asked for."""
    chance = random.Random(20240607)
    return [chance.choice(STATEMENTS).format(chance.randrange(64)) + "\n" for _ in range(count)]


def shell(tree):
    """The command and the variables of the shell by itself."""
    return [tree["executable"]], on_trivial_driver(tree)


def instructions_of(command, lines, **variables):
    """Those of a whole run."""
    return instructions.of_program(command, input="".join(lines).encode(), **variables)


@dataclass(frozen=True)
class Times:
    """What a run took, in seconds."""

    wall: float
    processor: float  # user and system

    def least(self, other):
        return Times(min(self.wall, other.wall), min(self.processor, other.processor))


def times_of(command, file, **variables):
    """Those of one run on the lines of a file, which another process puts into a pipe. What the
    program prints is not read: it goes to /dev/null, whose buffer is as large as a pipe's."""
    with subprocess.Popen(["cat", file], stdout=subprocess.PIPE) as writer:
        start = time.perf_counter()
        program = subprocess.Popen(
            command,
            stdin=writer.stdout,
            stdout=subprocess.DEVNULL,
            env=instructions.ENVIRONMENT | variables,
        )
        writer.stdout.close()
        _, status, usage = os.wait4(program.pid, 0)
        wall = time.perf_counter() - start
    program.returncode = os.waitstatus_to_exitcode(status)
    if program.returncode != 0:
        raise RuntimeError(f"{command} ended with status {program.returncode}")
    return Times(wall, usage.ru_utime + usage.ru_stime)
