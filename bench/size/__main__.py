# SPDX-License-Identifier: LicenseRef-Proprietary
"""How large the shell is, and what it has in memory at its prompt, beside the goals. Every MACHINE
is a name and the tree.json of a build tree, as in amd64=build/release/bench/size/tree.json."""

import argparse
import dataclasses
import json
import sys

from figures import described, measured
from goals import missed
from table import table


def count(text):
    if int(text) < 1:
        raise ValueError
    return int(text)


def arguments():
    parser = argparse.ArgumentParser(prog="size", description=__doc__)
    parser.add_argument("--json", type=argparse.FileType("w"), metavar="FILE",
                        help="write the figures there too")
    parser.add_argument("--times", type=count, default=5, metavar="N",
                        help="how often each program runs (default: %(default)s)")
    parser.add_argument("machines", nargs="+", metavar="MACHINE")
    return parser.parse_args()


def main():
    asked = arguments()
    machines = {}
    try:
        for machine in asked.machines:
            name, _, file = machine.partition("=")
            machines[name] = measured(described(file), asked.times)
    except RuntimeError as error:
        print(f"size: {error}", file=sys.stderr)
        return 2
    print(table(machines, asked.times))
    if asked.json:
        records = {name: dataclasses.asdict(figures) for name, figures in machines.items()}
        json.dump(records, asked.json, indent=4)
        asked.json.write("\n")
    misses = [miss for name, figures in machines.items() for miss in missed(name, figures)]
    for miss in misses:
        print(f"size: goal missed: {miss}", file=sys.stderr)
    return 1 if misses else 0


sys.exit(main())
