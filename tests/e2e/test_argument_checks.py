# SPDX-License-Identifier: LicenseRef-Proprietary
"""What every driver function checks before it calls the driver, and in which order."""

import pytest
from catalogue import (
    FUNCTIONS,
    HOOKS,
    INTEGER_OUT,
    FILE,
    NEGATIVE,
    NO_CONTEXT,
    REGISTERS,
    TEXT,
    TEXT_OUT,
    UINT16,
    UINT32,
    UNCHECKED,
    WITHOUT_CONTEXT,
    call,
    count_message,
    names,
    type_message,
)
from shell import lua, raised, run

# A Lua value -> the type that a message says was got.
NO_NUMBERS = {
    "'x'": "string",
    "''": "string",
    "nil": "nil",
    "true": "boolean",
    "{}": "table",
    "print": "function",
    "coroutine.create(function() end)": "thread",
    "RadioHooks()": HOOKS,
    "radioGetDriverNames()": "char **",
    "newproxy()": "userdata (unknown type)",
}
NO_TEXTS = {value: name for value, name in NO_NUMBERS.items() if name not in ("string", "nil")}
NO_POINTERS = {
    "'x'": "string",
    "5": "number",
    "true": "boolean",
    "{}": "table",
    "print": "function",
}


def refused(kind):
    """The values that a kind's type test refuses."""
    if kind is TEXT:
        return NO_TEXTS
    if kind in (INTEGER_OUT, TEXT_OUT, FILE):
        return NO_POINTERS
    return NO_NUMBERS


def good(function):
    return [kind.good for kind in function.kinds]


TESTED = [
    (function, place)
    for function in FUNCTIONS
    for place, kind in enumerate(function.kinds)
    if kind not in (UNCHECKED, REGISTERS)
]
UNSIGNED = [(function, place) for function, place in TESTED
            if function.kinds[place] in (UINT32, UINT16)]
PLACES = [f"{function.name}-{place + 1}" for function, place in TESTED]
UNSIGNED_PLACES = [f"{function.name}-{place + 1}" for function, place in UNSIGNED]


def test_the_tables_of_arguments_cover_what_they_are_meant_to():
    assert (len(FUNCTIONS), len(TESTED), len(UNSIGNED)) == (44, 42, 7)


@pytest.mark.parametrize("function", FUNCTIONS, ids=names(FUNCTIONS))
def test_one_argument_too_many_is_refused(function):
    ran = raised(call(function, good(function) + ["nil"]))
    count = len(function.kinds)
    assert ran.out == count_message(function.name, count, count + 1)
    assert ran.calls == []


WITH_ARGUMENTS = [function for function in FUNCTIONS if function.kinds]


@pytest.mark.parametrize("function", WITH_ARGUMENTS, ids=names(WITH_ARGUMENTS))
def test_too_few_arguments_are_refused(function):
    count = len(function.kinds)
    for fewer in range(count):
        ran = raised(call(function, good(function)[:fewer]))
        assert ran.out == count_message(function.name, count, fewer)
        assert ran.calls == []


def test_very_many_arguments_are_counted():
    ran = raised("radioReset(unpack({}, 1, 200))")
    assert ran.out == count_message("radioReset", 0, 200)


@pytest.mark.parametrize("function, place", TESTED, ids=PLACES)
def test_an_argument_of_another_type_is_refused(function, place):
    kind = function.kinds[place]
    before, after = good(function)[:place], good(function)[place + 1 :]
    values = refused(kind)
    ran = lua(" ".join(
        f"print(select(2, pcall({', '.join([function.name, *before, value, *after])})))"
        for value in values
    ))
    assert ran.out.splitlines() == [
        type_message(function.name, place + 1, kind.type, got) for got in values.values()
    ]
    assert [line for line in ran.calls if not line.startswith("radioGetDriverNames")] == []


@pytest.mark.parametrize("function, place", UNSIGNED, ids=UNSIGNED_PLACES)
@pytest.mark.parametrize("value", ["-1", "-0.5", "0/0", "-1/0", "-1e-300", "'-1'", "'nan'"])
def test_an_unsigned_argument_must_not_be_negative(function, place, value):
    arguments = good(function)
    arguments[place] = value
    ran = raised(call(function, arguments))
    assert (ran.out, ran.calls) == (NEGATIVE, [])


def test_the_count_is_checked_before_the_types():
    ran = raised("radioInit('x', 'y')")
    assert ran.out == count_message("radioInit", 3, 2)
    ran = raised("radioSetTxFrequency('x', -1)")
    assert ran.out == count_message("radioSetTxFrequency", 1, 2)


@pytest.mark.parametrize(
    "arguments, place, got",
    [("'x', 'y', 'z'", 1, "string"), ("0, nil, 'z'", 2, "nil"), ("0, 0, {}", 3, "table")],
)
def test_the_first_argument_of_another_type_is_the_one_named(arguments, place, got):
    kinds = ["RadioConf", "RadioMode", "RadioBand"]
    ran = raised(f"radioInit({arguments})")
    assert ran.out == type_message("radioInit", place, kinds[place - 1], got)


NEEDING_CONTEXT = [function for function in FUNCTIONS if function.name != WITHOUT_CONTEXT]


def message_without_radio(text):
    """What the text raises when no radio is open; nothing may have reached the driver."""
    ran = run("-c", f"print(select(2, pcall(function() {text} end)))", answers="radioOpen null")
    assert ran.log == ["radioOpen() = null"]
    return ran.out.rstrip("\n")


@pytest.mark.parametrize("function", NEEDING_CONTEXT, ids=names(NEEDING_CONTEXT))
def test_without_a_radio_good_arguments_report_that(function):
    assert message_without_radio(call(function)) == NO_CONTEXT


@pytest.mark.parametrize("function", NEEDING_CONTEXT, ids=names(NEEDING_CONTEXT))
def test_without_a_radio_a_wrong_count_is_reported_first(function):
    count = len(function.kinds)
    text = call(function, good(function) + ["1"])
    assert message_without_radio(text) == count_message(function.name, count, count + 1)


@pytest.mark.parametrize("function, place", TESTED, ids=PLACES)
def test_without_a_radio_a_wrong_type_is_reported_first(function, place):
    arguments = good(function)
    arguments[place] = "true"
    assert message_without_radio(call(function, arguments)) == type_message(
        function.name, place + 1, function.kinds[place].type, "boolean"
    )


@pytest.mark.parametrize("function, place", UNSIGNED, ids=UNSIGNED_PLACES)
def test_without_a_radio_a_negative_number_is_reported_first(function, place):
    arguments = good(function)
    arguments[place] = "-1"
    assert message_without_radio(call(function, arguments)) == NEGATIVE


def test_without_a_radio_the_platform_can_be_selected():
    ran = run("-c", "radioSelectPlatform(RADIO_PLATFORM_DEFAULT)", answers="radioOpen null")
    assert (ran.status, ran.err) == (0, "radioOpen() failed\n")
    assert ran.log == ["radioOpen() = null", "radioSelectPlatform(0)"]


def test_without_a_radio_selecting_the_platform_checks_its_argument():
    assert message_without_radio("radioSelectPlatform('x')") == type_message(
        "radioSelectPlatform", 1, "enum RadioPlatformSelectIndex", "string"
    )
