# SPDX-License-Identifier: LicenseRef-Proprietary
"""Memory as bench/size measures it, of a program of which is known what it has in memory.

Environment:
    TREE       the description of the build tree
    FOOTPRINT  the program, footprint.c
"""

import os
import re
from pathlib import Path

import pytest
from figures import described
from waiting import GUEST_BASE, measure, started

EMULATOR = described(os.environ["TREE"])["emulator"]
MIB = 16


def footprint(*arguments):
    return [os.environ["FOOTPRINT"], *map(str, arguments)]


def grown(manner, file="none"):
    """By how many MiB a program is larger that has so many: all its memory, and its own."""
    small, large = (measure(footprint(manner, size, file), EMULATOR) for size in (0, MIB))
    return (large.resident - small.resident) / 1024, (large.own - small.own) / 1024


def about(resident, own):
    # Where libraries may not lie at the same addresses in each run, resident memory varies.
    return pytest.approx(resident, abs=0.5), pytest.approx(own, abs=0.05)


def test_memory_that_is_written_counts():
    assert grown("write") == about(MIB, MIB)


def test_memory_that_is_only_reserved_does_not_count():
    assert grown("reserve") == about(0, 0)


def test_a_file_that_is_read_is_resident_but_not_the_programs_own(tmp_path):
    file = tmp_path / "file"
    file.write_bytes(bytes(MIB << 20))
    assert grown("read", file) == about(MIB, 0)
    assert str(file) in measure(footprint("read", MIB, file), EMULATOR).files


def test_of_a_small_program_little_counts_emulated_or_not():
    assert 0 < measure(footprint("write", 0, "none"), EMULATOR).resident < 4096


# Of the emulator, so there is nothing to look at without one; ./dev arm has one.
@pytest.mark.skipif(not EMULATOR, reason="what is built here needs no emulator")
def test_the_emulator_has_more_memory_than_what_counts():
    command = footprint("write", 0, "none")
    with started([*EMULATOR, "-B", hex(GUEST_BASE), *command], dict(os.environ)) as process:
        status = Path(f"/proc/{process}/status").read_text(encoding="utf-8")
    whole = int(re.search(r"VmRSS:\s+(\d+) kB", status)[1])
    assert measure(command, EMULATOR).resident < whole / 2


def test_a_program_without_a_prompt_is_named_with_what_it_printed():
    with pytest.raises(RuntimeError, match="no prompt from .*footprint.*: wrong arguments"):
        measure(footprint(), EMULATOR)


def test_a_program_that_cannot_be_run_is_named_with_the_reason():
    with pytest.raises(RuntimeError, match="no prompt from /no/program: .*No such file"):
        measure(["/no/program"])
