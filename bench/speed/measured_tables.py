# SPDX-License-Identifier: LicenseRef-Proprietary
"""What bench/tables tells: calls of a function for register tables, the shell's and one that takes
every element through its text."""

import statistics

import instructions
from loops import least_times, on_trivial_driver

OURS, THROUGH_TEXT = "ours", "through text"
TEN_DIGITS, DECIMALS, BYTES = (
    "ten-digit integers", "three-decimal fractions", "integers below 256",
)
PRINTED, STRINGS, METATABLE = (
    "fractions that are printed", "strings of ten digits", "with a metatable",
)


def instructions_of_call(tree, setter, kind, size):
    """Of one call, on average: collecting texts takes more in one than in another. The first call
    is left out, in which all texts are new."""
    times = 3 if tree["emulator"] and size > 10 else 9
    command = [tree["table_calls"], setter, kind, str(size), str(times)]
    counts = instructions.between("tableCallMark", command, tree["emulator"],
                                  **on_trivial_driver(tree))
    assert len(counts) == times
    return statistics.mean(counts[1:])


def times(tree, wanted):
    """The nanoseconds of one call by (setter, kind, size), of those that the regular expression
    names."""
    least = {}
    for name, nanoseconds in least_times(tree, "table_times", wanted).items():
        setter, kind, size = name.split("/")[:3]
        least[setter, kind, int(size)] = nanoseconds
    return least
