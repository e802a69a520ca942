# SPDX-License-Identifier: LicenseRef-Proprietary
"""The results as pictures, drawn by gnuplot: the ratios beside their goals, and the growth."""

import os
import subprocess
import tempfile
from pathlib import Path

HERE = Path(__file__).parent
GROWTH = ("table_growth", "line_growth")


def quoted(text):
    return '"' + text.replace('"', "'") + '"'


def ratio_rows(results, sections):
    """One line for each thing measured, from the top: its place, the ratio on each machine, the
    goal, what it is."""
    things = {}
    for section in sections:
        for machine, one in results.of(section):
            things.setdefault((one.what, one.unit, one.beside), {})[machine] = one
    for place, ((what, unit, _), by_machine) in enumerate(things.items()):
        ratios = [f"{by_machine[machine].ratio:.6f}" if machine in by_machine else "NaN"
                  for machine in results.machines()]
        goal = next((one.goal for one in by_machine.values() if one.goal is not None), "NaN")
        label = what if unit == "instructions" else f"{what} [{unit}]"
        yield "\t".join([str(-place), *ratios, str(goal), quoted(label)])


def growth_rows(results, section):
    comparisons = [(machine, one) for machine, one in results.of(section) if one.size]
    for machine, one in comparisons:
        yield f"{one.size}\t{one.ratio:.6f}\t{quoted(machine)}"


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
                        machines=" ".join(results.machines()), whole=name == "calls" and 1 or 0)
        if any(results.of(section) for section in GROWTH):
            for section in GROWTH:
                Path(data, section).write_text("\n".join(growth_rows(results, section)) + "\n",
                                               encoding="utf-8")
            drawn.append(folder / "growth.png")
            gnuplot("growth.gnuplot", drawn[-1], data)
    return drawn
