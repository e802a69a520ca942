# SPDX-License-Identifier: LicenseRef-Proprietary
"""The faults of Lua's own are still there, so that the list of them is true."""

import resource
import subprocess
from pathlib import Path
from signal import SIGABRT, SIGSEGV, SIGXCPU

import pytest

FOLDER = Path(__file__).parent
SECONDS = 2  # of the processor's time; what does not end would take hours
DIE = {"pattern_recursion", "unpack_overflow", "malformed_code"}
DO_NOT_END = {"pattern_time", "insert_far_below", "repeat_nothing", "collected_while_closed"}

READ_FREED_MEMORY = {"freed_message"}


def bound():
    """No core file, and a signal once the time is used up."""
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS + 4))


def run(name):
    return subprocess.run(["lua5.1", FOLDER / f"{name}.lua"], check=False, capture_output=True,
                          preexec_fn=bound)


def status(name):
    """How the interpreter ends: negative, the number of the signal."""
    return run(name).returncode


@pytest.mark.parametrize("name", sorted(DIE))
def test_the_interpreter_dies(name):
    assert status(name) in (-SIGSEGV, -SIGABRT)


@pytest.mark.parametrize("name", sorted(DO_NOT_END))
def test_the_interpreter_is_kept_busy(name):
    assert status(name) == -SIGXCPU


@pytest.mark.parametrize("name", sorted(READ_FREED_MEMORY))
def test_the_interpreter_gives_another_text(name):
    ran = run(name)
    assert ran.returncode == 0
    assert ran.stdout and not ran.stdout.startswith(b"/one.so: cannot open")


def test_each_file_is_run_and_listed():
    files = {file.stem for file in FOLDER.glob("*.lua")}
    assert files == DIE | DO_NOT_END | READ_FREED_MEMORY
    page = (FOLDER / "README.md").read_text()
    assert {name for name in files if f"| `{name}.lua` |" not in page} == set()
