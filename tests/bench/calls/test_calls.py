# SPDX-License-Identifier: LicenseRef-Proprietary
"""What calls cost beside those written by hand, in instructions, which repeat: the goals of
bench/speed/sections/calls.py, on the wrappers of this tree.

Environment:
    TREE              the description of the build tree
    SLOW_CALL_COUNTS  bench/calls/call_counts.cpp with wrappers that are not optimised
    BUILT             for what, and with what: "x86_64 GNU"
"""

import json
import os
from pathlib import Path

import pytest
from catalogue import FILE, FUNCTIONS, INTEGER_OUT, REGISTERS, TEXT, TEXT_OUT, UNCHECKED
from measured_calls import ORDINARY, WITH_ZEROS
from sections.calls import (
    BY_HAND, FIRST_BY_HAND, NUMBERS_GOAL, OTHER_GOAL, instructions_measured,
)

TREE = json.loads(Path(os.environ["TREE"]).read_text(encoding="utf-8"))
SLOW = TREE | {"call_counts": os.environ["SLOW_CALL_COUNTS"]}
NO_NUMBERS = (FILE, INTEGER_OUT, TEXT, TEXT_OUT)
MEASURABLE = [one for one in FUNCTIONS if REGISTERS not in one.kinds]


@pytest.fixture(name="measured", scope="module")
def measured_once():
    return list(instructions_measured(TREE))


def names(functions):
    return sorted(one.name for one in functions)


def test_every_function_that_takes_no_table_is_measured():
    assert sorted(call.function for call in ORDINARY) == names(MEASURABLE)


def test_every_function_that_takes_numbers_is_measured_with_zeros():
    expected = [one for one in MEASURABLE if any(kind not in NO_NUMBERS for kind in one.kinds)]
    assert sorted(call.function for call in WITH_ZEROS) == names(expected)


def test_functions_that_take_checked_numbers_only_have_the_stricter_goal(measured):
    other = (*NO_NUMBERS, UNCHECKED)
    expected = [one for one in MEASURABLE
                if one.kinds and all(kind not in other for kind in one.kinds)]
    stricter = [one.what for one in measured if one.goal == NUMBERS_GOAL]
    assert sorted(what.partition("(")[0] for what in stricter) == names(expected)


def test_no_goal_is_missed(measured):
    goals = [one for one in measured if one.goal is not None]
    assert len(goals) == len(ORDINARY) + len(WITH_ZEROS)
    assert [(one.what, one.ours, one.others, one.goal) for one in goals if one.missed] == []


def test_slower_wrappers_miss_every_goal():
    for one in instructions_measured(SLOW, ORDINARY):
        assert one.goal is None or one.ours / one.others > OTHER_GOAL, one


# On other machines and with other compilers there is no first count to hold them to.
@pytest.mark.skipif(os.environ["BUILT"] != "x86_64 GNU", reason="first counted with GCC for x86-64")
def test_those_by_hand_take_what_they_took_at_first(measured):
    by_hand = {one.what: one.others for one in measured
               if one.what in FIRST_BY_HAND and one.beside == BY_HAND}
    assert by_hand == {what: pytest.approx(first, rel=0.02)
                       for what, first in FIRST_BY_HAND.items()}
