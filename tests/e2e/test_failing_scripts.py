# SPDX-License-Identifier: LicenseRef-Proprietary
"""A batch file or a command that fails ends the process there and then."""

import re

import pytest
from shell import run

PANIC = "PANIC: unprotected error in call to Lua API ({})\n"
PANIC_IN_SCRIPT = re.compile(
    r"PANIC: unprotected error in call to Lua API \(.*script\.lua:(.*)\)\n"
)
OPENED = ["radioOpen() = context1"]


@pytest.fixture(name="batch")
def batch_runner(tmp_path):
    """Runs a batch file of that text, with options after it."""
    script = tmp_path / "script.lua"

    def batch(text, *options):
        script.write_text(text)
        return run("-b", str(script), *options, stdin="print('read')\nexit\n")

    return batch


@pytest.mark.parametrize("options", [[], ["-i"]])
def test_a_batch_file_that_does_not_compile_ends_in_a_panic(batch, options):
    ran = batch("print('first')\nx =\n", *options)
    assert PANIC_IN_SCRIPT.fullmatch(ran.err)[1] == "3: unexpected symbol near '<eof>'"
    assert (ran.out, ran.status, ran.log) == ("", 1, OPENED)


@pytest.mark.parametrize("options", [[], ["-i"]])
def test_a_batch_file_that_fails_ends_in_a_panic_and_no_prompt(batch, options):
    ran = batch("print('first')\nerror('broken')\nprint('last')\n", *options)
    assert PANIC_IN_SCRIPT.fullmatch(ran.err)[1] == "2: broken"
    assert (ran.out, ran.status, ran.log) == ("first\n", 1, OPENED)


def test_a_batch_file_that_does_not_exist_ends_in_a_panic():
    ran = run("-b", "/no/such/file", "-i", stdin="print('read')\nexit\n")
    assert ran.err == PANIC.format("cannot open /no/such/file: No such file or directory")
    assert (ran.out, ran.status, ran.log) == ("", 1, OPENED)


def test_a_driver_error_in_a_batch_file_is_the_bare_message(batch):
    ran = batch("radioSetTxFrequency(-1)\n")
    assert ran.err == PANIC.format("number must not be negative")
    assert (ran.status, ran.log) == (1, OPENED)


def test_a_batch_file_may_start_with_a_line_for_the_system(batch):
    ran = batch("#!/usr/bin/sorelapp -b\nprint('ran')\n")
    assert (ran.out, ran.err, ran.status) == ("ran\n", "", 0)


def test_a_command_is_a_chunk_named_cmdline():
    ran = run("-c", "error('broken')")
    assert ran.err == PANIC.format('[string "cmdline"]:1: broken')
    assert (ran.out, ran.status, ran.log) == ("", 1, OPENED)


def test_a_command_that_does_not_compile_ends_in_a_panic():
    ran = run("-c", "x =")
    assert ran.err == PANIC.format("[string \"cmdline\"]:1: unexpected symbol near '<eof>'")
    assert (ran.out, ran.status, ran.log) == ("", 1, OPENED)


@pytest.mark.parametrize("value, shown", [("'bare', 0", "bare"), ("5, 0", "5"), ("{}", "(null)")])
def test_a_command_may_raise_any_value(value, shown):
    ran = run("-c", f"error({value})")
    assert (ran.err, ran.status) == (PANIC.format(shown), 1)


def test_what_a_failing_command_printed_before_is_seen():
    assert run("-c", "print('first') error('broken')").out == "first\n"


def test_a_failing_command_leaves_the_radio_open_and_the_state_alone():
    ran = run("-c", "last = newproxy(true) "
                    "getmetatable(last).__gc = function() print('collected') end "
                    "error('broken')")
    assert (ran.out, ran.status, ran.log) == ("", 1, OPENED)


def test_a_command_sets_globals_and_ends_with_status_0():
    ran = run("-c", "x=1", stdin="print(x)\nexit\n")
    assert (ran.out, ran.err, ran.status) == ("", "", 0)
    assert ran.calls == []


def test_a_command_may_return_values_which_nobody_sees():
    ran = run("-c", "return 1, 2")
    assert (ran.out, ran.err, ran.status) == ("", "", 0)


def test_a_script_that_exits_by_itself_decides_the_status():
    ran = run("-c", "os.exit(7)")
    assert (ran.status, ran.log) == (7, OPENED)
