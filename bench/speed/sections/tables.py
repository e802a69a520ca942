# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a call with a register table takes, beside one that takes every element through its text."""

import measured_tables as tables
from comparison import Comparison

# At most these parts of what it takes through text.
GOALS = {
    (tables.TEN_DIGITS, 10): 1 / 12,
    (tables.DECIMALS, 10): 1 / 12,
    (tables.BYTES, 10): 1 / 12,
    (tables.TEN_DIGITS, 1000): 1 / 30,
    (tables.DECIMALS, 1000): 1 / 30,
    (tables.BYTES, 1000): 1 / 20,
}
# To be seen beside them.
OTHERS = [(kind, size) for kind in (tables.PRINTED, tables.STRINGS, tables.METATABLE)
          for size in (10, 1000)]


def compared(kind, size, unit, figures, goal):
    return Comparison(
        section="tables", what=f"{size} elements, {kind}", unit=unit,
        ours=figures[tables.OURS], others=figures[tables.THROUGH_TEXT], beside="the same through text",
        goal=goal,
    )


def measured(tree):
    cases = [*GOALS, *OTHERS]
    if not tree["emulator"]:
        times = tables.times(tree, "/10(00)?/")
        for kind, size in cases:
            figures = {setter: times[setter, kind, size]
                       for setter in (tables.OURS, tables.THROUGH_TEXT)}
            yield compared(kind, size, "ns", figures, GOALS.get((kind, size)))
    # The goals are of times.
    for kind, size in cases:
        figures = {setter: tables.instructions_of_call(tree, setter, kind, size)
                   for setter in (tables.OURS, tables.THROUGH_TEXT)}
        yield compared(kind, size, "instructions", figures, None)
