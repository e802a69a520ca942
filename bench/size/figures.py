# SPDX-License-Identifier: LicenseRef-Proprietary
"""The figures of one build tree, in which CMakeLists.txt here has written down what there is."""

import json
import re
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path
from statistics import median

from waiting import measure

# libc with what it consists of, libm, Lua, BitOp, LuaSocket, the driver.
ALLOWED = r"((libc|libdl|ld-linux-.*)|libm|liblua5\.1|liblua5\.1-bitop|liblua5\.1-socket|libsorel)"

LIBRARIES_LOADED = ("-l", "bit", "-l", "socket.core")
READ_A_LINE = ("-e", "io.write('> ') io.read()")


@dataclass
class Memory:
    """Medians of several runs, in KiB; see Waiting."""

    resident: float
    own: float


@dataclass
class Figures:
    """Sizes are in bytes, of stripped files."""

    executable: int
    simulated_board: int
    needed: list  # the libraries that the executable names
    loaded: list  # those that are there at the prompt, with the trivial driver
    shell: Memory  # at its prompt, with the trivial driver
    shell_on_board: Memory  # likewise, with the simulated board
    interpreter: Memory  # the stock one, waiting for a line
    interpreter_prompt: Memory  # the stock one at its prompt, where it has a line editor


def described(file):
    """What there is in a tree."""
    return json.loads(Path(file).read_text(encoding="utf-8"))


def stripped_size(tree, file):
    with tempfile.NamedTemporaryFile() as copy:
        subprocess.run([tree["strip"], "-o", copy.name, file], check=True)
        return Path(copy.name).stat().st_size


def needed_libraries(file):
    listing = subprocess.run(
        ["readelf", "--dynamic", "--wide", file], capture_output=True, text=True, check=True
    ).stdout
    return sorted(re.findall(r"\(NEEDED\).*\[(.*)\]", listing))


def loaded_libraries(waiting):
    return sorted({Path(file).name for file in waiting.files if ".so" in Path(file).name})


def others(libraries):
    """Those of the libraries that the shell is to do without."""
    return [name for name in libraries if not re.fullmatch(ALLOWED + r"\.so[.0-9]*", name)]


def programs(tree):
    """The runs by the names that they have in Figures: command, and folder of the driver."""
    shell = [tree["executable"]]
    interpreter = [tree["interpreter"], *LIBRARIES_LOADED]
    return {
        "shell": (shell, Path(tree["trivial_driver"]).parent),
        "shell_on_board": (shell, Path(tree["simulated_board"]).parent),
        "interpreter": ([*interpreter, *READ_A_LINE], ""),
        "interpreter_prompt": ([*interpreter, "-i"], ""),
    }


def measured(tree, times):
    """The figures of a tree. Programs take turns, so that what changes meanwhile meets them all."""
    runs = {name: [] for name in programs(tree)}
    for _ in range(times):
        for name, (command, driver) in programs(tree).items():
            runs[name].append(measure(command, tree["emulator"], LD_LIBRARY_PATH=str(driver)))
    memory = {
        name: Memory(median(run.resident for run in several), median(run.own for run in several))
        for name, several in runs.items()
    }
    return Figures(
        executable=stripped_size(tree, tree["executable"]),
        simulated_board=stripped_size(tree, tree["simulated_board"]),
        needed=needed_libraries(tree["executable"]),
        loaded=loaded_libraries(runs["shell"][0]),
        **memory,
    )
