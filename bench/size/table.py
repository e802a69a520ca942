# SPDX-License-Identifier: LicenseRef-Proprietary
"""The figures of several machines in a table, beside the goals."""

from figures import others
from goals import EXECUTABLE, RATIO, ratio

NOTES = """\
Other libraries: than libc, libm, Lua, BitOp, LuaSocket and libsorel. Memory: resident pages, and
in parentheses those of them that belong to no file, which each process has for itself; KiB, median
of {times} runs. lua5.1 has bit and socket.core loaded; at its prompt it has a line editor too, which
the shell lacks. Of what runs under an emulator, its own pages count, not the emulator's."""


def bytes_of(count):
    return f"{count:,} B"


def names(libraries):
    return ", ".join(libraries) or "none"


def memory(of):
    return f"{of.resident:,.0f} ({of.own:,.0f})"


def added(figures):
    more, less = figures.shell_on_board, figures.shell
    return f"{more.resident - less.resident:,.0f} ({more.own - less.own:,.0f})"


def at_own_prompt(figures):
    return f"{figures.shell.resident / figures.interpreter_prompt.resident:.2f}"


ROWS = (
    ("executable, stripped", f"under {EXECUTABLE // 1024} KiB", lambda of: bytes_of(of.executable)),
    ("other libraries that it needs", "none", lambda of: names(others(of.needed))),
    ("other libraries loaded at its prompt", "none", lambda of: names(others(of.loaded))),
    ("memory at its prompt, trivial driver", "", lambda of: memory(of.shell)),
    ("memory of lua5.1, reading a line", "", lambda of: memory(of.interpreter)),
    ("  the shell's to that", f"at most {RATIO}", lambda of: f"{ratio(of):.2f}"),
    ("memory of lua5.1 at its prompt", "", lambda of: memory(of.interpreter_prompt)),
    ("  the shell's to that", "", at_own_prompt),
    ("the simulated board, stripped", "", lambda of: bytes_of(of.simulated_board)),
    ("  adds to the memory at the prompt", "", added),
)


def line(label, cells, goal):
    return (f"{label:38}" + "".join(f"{cell:>16}" for cell in cells) + f"   {goal}").rstrip()


def table(machines, times):
    """The text of the table; machines are figures by name."""
    lines = [line("", machines, "goal")]
    for label, goal, cell in ROWS:
        lines.append(line(label, [cell(figures) for figures in machines.values()], goal))
    return "\n".join([*lines, "", NOTES.format(times=times)])
