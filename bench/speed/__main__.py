# SPDX-License-Identifier: LicenseRef-Proprietary
"""How fast the shell is, beside what it could be measured against, with the goals. TREE is the
tree.json of a build tree, as build/bench/bench/speed/tree.json."""

import argparse
import dataclasses
import importlib
import json
import sys
from pathlib import Path

SECTIONS = sorted(file.stem for file in (Path(__file__).parent / "sections").glob("*.py"))


def arguments():
    parser = argparse.ArgumentParser(prog="speed", description=__doc__)
    parser.add_argument("--tree", required=True, type=argparse.FileType(encoding="utf-8"))
    parser.add_argument("--json", type=argparse.FileType("w", encoding="utf-8"), metavar="FILE")
    parser.add_argument("sections", nargs="*", metavar="SECTION", help=", ".join(SECTIONS))
    return parser.parse_args()


def main():
    asked = arguments()
    tree = json.load(asked.tree)
    comparisons = []
    for name in asked.sections or SECTIONS:
        section = importlib.import_module(f"sections.{name}")
        for comparison in section.measured(tree):
            comparisons.append(comparison)
            goal = "" if comparison.goal is None else f"at most {comparison.goal:.3f}"
            print(f"{comparison.what:50} {comparison.ours:12,.1f} {comparison.others:12,.1f} "
                  f"{comparison.unit:20} {comparison.ratio:8.3f} {goal} "
                  f"{'MISSED' if comparison.missed else ''}")
    if asked.json:
        json.dump([dataclasses.asdict(one) for one in comparisons], asked.json, indent=4)
    return 1 if any(one.missed for one in comparisons) else 0


sys.exit(main())
