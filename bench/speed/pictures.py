# SPDX-License-Identifier: LicenseRef-Proprietary
"""The results as pictures, drawn by gnuplot: the ratios beside their goals, and the growth."""

import os
import re
import subprocess
import tempfile
from pathlib import Path

from table import SECTIONS, lines_of, machines_of

HERE = Path(__file__).parent
GROWTH = ("table_growth", "line_growth")


def quoted(text):
    return '"' + text.replace('"', "'") + '"'


def with_goals(results, sections):
    return [(machine, one) for section in sections for machine, one in results.of(section)
            if one.goal is not None]


def ratio_rows(comparisons, machines):
    """One line for each thing, from the top: its place, the ratio on each machine, the goal, what
    it is. Calls need not be told to be calls, counted in instructions."""
    for place, ((what, unit, _), by_machine) in enumerate(lines_of(comparisons).items()):
        ratios = [f"{by_machine[machine].ratio:.6f}" if machine in by_machine else "NaN"
                  for machine in machines]
        one = next(iter(by_machine.values()))
        label = what if one.section == "calls" else f"{SECTIONS[one.section]}: {what} [{unit}]"
        yield "\t".join([str(-place), *ratios, str(one.goal), quoted(label)])


def number(text):
    """The first one in a text: that of "one of 1,000" is 1000."""
    return int(re.search(r"\d[\d,]*", text)[0].replace(",", ""))


def growth_blocks(results):
    """One block of lines for each curve: its title, and its points, of which the first is 1."""
    curves = {}
    for section in GROWTH:
        for _, one in results.of(section):
            kind = re.sub(r"^one of \d+(,\d{3})*", "", one.what)  # ", ten-digit integers"
            points = curves.setdefault(f"{SECTIONS[section]}{kind} [{one.unit}]",
                                       {number(one.beside): 1})
            points[one.size] = one.ratio
    for title, points in curves.items():
        lines = (f"{size}\t{ratio:.6f}" for size, ratio in points.items())
        yield "\n".join([quoted(title), *lines])


def gnuplot(script, picture, folder, **variables):
    settings = "".join(f"{name} = {value!r}; " for name, value in variables.items())
    subprocess.run(["gnuplot", "-e", f"picture = {str(picture)!r}; {settings}", HERE / script],
                   cwd=folder, env=os.environ | {"LC_ALL": "C.UTF-8"}, check=True)


def draw(results, folder):
    """Draws what has been measured into a folder; returns the files."""
    folder = folder.resolve()
    drawn = []
    with tempfile.TemporaryDirectory() as data:
        for name in ("calls", "others"):
            sections = ["calls"] if name == "calls" else ["tables", "start", "prompt"]
            comparisons = with_goals(results, sections)
            machines = machines_of(comparisons)
            rows = list(ratio_rows(comparisons, machines))
            if rows:
                Path(data, name).write_text("\n".join(rows) + "\n", encoding="utf-8")
                drawn.append(folder / f"{name}.png")
                gnuplot("ratios.gnuplot", drawn[-1], data, data=name, count=len(rows),
                        machines=" ".join(machines), whole=int(name == "calls"))
        if blocks := list(growth_blocks(results)):
            Path(data, "growth").write_text("\n\n\n".join(blocks) + "\n", encoding="utf-8")
            drawn.append(folder / "growth.png")
            gnuplot("growth.gnuplot", drawn[-1], data, data="growth", count=len(blocks))
    return drawn
