# SPDX-License-Identifier: LicenseRef-Proprietary
"""The calibration getters and the debug file, which take pointer objects."""

import pytest
from catalogue import HOOKS, INT_POINTER, NO_CONTEXT, count_message, status_message, type_message
from shell import lua, raised, run

INTEGER, TEXT = "radioGetIntegerFromCalibration", "radioGetStringFromCalibration"
GETTERS = [INTEGER, TEXT]
DECLARED = {INTEGER: "int32_t *const", TEXT: "char const **"}
REGISTERED = {INTEGER: INT_POINTER, TEXT: "char **"}

both = pytest.mark.parametrize("getter", GETTERS)


def refusal(text):
    """What a call raises before anything but the list of names is asked of the driver."""
    ran = raised(text)
    assert [line for line in ran.calls if not line.startswith("radioGetDriverNames")] == []
    return ran.out


@both
def test_null_name_and_null_pointer_reach_the_driver(getter):
    ran = lua(f"print(select('#', {getter}(nil, nil)))")
    assert (ran.out, ran.calls) == ("0\n", [f"{getter}(context1, null, null)"])


@both
@pytest.mark.parametrize("name, passed", [("'gain'", '"gain"'), ("12", '"12"'), ("''", '""')])
def test_the_name_reaches_the_driver(getter, name, passed):
    assert lua(f"{getter}({name}, nil)").calls == [f"{getter}(context1, {passed}, null)"]


def test_the_list_of_driver_names_is_taken_as_the_place_for_a_text():
    ran = lua(f"print(select('#', {TEXT}('k', radioGetDriverNames())))")
    assert ran.out == "0\n"
    assert ran.calls == ["radioGetDriverNames(context1)", f'{TEXT}(context1, "k", driverNames)']


@both
@pytest.mark.parametrize("arguments, count", [("", 0), ("'k'", 1), ("'k', nil, nil", 3)])
def test_exactly_two_arguments_are_taken(getter, arguments, count):
    assert refusal(f"{getter}({arguments})") == count_message(getter, 2, count)


@both
@pytest.mark.parametrize(
    "name, got",
    [("true", "boolean"), ("{}", "table"), ("RadioHooks()", HOOKS),
     ("radioGetDriverNames()", "char **"), ("newproxy()", "userdata (unknown type)")],
)
def test_a_name_that_is_no_text_is_refused(getter, name, got):
    assert refusal(f"{getter}({name}, 5)") == type_message(getter, 1, "char const *", got)


@both
@pytest.mark.parametrize(
    "pointer, got",
    [("5", "number"), ("'x'", "string"), ("true", "boolean"), ("{}", "table"),
     ("print", "function")],
)
def test_a_pointer_that_is_no_userdata_is_refused(getter, pointer, got):
    expected = type_message(getter, 2, DECLARED[getter], got)
    assert refusal(f"{getter}('k', {pointer})") == expected


@both
@pytest.mark.parametrize(
    "pointer", ["RadioHooks()", "newproxy()", "newproxy(true)", "io.stdout", "io.tmpfile()"]
)
def test_a_pointer_of_another_type_is_refused_by_the_drivers_count(getter, pointer):
    expected = type_message(getter, 3, REGISTERED[getter], "no value")
    assert refusal(f"{getter}('k', {pointer})") == expected


def test_the_list_of_driver_names_is_no_place_for_an_integer():
    expected = type_message(INTEGER, 3, INT_POINTER, "no value")
    assert refusal(f"{INTEGER}('k', radioGetDriverNames())") == expected


@both
def test_a_status_other_than_success_raises(getter):
    assert raised(f"{getter}('k', nil)", answers=f"{getter} 3").out == status_message(getter)


@both
def test_without_a_radio_bad_arguments_are_reported_first(getter):
    calls = {
        f"{getter}('k')": count_message(getter, 2, 1),
        f"{getter}(true, nil)": type_message(getter, 1, "char const *", "boolean"),
        f"{getter}('k', 5)": type_message(getter, 2, DECLARED[getter], "number"),
        f"{getter}('k', RadioHooks())": type_message(getter, 3, REGISTERED[getter], "no value"),
        f"{getter}('k', nil)": NO_CONTEXT,
    }
    ran = run("-c", " ".join(f"print(select(2, pcall(function() {text} end)))" for text in calls),
              answers="radioOpen null")
    assert ran.out.splitlines() == list(calls.values())
    assert ran.log == ["radioOpen() = null"]


def test_no_debug_file_reaches_the_driver_and_nothing_is_returned():
    for status in (0, 3):
        ran = lua("print(select('#', radioSetDebugFile(nil)))",
                  answers=f"radioSetDebugFile {status}")
        assert (ran.out, ran.calls) == ("0\n", ["radioSetDebugFile(context1, null)"])


@pytest.mark.parametrize(
    "file, got",
    [("5", "number"), ("'log'", "string"), ("true", "boolean"), ("{}", "table")],
)
def test_a_debug_file_that_is_no_userdata_is_refused(file, got):
    expected = type_message("radioSetDebugFile", 1, "FILE *", got)
    assert refusal(f"radioSetDebugFile({file})") == expected


CLOSED = "(function() local file = io.tmpfile() file:close() return file end)()"


@pytest.mark.parametrize(
    "file",
    ["io.stdout", "io.tmpfile()", CLOSED, "newproxy()", "newproxy(true)", "RadioHooks()",
     "radioGetDriverNames()"],
)
def test_a_userdata_that_is_no_file_of_the_driver_is_refused_by_the_drivers_count(file):
    expected = type_message("radioSetDebugFile", 2, "FILE *", "no value")
    assert refusal(f"radioSetDebugFile({file})") == expected


@pytest.mark.parametrize("arguments, count", [("", 0), ("nil, nil", 2)])
def test_exactly_one_debug_file_is_taken(arguments, count):
    expected = count_message("radioSetDebugFile", 1, count)
    assert refusal(f"radioSetDebugFile({arguments})") == expected


@both
def test_a_radio_opened_anew_by_a_finaliser_meanwhile_is_not_the_one_called(getter):
    # A name given as a number becomes a string, and making one may run the collector; here it is
    # held back until then.
    ran = lua(
        "collectgarbage('setstepmul', 1000000) collectgarbage('stop') "
        "getmetatable(newproxy(true)).__gc = function() radioOpen() end "
        f"collectgarbage('restart') {getter}(0.25, nil)"
    )
    assert ran.calls == [
        "radioClose(context1)",
        "radioOpen() = context2",
        f'{getter}(context1, "0.25", null)',
    ]
