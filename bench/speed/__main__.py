# SPDX-License-Identifier: LicenseRef-Proprietary
"""How fast the shell is, beside what it can be measured against, and beside the goals. Each TREE is
a name and the tree.json of a build tree, as in amd64=build/bench/bench/speed/tree.json; on one that
runs under an emulator, only instructions are counted. Ends with 1 where a goal is missed."""

import argparse
import importlib
import json
import sys
from pathlib import Path

import pictures
from machine import described
from page import with_table
from results import Results
from table import SECTIONS, table


def arguments():
    parser = argparse.ArgumentParser(prog="./dev bench", description=__doc__)
    parser.add_argument("--tree", action="append", required=True, dest="trees",
                        help=argparse.SUPPRESS)
    parser.add_argument("--folder", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--page", type=Path, metavar="FILE",
                        help="put the table into that page, and the pictures into the folder of "
                             "the same name beside it")
    parser.add_argument("sections", nargs="*", metavar="SECTION",
                        help="measure only these: " + ", ".join(SECTIONS))
    asked = parser.parse_args()
    check(asked, parser)
    return asked


def check(asked, parser):
    """Before anything is measured, which takes minutes."""
    for name in asked.sections:
        if name not in SECTIONS:
            parser.error(f"there is no section '{name}'; there are {', '.join(SECTIONS)}")
    if asked.page and asked.sections:
        parser.error("the page shows all sections")
    if asked.page and not asked.page.suffix:
        parser.error(f"{asked.page}: the pictures need a folder of another name")
    if asked.page:
        try:
            with_table(asked.page.read_text(encoding="utf-8"), Results(described(), []))
        except (OSError, ValueError) as why:
            parser.error(f"{asked.page}: {why}")


def measured(trees, sections):
    results = Results(described(), [])
    for name in sections:
        section = importlib.import_module(f"sections.{name}")
        for tree in trees:
            machine, _, file = tree.partition("=")
            print(f"bench: measuring {name} on {machine}", file=sys.stderr)
            description = json.loads(Path(file).read_text(encoding="utf-8"))
            results.add(machine, section.measured(description))
    return results


def main():
    asked = arguments()
    results = measured(asked.trees, dict.fromkeys(asked.sections) or SECTIONS)
    folder = asked.page.with_suffix("") if asked.page else asked.folder
    folder.mkdir(parents=True, exist_ok=True)
    results.write(folder / "measured.json")
    drawn = pictures.draw(results, folder)
    print(table(results))
    if asked.page:
        asked.page.write_text(with_table(asked.page.read_text(encoding="utf-8"), results),
                              encoding="utf-8")
    for file in (folder / "measured.json", *drawn):
        print(f"bench: written: {file}", file=sys.stderr)
    return 1 if results.missed() else 0


sys.exit(main())
