# SPDX-License-Identifier: LicenseRef-Proprietary
"""From the command line to the end of the empty text, beside the interpreter."""

import tempfile

from at_exit import resident
from comparison import Comparison
from instructions import ENVIRONMENT, of_program
from starting import installed, interpreter, on
from wall import times

ROUNDS, RUNS = 80, 20
MEMORY_RUNS = 41

TRIVIAL, BOARD = "trivial driver", "simulated board"
STAND_IN = "stand-in"  # for the shell, on the trivial driver; see bench/start/stand_in.cpp

# At most so many times what the interpreter takes.
GOALS = {
    (TRIVIAL, "wall time"): 1.10,
    (TRIVIAL, "user and system time"): 1.10,
    (TRIVIAL, "instructions"): 1.25,
    (TRIVIAL, "resident memory"): 0.85,
    (BOARD, "wall time"): 1.25,
}


def figures(programs):
    """By what is measured: its unit, and the figures by program."""
    took = times(programs, ENVIRONMENT, ROUNDS, RUNS)
    yield "wall time", "ms", {name: took[name].wall for name in programs}
    yield "user and system time", "ms", {name: took[name].processor for name in programs}
    yield "instructions", "instructions", {
        name: of_program(program.command, **program.variables)
        for name, program in programs.items()
    }
    yield "resident memory", "KiB", {
        name: resident(program.command, ENVIRONMENT | program.variables, MEMORY_RUNS)
        for name, program in programs.items()
    }


def measured(tree):
    if tree["emulator"]:
        return  # an emulator's start is not the machine's
    with tempfile.TemporaryDirectory() as folder:
        shell = installed(tree, folder)
        programs = {
            "lua5.1": interpreter(tree),
            TRIVIAL: on(tree["trivial_driver"], shell),
            BOARD: on(tree["simulated_board"], shell),
            STAND_IN: on(tree["trivial_driver"], tree["start_stand_in"]),
        }
        for what, unit, of in figures(programs):
            for driver in (TRIVIAL, BOARD):
                yield Comparison("start", f"{what}, {driver}", unit, of[driver], of["lua5.1"],
                                 "lua5.1", GOALS.get((driver, what)))
            yield Comparison("start", f"{what}, {TRIVIAL}", unit, of[TRIVIAL], of[STAND_IN],
                             STAND_IN)
