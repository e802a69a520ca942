# SPDX-License-Identifier: LicenseRef-Proprietary
"""From the command line to the end of the empty text, beside the interpreter."""

import tempfile
from contextlib import chdir

from at_exit import resident
from comparison import Comparison
from instructions import ENVIRONMENT, of_program
from starting import installed, interpreter, shell, standing_on
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
        name: of_program(command) for name, command in programs.items()
    }
    yield "resident memory", "KiB", {
        name: resident(command, ENVIRONMENT, MEMORY_RUNS) for name, command in programs.items()
    }


def measured(tree):
    if tree["emulator"]:
        return  # an emulator's start is not the machine's
    trivial, stand_in = tree["trivial_driver"], tree["start_stand_in"]
    with tempfile.TemporaryDirectory() as folder, chdir(folder):
        own = installed(tree, folder)
        programs = {
            "lua5.1": interpreter(tree),
            TRIVIAL: shell(standing_on(trivial, own, folder, "t")),
            BOARD: shell(standing_on(tree["simulated_board"], own, folder, "b")),
            STAND_IN: shell(standing_on(trivial, stand_in, folder, "s")),
        }
        for what, unit, of in figures(programs):
            for driver in (TRIVIAL, BOARD):
                yield Comparison("start", f"{what}, {driver}", unit, of[driver], of["lua5.1"],
                                 "lua5.1", GOALS.get((driver, what)))
            yield Comparison("start", f"{what}, {TRIVIAL}", unit, of[TRIVIAL], of[STAND_IN],
                             STAND_IN)
