# SPDX-License-Identifier: LicenseRef-Proprietary
"""Register tables whose elements come from metamethods, which may do anything."""

import pytest
from catalogue import NO_CONTEXT
from shell import lua, raised, run

SETTERS = ["radioSetRxGainRegisters", "radioSetTxPowerRegisters"]
both = pytest.mark.parametrize("setter", SETTERS)


def table(index, elements="1, nil, 3"):
    """A table whose missing elements the Lua function (or table) index gives."""
    return f"setmetatable({{ {elements} }}, {{__index = {index}}})"


@both
def test_a_missing_element_is_asked_of_the_metatable(setter):
    assert lua(f"{setter}({table('{[2] = 20}')})").calls == [f"{setter}(context1, [1, 20, 3], 3)"]


@both
def test_the_metatable_is_asked_in_ascending_order_with_table_and_number(setter):
    index = "function(t, key) print(#t, key) return key * 10 end"
    ran = lua(f"{setter}({table(index, '1, nil, nil, nil, 5')})")
    assert ran.out == "5\t2\n5\t3\n5\t4\n"
    assert ran.calls == [f"{setter}(context1, [1, 20, 30, 40, 5], 5)"]


@both
def test_nothing_is_read_after_a_bad_element(setter):
    index = "function(t, key) print(key) return 'x' end"
    ran = lua(f"print((pcall({setter}, {table(index, '1, nil, nil, 4')})))")
    assert (ran.out, ran.calls) == ("2\nfalse\n", [])


@both
def test_the_length_is_the_tables_own(setter):
    ran = lua(f"{setter}(setmetatable({{1}}, {{__len = function() return 3 end, "
              "__index = function() return 9 end}))")
    assert ran.calls == [f"{setter}(context1, [1], 1)"]


@both
def test_the_length_is_taken_once_before_the_elements(setter):
    index = "function(t, key) t[4] = 4 t[5] = 5 return 2 end"
    ran = lua(f"{setter}({table(index)})")
    assert ran.calls == [f"{setter}(context1, [1, 2, 3], 3)"]


@both
def test_an_error_of_the_metatable_is_passed_on(setter):
    ran = raised(f"{setter}({table('function() error([[mine]], 0) end')})")
    assert (ran.out, ran.calls) == ("mine", [])


@both
def test_a_radio_closed_meanwhile_is_still_the_one_called(setter):
    ran = lua(f"{setter}({table('function() radioClose() return 2 end')})")
    assert ran.log == [
        "radioOpen() = context1",
        "radioClose(context1)",
        f"{setter}(context1, [1, 2, 3], 3)",
    ]


@both
def test_a_radio_opened_anew_meanwhile_is_not_the_one_called(setter):
    ran = lua(f"{setter}({table('function() radioOpen() return 2 end')}) radioReset()")
    assert ran.calls == [
        "radioClose(context1)",
        "radioOpen() = context2",
        f"{setter}(context1, [1, 2, 3], 3)",
        "radioReset(context2)",
    ]


@both
def test_a_radio_opened_meanwhile_comes_too_late(setter):
    text = f"{setter}({table('function() radioOpen() return 2 end')})"
    ran = run("-c", f"print(pcall(function() {text} end))", answers="radioOpen#1 null")
    assert ran.out == f"false\t{NO_CONTEXT}\n"
    assert ran.log == ["radioOpen() = null", "radioOpen() = context1", "radioClose(context1)"]


@both
def test_the_same_function_may_be_called_meanwhile(setter):
    index = f"function() {setter}({{7, 8, 9, 10}}) return 2 end"
    assert lua(f"{setter}({table(index)})").calls == [
        f"{setter}(context1, [7, 8, 9, 10], 4)",
        f"{setter}(context1, [1, 2, 3], 3)",
    ]


def test_a_finaliser_that_opens_the_radio_anew_does_not_change_the_call_under_way():
    # A number given as text becomes a string, and making one may run the collector; here it is
    # held back until then.
    ran = lua(
        "collectgarbage('setstepmul', 1000000) collectgarbage('stop') "
        "getmetatable(newproxy(true)).__gc = function() radioOpen() end "
        "collectgarbage('restart') radioLoadCalibrationFile(0.25)"
    )
    assert ran.calls == [
        "radioClose(context1)",
        "radioOpen() = context2",
        'radioLoadCalibrationFile(context1, "0.25")',
    ]
