# SPDX-License-Identifier: LicenseRef-Proprietary
"""The results as pictures, drawn by gnuplot: the ratios beside their goals, and the growth."""

import os
import re
import subprocess
import tempfile
from pathlib import Path

HERE = Path(__file__).parent
GROWTH = ("table_growth", "line_growth")


def quoted(text):
    return '"' + text.replace('"', "'") + '"'


def ratio_rows(results, sections):
    """One line for each thing that has a goal, from the top: its place, the ratio on each machine,
    the goal, what it is."""
    things = {}
    for section in sections:
        for machine, one in results.of(section):
            if one.goal is not None:
                things.setdefault((one.what, one.unit, one.beside), {})[machine] = one
    for place, ((what, unit, _), by_machine) in enumerate(things.items()):
        ratios = [f"{by_machine[machine].ratio:.6f}" if machine in by_machine else "NaN"
                  for machine in results.machines()]
        goal = next(iter(by_machine.values())).goal
        label = what if unit == "instructions" else f"{what} [{unit}]"
        yield "\t".join([str(-place), *ratios, str(goal), quoted(label)])


def number(text):
    """The first one in a text: that of "at 1,000 lines" is 1000."""
    return int(re.search(r"\d[\d,]*", text)[0].replace(",", ""))


def growth_blocks(results):
    """One block of lines for each curve: its title, and its points, of which the first is 1."""
    curves = {}
    for section in GROWTH:
        for _, one in results.of(section):
            title = re.sub(r"\d[\d,]*", "n", one.what, count=1)
            points = curves.setdefault(f"{title} [{one.unit}]", {number(one.beside): 1})
            points[one.size] = one.ratio
    for title, points in curves.items():
        yield "\n".join([quoted(title), *(f"{size}\t{ratio:.6f}" for size, ratio in points.items())])


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
            rows = list(ratio_rows(results, sections))
            if rows:
                Path(data, name).write_text("\n".join(rows) + "\n", encoding="utf-8")
                drawn.append(folder / f"{name}.png")
                gnuplot("ratios.gnuplot", drawn[-1], data, data=name, count=len(rows),
                        machines=" ".join(results.machines()), whole=int(name == "calls"))
        if blocks := list(growth_blocks(results)):
            Path(data, "growth").write_text("\n\n\n".join(blocks) + "\n", encoding="utf-8")
            drawn.append(folder / "growth.png")
            gnuplot("growth.gnuplot", drawn[-1], data, data="growth", count=len(blocks))
    return drawn
