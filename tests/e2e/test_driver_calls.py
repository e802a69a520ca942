# SPDX-License-Identifier: LicenseRef-Proprietary
"""What reaches the driver from each function, and what its status comes to."""

import pytest
from catalogue import FUNCTIONS, IGNORED, STATUS, call, logged, names, status_message
from shell import lua, raised

WITH_STATUS = [function for function in FUNCTIONS if function.result is STATUS]
WITHOUT_STATUS = [function for function in FUNCTIONS if function.result is not STATUS]


@pytest.mark.parametrize("function", FUNCTIONS, ids=names(FUNCTIONS))
def test_each_function_is_one_call_of_the_driver_function_of_its_name(function):
    assert lua(call(function)).calls == [logged(function)]


@pytest.mark.parametrize("function", FUNCTIONS, ids=names(FUNCTIONS))
def test_setters_return_nothing_and_readers_one_value(function):
    results = 0 if function.result in (STATUS, IGNORED) else 1
    assert lua(f"print(select('#', {call(function)}))").out == f"{results}\n"


@pytest.mark.parametrize("function", WITH_STATUS, ids=names(WITH_STATUS))
def test_a_status_other_than_success_raises(function):
    ran = raised(call(function), answers=f"{function.name} 3")
    assert ran.out == status_message(function.name)
    assert ran.calls == [logged(function)]


@pytest.mark.parametrize("status", [1, 2, 4, 5, 6, -1, 256, 65536, 2147483647, -2147483648])
def test_any_status_but_0_raises(status):
    for name, arguments in [("radioSetTxFrequency", "5"), ("radioSetRxGainRegisters", "{}"),
                            ("radioGetIntegerFromCalibration", "nil, nil")]:
        ran = raised(f"{name}({arguments})", answers=f"{name} {status}")
        assert ran.out == status_message(name)


@pytest.mark.parametrize("status", [1, 5, -1])
@pytest.mark.parametrize("text", ["radioSetDebugLevel(5)", "radioSetDebugFile(nil)"])
def test_what_setting_debug_level_or_file_comes_to_is_ignored(text, status):
    name = text.partition("(")[0]
    ran = lua(f"print(select('#', {text}))", answers=f"{name} {status}")
    assert (ran.out, len(ran.calls)) == ("0\n", 1)


@pytest.mark.parametrize("function", WITH_STATUS, ids=names(WITH_STATUS))
def test_a_function_works_again_after_a_failure(function):
    ran = lua(f"print((pcall(function() {call(function)} end))) {call(function)}",
              answers=f"{function.name}#1 3")
    assert (ran.out, ran.calls) == ("false\n", 2 * [logged(function)])


def test_a_failure_is_not_tried_again():
    assert raised("radioReset()", answers="radioReset 4").calls == ["radioReset(context1)"]


def test_a_value_that_is_no_member_is_the_drivers_to_reject():
    ran = raised("radioSetRxState(7)", answers="radioSetRxState 3")
    assert ran.out == "radioSetRxState() did not return success"
    assert ran.calls == ["radioSetRxState(context1, 7)"]


def test_there_are_functions_of_both_sorts():
    assert (len(WITH_STATUS), len(WITHOUT_STATUS)) == (27, 17)
