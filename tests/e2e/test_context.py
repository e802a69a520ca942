# SPDX-License-Identifier: LicenseRef-Proprietary
"""Opening and closing the radio from Lua."""

import pytest
from catalogue import NO_CONTEXT
from shell import lua, pipe, run


def test_closing_twice_raises_the_second_time():
    ran = lua("print(pcall(radioClose)) print(pcall(radioClose))")
    assert ran.out == f"true\nfalse\t{NO_CONTEXT}\n"
    assert ran.log == ["radioOpen() = context1", "radioClose(context1)"]


def test_opening_while_open_closes_the_old_radio_first():
    assert lua("radioOpen() radioReset()").log == [
        "radioOpen() = context1",
        "radioClose(context1)",
        "radioOpen() = context2",
        "radioReset(context2)",
        "radioClose(context2)",
    ]


def test_opening_while_closed_closes_nothing():
    assert lua("radioClose() radioOpen() radioReset()").log == [
        "radioOpen() = context1",
        "radioClose(context1)",
        "radioOpen() = context2",
        "radioReset(context2)",
        "radioClose(context2)",
    ]


def test_functions_work_again_after_the_radio_is_opened_again():
    ran = lua("radioClose() print(pcall(radioReset)) radioOpen() print(pcall(radioReset))")
    assert ran.out == f"false\t{NO_CONTEXT}\ntrue\n"


@pytest.mark.parametrize("name", ["radioOpen", "radioClose"])
def test_opening_and_closing_return_nothing_and_ignore_arguments(name):
    assert lua(f"print(select('#', {name}(1, 'x', {{}}, nil)))").out == "0\n"


def test_a_failing_open_is_reported_and_raises_nothing():
    ran = pipe("radioOpen() print('went on')", "radioReset()", answers="radioOpen#2 null")
    assert "went on\n" in ran.out
    assert ran.err == f'radioOpen() failed\nfailed to process stdin: "{NO_CONTEXT}"\n'
    assert ran.log == [
        "radioOpen() = context1",
        "radioClose(context1)",
        "radioOpen() = null",
    ]


def test_opening_may_succeed_after_it_failed():
    ran = run("-c", "radioOpen() radioReset()", answers="radioOpen#1 null")
    assert (ran.status, ran.err) == (0, "radioOpen() failed\n")
    assert ran.log == [
        "radioOpen() = null",
        "radioOpen() = context1",
        "radioReset(context1)",
        "radioClose(context1)",
    ]


def test_closing_counts_as_done_whatever_the_driver_says():
    ran = lua("print(pcall(radioClose)) print(pcall(radioClose))", answers="radioClose 5")
    assert ran.out == f"true\nfalse\t{NO_CONTEXT}\n"
    assert ran.log == ["radioOpen() = context1", "radioClose(context1)"]


def test_opening_goes_on_when_closing_the_old_radio_fails():
    ran = lua("radioOpen() radioReset()", answers="radioClose 1")
    assert ran.calls == ["radioClose(context1)", "radioOpen() = context2", "radioReset(context2)"]


def test_the_message_of_a_missing_radio_has_no_position():
    answers = "radioOpen null"
    for text in ("radioClose()", "radioReset()"):
        printed = run("-c", f"print(select(2, pcall(function() {text} end)))", answers=answers).out
        assert printed == NO_CONTEXT + "\n"


def test_radio_native_holds_exactly_the_two_functions():
    ran = lua(
        "for name, value in pairs(radioNative) do "
        "    print(name, type(value), rawequal(value, _G[name])) "
        "end"
    )
    assert sorted(ran.out.splitlines()) == [
        "radioClose\tfunction\ttrue",
        "radioOpen\tfunction\ttrue",
    ]


def test_radio_internal_is_an_empty_table():
    assert lua("print(type(radioInternal), next(radioInternal))").out == "table\tnil\n"


def test_the_two_functions_are_no_fields_of_radio():
    assert lua("print(radio.radioOpen, radio.radioClose)").out == "nil\tnil\n"


@pytest.mark.parametrize("name", ["radioNative", "radioInternal"])
def test_the_shells_own_tables_are_registered_as_modules(name):
    assert lua(f"print(rawequal(require '{name}', {name}))").out == "true\n"


@pytest.mark.parametrize("configuration, number", [("3", 3), ("1e10", 2147483647)])
def test_a_call_keeps_the_radio_that_its_arguments_close(configuration, number):
    ran = lua(f"""
        local p = newproxy(true)
        getmetatable(p).__gc = radioClose
        collectgarbage("stop")
        collectgarbage("setstepmul", 0)
        p = nil
        collectgarbage("restart")
        radioInitByScript({configuration}, 0, 1, 12345)
    """)
    assert ran.log[1:] == ["radioClose(context1)",
                           f'radioInitByScript(context1, {number}, 0, 1, "12345")']
