# SPDX-License-Identifier: LicenseRef-Proprietary
"""The results as one table: a line for each thing that is measured, the machines side by side."""

# The sections, in the order in which they are measured and shown, with their titles.
SECTIONS = {
    "calls": "Calls of the driver",
    "tables": "Register tables",
    "start": "Start",
    "prompt": "Prompt",
    "table_growth": "Register tables, an element",
    "line_growth": "Prompt, a line",
}

WHAT = 46
FIGURES = "{:>11} {:>11} {:>6}"


def figure(value):
    """Three digits at least, and none behind the point that say nothing."""
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def ratio(comparison):
    return f"{comparison.ratio:.3f}"


def machines_of(comparisons):
    """Their names, in the order of measuring."""
    return list(dict.fromkeys(machine for machine, _ in comparisons))


def lines_of(comparisons):
    """The machines' comparisons of one thing, by what, unit and beside."""
    lines = {}
    for machine, one in comparisons:
        lines.setdefault((one.what, one.unit, one.beside), {})[machine] = one
    return lines


def line(what, unit, by_machine, machines):
    cells = []
    for machine in machines:
        one = by_machine.get(machine)
        cells.append(FIGURES.format(figure(one.ours), figure(one.others), ratio(one)) if one else
                     FIGURES.format("", "", ""))
    goals = dict.fromkeys(one.goal for one in by_machine.values() if one.goal is not None)
    missed = [machine for machine, one in by_machine.items() if one.missed]
    told = "  ".join([" or ".join(f"{goal:.3f}" for goal in goals),
                      *(f"missed on {machine}" for machine in missed)])
    return f"{what:{WHAT}} {unit:13}{''.join(f' {cell}  ' for cell in cells)} {told}".rstrip()


def section_table(title, comparisons):
    machines = machines_of(comparisons)
    besides = dict.fromkeys(one.beside for _, one in comparisons)
    lines = []
    for beside in besides:
        chosen = [(machine, one) for machine, one in comparisons if one.beside == beside]
        head = FIGURES.format("sorelapp", "other", "ratio")
        lines.append(f"{title + ', beside ' + beside:{WHAT + 14}}"
                     + "".join(f" {machine:^{len(head)}}  " for machine in machines).rstrip())
        lines.append(f"{'':{WHAT + 14}}" + "".join(f" {head}  " for _ in machines) + " at most")
        lines.extend(line(what, unit, by_machine, machines)
                     for (what, unit, _), by_machine in lines_of(chosen).items())
        lines.append("")
    return lines


def summary(results):
    goals = [one for _, one in results.comparisons if one.goal is not None]
    missed = results.missed()
    yield f"{len(goals) - len(missed)} of {len(goals)} goals are met."
    for machine, one in missed:
        yield (f"Missed: {SECTIONS[one.section]}, {one.what}, {one.unit}, on {machine}: "
               f"{one.ratio:.3f}, and is to be at most {one.goal:.3f}.")


def table(results):
    lines = []
    for section, title in SECTIONS.items():
        if comparisons := results.of(section):
            lines.extend(section_table(title, comparisons))
    return "\n".join([*lines, *summary(results)])
