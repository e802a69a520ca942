# SPDX-License-Identifier: LicenseRef-Proprietary
"""What happens when there is no memory."""

import pytest
from shell import PROMPT, preloading, raised, run

NO_MEMORY = preloading("no_memory.so")
LINE_BUFFER = {"FAILING_MALLOC": "200"}


def test_without_memory_for_a_line_the_loop_ends_as_on_exit():
    ran = run(stdin="print('read')\nexit\n", **NO_MEMORY, **LINE_BUFFER)
    assert ran.out == "error: no memory to allocate cmd input buffer...\n\n"
    assert (ran.err, ran.status, ran.calls) == ("", 0, [])


def test_without_memory_for_a_line_a_command_still_runs():
    ran = run("-c", "print(1)", **NO_MEMORY, **LINE_BUFFER)
    assert (ran.out, ran.err, ran.status) == ("1\n", "", 0)


def test_a_line_takes_200_bytes_and_no_other_size_matters():
    for size in ("199", "201"):
        ran = run(stdin="exit\n", **NO_MEMORY, FAILING_MALLOC=size)
        assert (ran.out, ran.status) == (PROMPT, 0)


@pytest.mark.parametrize("setter", ["radioSetRxGainRegisters", "radioSetTxPowerRegisters"])
@pytest.mark.parametrize("metatable", ["nil", "{}"])
def test_without_memory_for_its_words_a_table_is_refused(setter, metatable):
    text = (f"local t = {{}} for i = 1, 4321 do t[i] = i end "
            f"{setter}(setmetatable(t, {metatable}))")
    ran = raised(text, **NO_MEMORY, FAILING_MALLOC=str(4 * 4321))
    assert (ran.out, ran.calls) == ("Out of memory", [])


@pytest.mark.parametrize("setter", ["radioSetRxGainRegisters", "radioSetTxPowerRegisters"])
def test_without_a_block_of_no_bytes_an_empty_table_is_refused(setter):
    ran = raised(f"{setter}({{}})", **NO_MEMORY, FAILING_MALLOC="0")
    assert (ran.out, ran.calls) == ("Out of memory", [])


def test_want_of_memory_is_reported_before_a_bad_element_and_a_missing_radio():
    ran = run("-c", "local t = {} for i = 1, 4321 do t[i] = 'x' end "
                    "print(pcall(radioSetRxGainRegisters, t))",
              answers="radioOpen null", **NO_MEMORY, FAILING_MALLOC=str(4 * 4321))
    assert ran.out == "false\tOut of memory\n"


def test_without_memory_for_its_record_a_hooks_object_is_nil():
    ran = run("-c", "print(RadioHooks(), select('#', RadioHooks()))",
              **NO_MEMORY, FAILING_CALLOC="pointers")
    assert (ran.out, ran.err, ran.status) == ("nil\t1\n", "", 0)


def test_without_memory_to_read_the_options_nothing_is_opened():
    ran = run("--command", "print(1)", stdin="print('read')\nexit\n", **preloading("no_options.so"))
    assert (ran.out, ran.status, ran.log) == ("", 1, [])
    assert ran.err == "failed to parse the command line: Cannot allocate memory\n"


@pytest.mark.parametrize("arguments", [[], ["-c", "print(1)"]])
def test_without_a_lua_state_the_shell_ends_and_leaves_the_radio_open(arguments):
    ran = run(*arguments, stdin="exit\n", **preloading("no_lua.so"))
    assert (ran.out, ran.err, ran.status) == ("", "failed to initialise lua\n", 1)
    assert ran.log == ["radioOpen() = context1"]


def test_without_a_lua_state_the_version_block_is_still_printed():
    ran = run("-v", **preloading("no_lua.so"))
    assert (ran.out.count("\n"), ran.status) == (28, 0)
