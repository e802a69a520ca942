# SPDX-License-Identifier: LicenseRef-Proprietary
"""What bench/tables tells: calls of the functions for register tables, the shell's and those that
take every element through its text."""

import json
import statistics
import subprocess
from pathlib import Path

import instructions

OURS, THROUGH_TEXT = "ours", "through text"
TEN_DIGITS, DECIMALS, BYTES = (
    "ten-digit integers", "three-decimal fractions", "integers below 256",
)
PRINTED, STRINGS, METATABLE = (
    "fractions that are printed", "strings of ten digits", "with a metatable",
)


def driver(tree):
    return {"LD_LIBRARY_PATH": str(Path(tree["trivial_driver"]).parent)}


def instructions_of_call(tree, setter, kind, size):
    """Of one call, on average: collecting texts takes more in one than in another. The first call
    is left out, in which all texts are new."""
    times = 3 if tree["emulator"] and size > 10 else 9
    command = [tree["table_calls"], setter, kind, str(size), str(times)]
    counts = instructions.between("tableCallMark", command, tree["emulator"], **driver(tree))
    assert len(counts) == times
    return statistics.mean(counts[1:])


def times(tree, wanted, repetitions=9):
    """The nanoseconds of one call, of those that the regular expression names: for each (setter,
    kind, size) the least of several measurements, taken in any order among all others, since
    whatever else runs can only add to them."""
    ran = subprocess.run(
        [tree["table_times"], f"--benchmark_filter={wanted}", "--benchmark_min_time=0.02",
         f"--benchmark_repetitions={repetitions}", "--benchmark_enable_random_interleaving=true",
         "--benchmark_format=json"],
        env=instructions.ENVIRONMENT | driver(tree), stdout=subprocess.PIPE, check=True,
    )
    least = {}
    for run in json.loads(ran.stdout)["benchmarks"]:
        if run["run_type"] == "iteration":
            setter, kind, size = run["run_name"].split("/")[:3]
            key = setter, kind, int(size)
            least[key] = min(run["cpu_time"], least.get(key, run["cpu_time"]))
    return least
