# SPDX-License-Identifier: LicenseRef-Proprietary
"""How long programs take from start to end, by hyperfine. Of many runs the lowest decile counts:
what else the machine does only ever adds to a time."""

import json
import subprocess
import tempfile
from dataclasses import dataclass
from shlex import join
from statistics import quantiles


@dataclass(frozen=True)
class Times:
    """In milliseconds."""

    wall: float
    processor: float  # user and system


def one_round(command, environment, runs):
    """The wall times of all runs, and the mean time of the processor, in seconds."""
    with tempfile.NamedTemporaryFile() as file:
        ran = subprocess.run(
            ["hyperfine", "-N", "--warmup", "5", "--runs", str(runs),
             "--export-json", file.name, join(command)],
            env=environment, capture_output=True, text=True, check=False,
        )
        if ran.returncode != 0:
            raise RuntimeError(ran.stderr)
        (result,) = json.load(file)["results"]
    return result["times"], result["user"] + result["system"]


def lowest_decile(seconds):
    return quantiles(seconds, n=10)[0]


def times(programs, environment, rounds, runs):
    """The times of programs, which are commands by name, by that name. They take turns, so that
    what changes meanwhile meets them all."""
    wall = {name: [] for name in programs}
    processor = {name: [] for name in programs}
    for _ in range(rounds):
        for name, command in programs.items():
            took, used = one_round(command, environment, runs)
            wall[name] += took
            processor[name].append(used)
    return {
        name: Times(1000 * lowest_decile(wall[name]), 1000 * lowest_decile(processor[name]))
        for name in programs
    }
