# SPDX-License-Identifier: LicenseRef-Proprietary
"""A function that has not met every kind of value fails the run, and is named."""

import os
import shlex
import subprocess
from pathlib import Path

COMMAND = shlex.split(os.environ["FUZZ_LUA_PROGRAMS"])
CORPUS = Path(__file__).parent / "corpus"


def replay(**variables):
    """Runs the first of the 64 parts of the systematic corpus; returns the status and the rows."""
    done = subprocess.run([*COMMAND, CORPUS / "sweep-00"], env=os.environ | variables, check=False,
                          capture_output=True, encoding="utf-8", errors="replace")
    return done.returncode, [line for line in done.stdout.splitlines() if " of " in line[:12]]


def test_functions_that_were_not_called_fail_the_run():
    status, rows = replay()
    assert status == 1
    full = [row for row in rows if "EMPTY" not in row]
    empty = [row for row in rows if "EMPTY" in row]
    assert len(full) == -(-len(rows) // 64)
    assert all(row.lstrip().startswith("0 of ") for row in empty)


def test_a_kind_of_value_that_no_call_has_had_fails_the_run():
    status, rows = replay(LUA_PROGRAMS_WITHOUT="twice released hooks")
    assert status == 1
    missed = [row for row in rows if row.endswith("EMPTY: twice released hooks")]
    assert len(missed) == -(-len(rows) // 64)
