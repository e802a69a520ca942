# SPDX-License-Identifier: LicenseRef-Proprietary
"""The prompt beside the least that runs lines as Lua, bench/prompt/minimal_loop.c: it shows no
prompt and knows no words. Both get the same lines, but for the word that ends the shell."""

import functools
import tempfile
from pathlib import Path

from comparison import Comparison
from lines import LEAVE, good_lines, instructions_of, shell, times_of

LINES = 1_000_000
ROUNDS = 7  # of both programs in turn; noise only adds, so the fastest counts
COUNTED = 10_000  # lines of which the instructions are counted, behind as many that warm up
GOAL = 1.15


def instructions_per_line(command, end, lines, **variables):
    """Those that the second half of the lines adds."""
    half, whole = (instructions_of(command, [*part, end], **variables)
                   for part in (lines[:len(lines) // 2], lines))
    return (whole - half) / (len(lines) - len(lines) // 2)


def counted(tree, lines):
    """Instructions of a line in the shell and in the loop beside it."""
    command, variables = shell(tree)
    return (instructions_per_line(command, LEAVE, lines, **variables),
            instructions_per_line([tree["minimal_loop"]], "", lines))


def timed(tree, lines):
    """The least times of the shell and of the loop beside it."""
    command, variables = shell(tree)
    with tempfile.TemporaryDirectory() as folder:
        ours, others = Path(folder, "ours"), Path(folder, "others")
        ours.write_text("".join(lines) + LEAVE, encoding="utf-8")
        others.write_text("".join(lines), encoding="utf-8")
        rounds = [(times_of(command, ours, **variables),
                   times_of([tree["minimal_loop"]], others)) for _ in range(ROUNDS)]
    return [functools.reduce(lambda one, other: one.least(other), times) for times in zip(*rounds)]


def measured(tree):
    if tree["emulator"]:  # neither figure is that of the machine
        return
    comparison = functools.partial(
        Comparison, section="prompt", beside="a minimal loop in C", goal=GOAL)
    ours, others = timed(tree, good_lines(LINES))
    yield comparison(what=f"{LINES:,} lines, wall time", unit="ms",
                     ours=1000 * ours.wall, others=1000 * others.wall)
    yield comparison(what=f"{LINES:,} lines, user and system time", unit="ms",
                     ours=1000 * ours.processor, others=1000 * others.processor)
    for what, lines in (("a line", good_lines(2 * COUNTED)),
                        ("the shortest line, x=1", 2 * COUNTED * ["x=1\n"])):
        ours, others = counted(tree, lines)
        yield comparison(what=what, unit="instructions", ours=ours, others=others)
