# SPDX-License-Identifier: LicenseRef-Proprietary
"""A mistake that a checker reports fails the test, whatever that test expects of the process; and
no test that runs what this tree builds is left unwatched.

Environment: CHECKER, the program that watches; CHECKED_BY, asan or valgrind; FAULTS, the library of
mistakes; TREE, the build tree; CTEST."""

import json
import os
import subprocess
import sys
from pathlib import Path
from signal import SIGABRT

import pytest
from shell import COMMAND, RECORDING, SECONDS, environment

CHECKER = os.environ["CHECKER"]
REPORTED = 86

FOUND = {
    "asan": {
        "leak": "LeakSanitizer: detected memory leaks",
        "write_behind": "heap-buffer-overflow",
        "use_after_free": "heap-use-after-free",
        "free_twice": "attempting double-free",
        "integer_overflow": " in integer_overflow ",
        "float_to_integer": " in float_to_integer ",
    },
    "valgrind": {
        "leak": "definitely lost in loss record",
        "write_behind": "Invalid write of size 1",
        "use_after_free": "Invalid read of size 1",
        "free_twice": "Invalid free()",
        "uninitialised": "depends on uninitialised value",
    },
}[os.environ["CHECKED_BY"]]


def fault(name):
    """Lua text that makes a mistake. The script goes on after it where the checker lets it."""
    return f"assert(package.loadlib('{os.environ['FAULTS']}', '{name}'))()"


def watched(*command, **more):
    return subprocess.run([CHECKER, *command], capture_output=True, encoding="latin-1", check=False,
                          env=environment(RECORDING, more), timeout=SECONDS)


@pytest.mark.parametrize("name", FOUND)
def test_a_mistake_is_reported(name):
    done = watched(*COMMAND, "-c", fault(name))
    assert done.returncode == REPORTED
    assert FOUND[name] in done.stderr


@pytest.mark.parametrize("name", FOUND)
def test_a_mistake_is_reported_where_nobody_looks_at_the_status(name):
    done = watched("sh", "-c", '"$@" 2>/dev/null || :', "sh", *COMMAND, "-c", fault(name))
    assert done.returncode == REPORTED
    assert FOUND[name] in done.stderr


@pytest.mark.parametrize("name", FOUND)
def test_a_mistake_fails_a_test_that_expects_the_shell_to_fail(name):
    done = watched(sys.executable, "-m", "pytest", "-p", "no:cacheprovider",
                   Path(__file__).with_name("unnoticed.py"), FAULT=fault(name))
    assert "1 passed" in done.stdout
    assert done.returncode == REPORTED
    assert FOUND[name] in done.stderr


@pytest.mark.skipif(os.environ["CHECKED_BY"] != "asan", reason="only asan has a Lua of its own")
def test_lua_checks_who_calls_it():
    done = watched(*COMMAND, "-c", fault("push_too_many"))
    assert done.returncode == 128 + SIGABRT
    assert "Assertion `L->top < L->ci->top' failed." in done.stderr


@pytest.mark.parametrize("status", [0, 7])
def test_without_a_mistake_the_status_is_that_of_the_command(status):
    done = watched(*COMMAND, "-c", f"os.exit({status})")
    assert (done.stderr, done.returncode) == ("", status)


def test_every_test_is_watched():
    listed = subprocess.run([os.environ["CTEST"], "--show-only=json-v1"], cwd=os.environ["TREE"],
                            capture_output=True, check=True).stdout
    tests = [test for test in json.loads(listed)["tests"] if "command" in test]
    assert len(tests) > 100
    # Those run CMake, and are looked at for what it prints.
    unwatched = [test["name"] for test in tests if CHECKER not in test["command"]]
    assert [name for name in unwatched if not name.startswith(RUNS_NO_CODE)] == []


RUNS_NO_CODE = ("catalogue.", "wrappers.", "forwarding.compiles", "link.buildsAll",
                "link.installsFor", "build_types.")
