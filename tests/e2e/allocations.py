# SPDX-License-Identifier: LicenseRef-Proprietary
"""Runs of the shell in each of which another allocation fails (preload/every_allocation.c)."""

import subprocess
import tempfile
from collections import Counter
from dataclasses import dataclass
from pathlib import Path

from shell import COMMAND, EMULATED, RECORDING, environment, preloading

# Lines or statements of a program between which allocations are counted.
BEGIN, END = "os.getenv('ALLOCATIONS_BEGIN')", "os.getenv('ALLOCATIONS_END')"

# An emulated run takes twenty times as long as another, and the shell there makes the same
# allocations in the same order, so only each seventh of them fails.
STRIDE = 7 if EMULATED else 1

FREED_IS_OVERWRITTEN = {"MALLOC_PERTURB_": "165"}
SECONDS = 500


@dataclass(frozen=True)
class End:
    """How a run ends."""

    out: str
    err: str
    status: int  # negative: the number of the signal


@dataclass
class FailingRun:
    number: int  # of the allocation that failed
    failed: str  # the function it is of: m(alloc), c(alloc), r(ealloc); -: none was left to fail
    end: End
    left: Counter  # sizes of the blocks that main() left behind; None where it did not return


def read_report(data):
    runs = []
    while data:
        head, _, data = data.partition(b"\n")
        number, _, failed, status, out, err, left, *sizes = head.decode().split()
        out, err = int(out), int(err)
        end = End(data[:out].decode("latin-1"), data[out:out + err].decode("latin-1"), int(status))
        data = data[out + err:]
        runs.append(FailingRun(int(number), failed, end, Counter(sizes) if left != "-1" else None))
    return runs


def runs_with_each_failing(*arguments, lines=(), fail="once", counted="main", driver=RECORDING,
                           **more):
    """The runs; fail: "once", or "from" for all allocations behind that one too; counted: "main"
    for all of the program, "marked" for what is between BEGIN and END."""
    with tempfile.TemporaryDirectory() as folder:
        report, given = Path(folder, "report"), Path(folder, "input")
        given.write_text("".join(line + "\n" for line in lines), encoding="latin-1")
        subprocess.run(
            COMMAND + list(arguments),
            env=environment(None, preloading("every_allocation.so", driver) | FREED_IS_OVERWRITTEN
                            | {"ALLOCATIONS_REPORT": str(report), "ALLOCATIONS_INPUT": str(given),
                               "ALLOCATIONS_FAIL": fail, "ALLOCATIONS_COUNTED": counted,
                               "ALLOCATIONS_STRIDE": str(STRIDE)} | more),
            capture_output=True,
            timeout=SECONDS,
            check=False,
        )
        runs = read_report(report.read_bytes())
    assert [run.number for run in runs] == list(range(1, STRIDE * len(runs) + 1, STRIDE))
    assert [run.failed == "-" for run in runs] == [False] * (len(runs) - 1) + [True]
    return runs


def ends(runs):
    """The ends of the runs in the order in which they come, neighbours that are equal as one."""
    result = []
    for run in runs:
        if not result or result[-1] != run.end:
            result.append(run.end)
    return result


def assert_ends(runs, expected):
    """The runs end in these ways and no others, in this order."""
    if STRIDE == 1:
        assert ends(runs) == expected
        return
    left = iter(expected)
    for end in ends(runs):
        assert end in left, f"{end} is none of {expected}, or not where it should be"
    assert ends(runs)[-1] == expected[-1]


def assert_no_leak(runs, *more):
    """A run that ends leaves no block behind that the run with all memory does not leave as well;
    but for more, sizes of blocks that may be left."""
    allowed = runs[-1].left + Counter(str(size) for size in more)
    for run in runs:
        if run.left is not None:
            assert run.left <= allowed, run
