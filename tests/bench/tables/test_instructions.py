# SPDX-License-Identifier: LicenseRef-Proprietary
"""Instructions of calls with a register table, beside those of a call that takes every element
through its text.

Environment: TREE, the description of the build tree
"""

import json
import os
from pathlib import Path

import pytest
from measured_tables import (
    BYTES, DECIMALS, OURS, PRINTED, TEN_DIGITS, THROUGH_TEXT, instructions_of_call,
)

TREE = json.loads(Path(os.environ["TREE"]).read_text(encoding="utf-8"))

# A tenth more than GCC 12 and clang 14 make at most. Through text, large tables take many lines of
# the emulator's log: there, smaller ones do.
LIMITS = {
    (TEN_DIGITS, 10): 0.042, (DECIMALS, 10): 0.060, (BYTES, 10): 0.066,
    (TEN_DIGITS, 1000): 0.026, (DECIMALS, 1000): 0.026, (BYTES, 1000): 0.050,
} if not TREE["emulator"] else {
    (TEN_DIGITS, 10): 0.045, (DECIMALS, 10): 0.063, (BYTES, 10): 0.073,
    (TEN_DIGITS, 100): 0.033, (DECIMALS, 100): 0.031, (BYTES, 100): 0.061,
}


def ratio(kind, size):
    return (instructions_of_call(TREE, OURS, kind, size)
            / instructions_of_call(TREE, THROUGH_TEXT, kind, size))


@pytest.mark.parametrize("kind, size", LIMITS)
def test_a_call_takes_a_small_part_of_what_it_takes_through_text(kind, size):
    assert ratio(kind, size) <= LIMITS[kind, size]


def test_elements_that_are_printed_would_be_seen():
    assert ratio(PRINTED, 10) > 5 * max(LIMITS.values())


def test_the_same_calls_take_the_same_again():
    first, second = (instructions_of_call(TREE, OURS, DECIMALS, 10) for _ in range(2))
    assert first == second
