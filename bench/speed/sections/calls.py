# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a call of each function costs, Lua's own part of it included, beside that of one written by
hand in plain C (bench/yardstick), on a driver that does nothing."""

import instructions
from comparison import Comparison
from loops import least_times, on_trivial_driver
from measured_calls import ORDINARY, WITH_ZEROS

BY_HAND = "the same by hand"

NUMBERS_GOAL = 0.89  # where all arguments are checked numbers, and there are some
OTHER_GOAL = 1.00

# What those by hand took when they were first written, on x86-64 with Debian's Lua and GCC: by this
# can be told that nobody has made them slower.
FIRST_BY_HAND = {
    "radioSetTxFrequency(2140000000)": 285,
    "radioSetTxDcOffset(1, 5, -5)": 476,
    "radioGetTemperature()": 212,
}

# What a script can do about what a call costs: ways to write one, beside f(2140000000) with the
# function in the local f.
FREQUENCY = "radioSetTxFrequency"
PLAIN = "f(2140000000)"
WAYS = {
    "radioSetTxFrequency(2140000000), a global": "radioSetTxFrequency(2140000000)",
    "radio.radioSetTxFrequency(2140000000)": "radio.radioSetTxFrequency(2140000000)",
    "f('2140000000'), a string": "f('2140000000')",
    "pcall(f, 2140000000)": "pcall(f, 2140000000)",
}

# Rounds of a loop. Each is measured with both, so that entering and leaving it does not count.
SHORT, LONG = 1, 11


def per_round(tree, loops):
    """The instructions of what a round of each loop does; the loops are (table, function, text),
    see bench/calls/call_counts.cpp."""
    loops = [("empty", "call", ""), *loops]  # of which the first tells what a loop itself takes
    counts = instructions.between(
        "measurementMark", [tree["call_counts"], str(SHORT), str(LONG)], tree["emulator"],
        input="".join(" ".join(words) + "\n" for words in loops), **on_trivial_driver(tree),
    )
    runs = counts[::2]  # the others are between runs
    assert len(runs) == 2 * len(loops), f"{len(runs)} runs of {len(loops)} loops"
    loop, *rounds = [long - short for short, long in zip(runs[::2], runs[1::2])]
    return [(count - loop) / (LONG - SHORT) for count in rounds]


def goal_of(call):
    return NUMBERS_GOAL if call.only_numbers and call in ORDINARY else OTHER_GOAL


def instructions_measured(tree, calls=(*ORDINARY, *WITH_ZEROS)):
    shown = [call for call in ORDINARY if call.text in FIRST_BY_HAND]
    counts = per_round(tree, [
        *(("empty", "call", call.statement) for call in shown),
        *((table, call.function, call.statement)
          for call in calls for table in ("radio", "yardstick")),
    ])
    nothing, counts = counts[:len(shown)], counts[len(shown):]
    ours, by_hand = counts[::2], counts[1::2]
    for call, our, others in zip(calls, ours, by_hand):
        yield Comparison("calls", call.text, "instructions", our, others, BY_HAND,
                         goal_of(call))
    for call, others in zip(shown, nothing):
        yield Comparison("calls", call.text, "instructions", ours[calls.index(call)], others,
                         "an empty C function")


def ways_measured(tree):
    texts = (PLAIN, *WAYS.values())
    plain, *others = per_round(tree, [("radio", FREQUENCY, text) for text in texts])
    for what, count in zip(WAYS, others):
        yield Comparison("calls", what, "instructions", count, plain, f"{PLAIN}, a local")


def times_measured(tree):
    times = least_times(tree, "call_times", repetitions=15)
    for name, ours in times.items():
        table, _, function = name.partition("/")
        if table == "radio":
            yield Comparison("calls", f"{function}, in a loop", "ns", ours,
                             times[f"yardstick/{function}"], BY_HAND)


def measured(tree):
    yield from instructions_measured(tree)
    yield from ways_measured(tree)
    if tree["call_times"]:
        yield from times_measured(tree)
