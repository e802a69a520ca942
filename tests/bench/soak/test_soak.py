# SPDX-License-Identifier: LicenseRef-Proprietary
"""A hundredth of a soak: nothing grows but by the error values that failing lines leave.

Environment:
    TREE            the description of the build tree
    LEAKING_DRIVER  a driver that loses memory and files
"""

import json
import os
import re
from pathlib import Path

import pytest
from failing import KINDS, Kind
from instructions import of_program
from lines import LEAVE, good_lines, instructions_of
from loops import on_trivial_driver
from soaking import (
    LUA_SLACK,
    soak_calls,
    soak_contexts,
    soak_lines,
    soak_lines_and_calls,
    soak_script,
)
from calls import calls_body
from measured_calls import ORDINARY

TREE = json.loads(Path(os.environ["TREE"]).read_text(encoding="utf-8"))
LEAKING = os.environ["LEAKING_DRIVER"]
LINES = 10_000
CONTEXTS = 10_000
CALLS = 1_000_000


def complaints(run):
    """What grew too much, without the figures."""
    return [re.sub(r".*: (.*) grew by .*", r"\1", complaint) for complaint in run.complaints]


def test_lines_that_do_not_fail_leave_nothing():
    assert complaints(soak_lines(TREE, "lines", LINES, kinds=())) == []


def test_lines_of_all_kinds_leave_their_error_values_and_nothing_else():
    run = soak_lines(TREE, "lines", LINES)
    assert complaints(run) == []
    assert run.samples[-1].failures == run.failures == LINES // 3


@pytest.mark.parametrize("kind", KINDS, ids=lambda kind: kind.name)
def test_a_failing_line_leaves_what_its_error_value_takes(kind):
    run = soak_lines(TREE, kind.name, LINES, kinds=(kind,))
    assert complaints(run) == []
    assert run.growth("lua") + LUA_SLACK >= kind.least * (LINES - LINES // 100) // 3


def test_calls_leave_nothing():
    assert complaints(soak_calls(TREE, CALLS)) == []


def test_lines_that_make_calls_beside_failing_ones_leave_the_error_values_and_nothing_else():
    run = soak_lines_and_calls(TREE, LINES, CALLS)
    assert complaints(run) == []
    assert run.samples[-1].failures == run.failures == LINES // 3


def test_all_functions_are_called():
    called = set(re.findall(r"radio[A-Z]\w+", calls_body()))
    assert {call.function for call in ORDINARY} < called
    assert {"radioSetTxPowerRegisters", "radioSetRxGainRegisters"} < called


def test_contexts_leave_nothing():
    assert complaints(soak_contexts(TREE, CONTEXTS)) == []


def test_values_that_lines_leave_would_be_seen():
    run = soak_lines(TREE, "lines", LINES, kinds=(),
                     good=lambda count: ["lost = {lost}\n"] * count)
    assert complaints(run)[:2] == ["Lua's memory", "resident memory"]


def test_values_beside_the_error_values_would_be_seen():
    run = soak_lines(TREE, "lines", LINES,
                     good=lambda count: ["lost = {lost}\n"] * count)
    assert "Lua's memory" in complaints(run)


def test_memory_that_failing_lines_lose_outside_lua_would_be_seen():
    kind = Kind("losing", "radioGetTemperature() nothing()", "shared")
    run = soak_lines(TREE | {"simulated_board": LEAKING}, "lines", LINES, kinds=(kind,))
    assert complaints(run) == ["resident memory"]


def test_lines_that_fail_unexpectedly_would_be_seen():
    run = soak_lines(TREE, "lines", 300, kinds=(), good=lambda count: ["error()\n"] * count)
    assert any("lines failed" in complaint for complaint in run.complaints)


def test_values_that_calls_leave_would_be_seen():
    assert "Lua's memory" in complaints(soak_calls(TREE, CALLS // 10, extra="lost = {lost}"))


def test_memory_that_calls_lose_outside_lua_would_be_seen():
    assert complaints(soak_calls(TREE, CALLS, driver=LEAKING)) == ["resident memory", "the heap"]


def test_memory_and_files_that_contexts_lose_would_be_seen():
    assert complaints(soak_contexts(TREE, CONTEXTS, driver=LEAKING)) == [
        "resident memory", "the heap", "the number of open files",
    ]


def test_a_shell_that_ends_early_is_an_error():
    with pytest.raises(RuntimeError, match="ended with status"):
        soak_script(TREE, "nothing", 100, "function body() os.exit(3) end")


def assert_growing_evenly(instructions):
    """Those of one, two and three times as much: the last third is no slower than the second."""
    once, twice, thrice = instructions
    assert thrice - twice == pytest.approx(twice - once, rel=0.02)


def test_the_last_line_is_as_fast_as_the_first():
    variables = on_trivial_driver(TREE)
    lines = good_lines(1000)
    assert_growing_evenly([
        instructions_of([TREE["executable"]], [*lines * times, LEAVE], **variables)
        for times in (2, 4, 6)
    ])


def instructions_of_calls(count, extra=""):
    return of_program([TREE["executable"], "-c", f"{calls_body(extra)} body({count})"],
                      **on_trivial_driver(TREE))


def test_the_last_call_is_as_fast_as_the_first():
    assert_growing_evenly([instructions_of_calls(count) for count in (10_000, 20_000, 30_000)])


def test_calls_that_become_slower_would_be_seen():
    slower = "steps = (steps or 0) + 1 for _ = 1, steps do end"
    with pytest.raises(AssertionError):
        assert_growing_evenly([instructions_of_calls(count, slower)
                               for count in (10_000, 20_000, 30_000)])
