# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a line costs at the prompt, however many there are. Lines that fail are another matter: they
leave their errors on Lua's stack."""

import tempfile
from pathlib import Path

from comparison import Comparison
from lines import LEAVE, good_lines, instructions_of, shell, times_of

SIZES = (1_000, 10_000, 100_000, 1_000_000)
GOAL = 1.25

# Short runs are repeated more often: what a start takes differs by more than their lines do.
MOST_ROUNDS = 400
ROUND_LINES = 5_000_000


def rounds(size):
    return max(5, min(MOST_ROUNDS, ROUND_LINES // size))


def instructions_per_line(tree, lines):
    command, variables = shell(tree)
    start = instructions_of(command, [LEAVE], **variables)
    return (instructions_of(command, [*lines, LEAVE], **variables) - start) / len(lines)


def nanoseconds_per_line(tree, lines):
    """From the fastest run with the lines and the fastest without, in turn."""
    command, variables = shell(tree)
    with tempfile.TemporaryDirectory() as folder:
        files = Path(folder, "none"), Path(folder, "all")
        for file, content in zip(files, ([LEAVE], [*lines, LEAVE])):
            file.write_text("".join(content), encoding="utf-8")
        runs = [[times_of(command, file, **variables).processor for file in files]
                for _ in range(rounds(len(lines)))]
    start, whole = (min(times) for times in zip(*runs))
    return 1e9 * (whole - start) / len(lines)


def measured(tree):
    if tree["emulator"]:
        return
    lines = good_lines(SIZES[-1])
    for unit, per_line in (("instructions", instructions_per_line), ("ns", nanoseconds_per_line)):
        first, *costs = (per_line(tree, lines[:size]) for size in SIZES)
        for size, cost in zip(SIZES[1:], costs):
            yield Comparison(
                section="line_growth", what=f"one of {size:,}", unit=unit, ours=cost,
                others=first, beside=f"one of {SIZES[0]:,}", goal=GOAL, size=size)
