# SPDX-License-Identifier: LicenseRef-Proprietary
"""The page about what one can rely on."""

import os
import re
import subprocess
import time
from contextlib import contextmanager
from signal import SIGHUP, SIGINT, SIGKILL, SIGTERM

import pytest
from allocations import runs_with_each_failing
from shell import (COMMAND, EMULATED, ODD_DRIVERS, RECORDING, SECONDS, SOURCE, VALGRIND, Ran, environment,
                   lines_of, pipe, preloading, run)

PAGE = (SOURCE / "docs/reliability.md").read_text()
SWITCH_ON = "radioSetTxState(RADIO_STATE_ENABLE) "


@contextmanager
def started(folder, text, **streams):
    """A shell that runs the text, and has made its first driver call after the opening."""
    log = folder / "log"
    log.unlink(missing_ok=True)
    process = subprocess.Popen(COMMAND + ["-c", SWITCH_ON + text], **streams,
                               env=environment(RECORDING, {"RECORDING_DRIVER_LOG": str(log)}))
    try:
        while len(lines_of(log)) < 2:
            assert process.poll() is None
            time.sleep(0.01)
        yield process
    finally:
        process.kill()
        process.wait()


def ended(process, folder):
    return Ran(out="", err="", status=process.wait(SECONDS), log=lines_of(folder / "log"))


def killed(folder, number):
    with started(folder, "while true do end") as process:
        process.send_signal(number)
        return ended(process, folder)


def lacking_memory_from_some_allocation_on(folder):
    """The shells that end before they have run anything, but after Lua's state is made."""
    if VALGRIND:
        pytest.skip("valgrind has an allocator of its own in the place of the one that fails")
    log = folder / "log"
    runs = runs_with_each_failing("-c", SWITCH_ON, fail="from", RECORDING_DRIVER_LOG=str(log))
    closed = lines_of(log).count("radioClose(context1)")
    assert closed == sum(run.end.status == 0 for run in runs) < len(runs)
    opened = ["radioOpen() = context1"]
    return [Ran(run.end.out, run.end.err, run.end.status, opened)
            for run in runs if run.end.err.startswith("PANIC")]


# By the first words of a row of the table, the ends that it tells of.
ENDS = {
    "`-v`, `-V`": lambda _: [run(option) for option in ("-v", "-V", "--help", "--usage")],
    "the end of the script": lambda _: [run("-c", SWITCH_ON), run(stdin="exit\n"), pipe(SWITCH_ON)],
    "no memory for a line": lambda _: [
        run(FAILING_MALLOC="200", **preloading("no_memory.so"))],
    "a script calls": lambda _: [run("-c", f"{SWITCH_ON} os.exit(7)"),
                                 run(stdin=f"{SWITCH_ON} os.exit(7)\n")],
    "an error in the script": lambda _: [run("-c", f"{SWITCH_ON} error('MESSAGE', 0)")],
    "no memory to open": lacking_memory_from_some_allocation_on,
    "no memory for Lua itself": lambda _: [run("-c", SWITCH_ON, **preloading("no_lua.so"))],
    "no memory to read": lambda _: [run("--command", SWITCH_ON, **preloading("no_options.so"))],
    "a command line": lambda _: [run("word"), run("-c", "", "-b", "file")],
    "a library is missing": lambda _: [run(driver=ODD_DRIVERS / "driver_without_reset")],
    "a line that is too long": lambda _: [run(stdin=SWITCH_ON + "\n"),
                                          run(stdin=SWITCH_ON.ljust(199) + "\n")],
    "a script breaks": lambda _: [run("-c", f"{SWITCH_ON} getmetatable(radio).__index(5)")],
    "a signal": lambda folder: [
        killed(folder, number) for number in (SIGTERM, SIGHUP, SIGINT, SIGKILL)],
}


def rows(heading, first=""):
    """The rows of the table below a heading whose own first cell is that, as lists of cells."""
    _, _, below = PAGE.partition(f"\n## {heading}\n")
    below = below[below.index(f"\n| {first}"):]
    table = re.search(r"(?:^\|.*\n)+", below, re.MULTILINE)[0].splitlines()
    return [[cell.strip() for cell in re.split(r"(?<!\\)\|", row)[1:-1]] for row in table[2:]]


def texts(cell):
    """Regular expressions of the code texts of a cell; words in capitals stand for anything."""
    codes = [long or short for long, short in re.findall(r"``(.+?)``|`(.+?)`", cell)]
    return [re.sub(r"[A-Z]{3,}|\\\.\\\.\\\.", ".+",
                   re.escape(code.strip()).replace("PANIC", "P[A]NIC").replace("Assertion", "A[s]sertion"))
            for code in codes]


@pytest.mark.parametrize("row", rows("How it can end"), ids=lambda row: row[0])
def test_every_end_is_as_it_says(row, tmp_path):
    end, says, status, radio = row
    (provoke,) = [provoke for words, provoke in ENDS.items() if end.startswith(words)]
    seen = provoke(tmp_path)
    assert seen
    for ran in seen:
        if says:
            assert any(re.search(text, ran.err + ran.out) for text in texts(says)), ran
        else:
            assert ran.err == ""
        assert_status(ran, status)
        opened = any(call.startswith("radioOpen()") for call in ran.log)
        closed = any(call.startswith("radioClose(") for call in ran.log)
        assert (opened, closed) == {
            "not opened": (False, False), "closed": (True, True), "left open": (True, False)}[radio]


def assert_status(ran, cell):
    if cell == "N":
        assert ran.status == 7
    elif cell == "128 + its number":
        assert ran.status < 0
    else:
        assert ran.status % 256 == int(cell) or 128 - ran.status == int(cell), ran


def test_a_pipe_that_nobody_reads_is_no_end(tmp_path):
    assert "a pipe that nobody reads" in PAGE
    reader, writer = os.pipe()
    text = "io.stdin:read() for _ = 1, 1e5 do print('unread') end"
    with started(tmp_path, text, stdin=subprocess.PIPE, stdout=writer) as process:
        os.close(reader)
        process.stdin.close()
        ran = ended(process, tmp_path)
    os.close(writer)
    assert (ran.status, ran.log[-1]) == (0, "radioClose(context1)")


def test_the_budgets_are_those_of_ci():
    budgets = {cells[0].strip("`"): cells[1] for cells in rows("What CI runs", "step")}
    steps = re.findall(r"^step (\d+) (.+)$", (SOURCE / ".ci/run").read_text(), re.MULTILINE)
    assert budgets == {command: minutes for minutes, command in steps}
    assert sum(map(int, budgets.values())) <= 60


@pytest.mark.skipif(EMULATED or "CHECKER_REPORTS" in os.environ,
                    reason="some tests are not run by an emulator or a checker")
def test_every_test_that_it_names_is_there():
    listed = subprocess.run(["ctest", "--test-dir", os.environ["SORELAPP_BUILD_DIR"], "-N"],
                            capture_output=True, text=True, check=True).stdout
    tests = re.findall(r"^ *Test +#\d+: (.+)$", listed, re.MULTILINE)
    named = [name for cells in rows("How it is tried", "promise")
             for name in re.findall("`([^`]+)`", cells[2])]
    assert len(named) > 15
    assert [name for name in named
            if not any(re.search(rf"(^|/){re.escape(name)}($|\.)", test) for test in tests)] == []
