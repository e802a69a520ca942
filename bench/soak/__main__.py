# SPDX-License-Identifier: LicenseRef-Proprietary
"""What the shell still holds after it has run long: lines at the prompt, calls of all wrappers, and
contexts closed and opened, on the simulated board. TREE is the tree.json of a build tree."""

import argparse
import math
import sys

from failing import KINDS
from figures import described
from soaking import soak_calls, soak_contexts, soak_lines, soak_lines_and_calls

LINES = 1_000_000
CALLS = 100_000_000
CONTEXTS = 1_000_000


def part(text):
    value = float(text)
    if not 0.001 <= value <= 1:
        raise ValueError
    return value


def arguments():
    parser = argparse.ArgumentParser(prog="soak", description=__doc__)
    parser.add_argument("--part", type=part, default=1,
                        help="of the whole, which takes minutes: 0.001 to 1 (default: %(default)s)")
    parser.add_argument("tree", metavar="TREE")
    return parser.parse_args()


HEADER = """\
What grew from the first hundredth of a run to its end, in bytes, and what it may grow by. Time is
the processor's, that of looking included: all garbage is collected before, which takes as long as
there are values.

| run | times | Lua's memory | at most | resident | at most | heap | open files | last hundredth's time to first's |
|---|---:|---:|---:|---:|---:|---:|---:|---:|"""

KINDS_HEADER = """
What a failing line leaves on the Lua stack, in bytes: a slot, and what only its error value needs.

| line | lines | Lua's memory | at least | at most | resident |
|---|---:|---:|---:|---:|---:|"""


def ratio(number):
    return "too short" if math.isnan(number) else f"{number:.2f}"


def row(run):
    return (f"| {run.what} | {run.count:,} | {run.growth('lua'):,} | {run.lua_bound:,} | "
            f"{run.growth('resident'):,} | {run.resident_bound:,} | {run.growth('heap'):,} | "
            f"{run.growth('files'):,} | {ratio(run.slowdown)} |")


def kind_row(kind, run):
    failed = (run.count - run.count // 100) / 3
    return (f"| {kind.name} | {run.failures:,} | {run.growth('lua') / failed:.1f} | {kind.least} | "
            f"{kind.most} | {run.growth('resident') / failed:.1f} |")


def main():
    asked = arguments()
    tree = described(asked.tree)
    lines, calls, contexts = (int(asked.part * whole) for whole in (LINES, CALLS, CONTEXTS))
    complaints = []

    def shown(run, text):
        print(text, flush=True)
        complaints.extend(run.complaints)

    print(HEADER, flush=True)
    for run in (
        lambda: soak_lines(tree, "lines that do not fail", lines, kinds=()),
        lambda: soak_lines(tree, "lines of which a third fail", lines),
        lambda: soak_lines_and_calls(tree, lines, calls),
        lambda: soak_calls(tree, calls),
        lambda: soak_contexts(tree, contexts),
    ):
        done = run()
        shown(done, row(done))
    print(KINDS_HEADER, flush=True)
    for kind in KINDS:
        done = soak_lines(tree, kind.name, lines // 10, kinds=(kind,))
        shown(done, kind_row(kind, done))
    for complaint in complaints:
        print(f"soak: {complaint}", file=sys.stderr)
    return 1 if complaints else 0


sys.exit(main())
