# SPDX-License-Identifier: LicenseRef-Proprietary
"""How long something takes that a program repeats, by Google Benchmark; and what the programs of
bench/calls and bench/tables run on."""

import json
import subprocess
from pathlib import Path

import instructions


def on_trivial_driver(tree):
    """The variables with which a program of the tree finds the driver that does nothing."""
    return {"LD_LIBRARY_PATH": str(Path(tree["trivial_driver"]).parent)}


def least_times(tree, program, wanted=".", repetitions=9):
    """The nanoseconds of an iteration, by the benchmark's name, of those that the regular
    expression names: the least of several measurements, taken in any order among all others, since
    whatever else runs can only add to them."""
    ran = subprocess.run(
        [tree[program], f"--benchmark_filter={wanted}", "--benchmark_min_time=0.02",
         f"--benchmark_repetitions={repetitions}", "--benchmark_enable_random_interleaving=true",
         "--benchmark_format=json"],
        env=instructions.ENVIRONMENT | on_trivial_driver(tree), stdout=subprocess.PIPE, check=True,
    )
    least = {}
    for run in json.loads(ran.stdout)["benchmarks"]:
        if run["run_type"] == "iteration":
            name = run["run_name"]
            least[name] = min(run["cpu_time"], least.get(name, run["cpu_time"]))
    return least
