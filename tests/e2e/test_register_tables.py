# SPDX-License-Identifier: LicenseRef-Proprietary
"""The two functions that take a table of register words."""

import pytest
from catalogue import NO_CONTEXT, count_message, status_message
from shell import lua, raised, run

SETTERS = ["radioSetRxGainRegisters", "radioSetTxPowerRegisters"]
NO_TABLE = "Data values must be a table"
NO_NUMBER = "Expected integer values in data"

both = pytest.mark.parametrize("setter", SETTERS)


@both
@pytest.mark.parametrize(
    "table, registers",
    [
        ("{}", "[], 0"),
        ("{0}", "[0], 1"),
        ("{1, 2, 3}", "[1, 2, 3], 3"),
        ("{'17', 3.7, -2}", "[17, 3, 4294967294], 3"),
        ("{1, x = 2, [0] = 3, [2.5] = 4}", "[1], 1"),
    ],
)
def test_the_words_of_a_table_reach_the_driver_with_their_count(setter, table, registers):
    assert lua(f"{setter}({table})").calls == [f"{setter}(context1, {registers})"]


@both
def test_a_long_table_arrives_whole(setter):
    ran = lua(f"local t = {{}} for i = 1, 20000 do t[i] = i end {setter}(t)")
    words = ", ".join(str(word) for word in range(1, 20001))
    assert ran.calls == [f"{setter}(context1, [{words}], 20000)"]


# A Lua value -> the word it arrives as: what its text reads as in decimal digits, in 32 bits.
WORDS = {
    r"'\t5'": 5,
    r"'\n5'": 5,
    r"'\v5'": 5,
    r"'\f5'": 5,
    r"'\r5'": 5,
    "0": 0,
    "-0": 0,
    "0.5": 0,
    "2.9": 2,
    "-2.9": 4294967294,
    "-0.5": 0,
    "-1": 4294967295,
    "2147483648": 2147483648,
    "-2147483648": 2147483648,
    "4294967295": 4294967295,
    "4294967295.5": 4294967295,
    "4294967296": 4294967295,
    "-4294967295": 1,
    "-4294967296": 4294967295,
    "-1e10": 4294967295,
    "1e13": 4294967295,
    "99999999999999": 4294967295,
    "1e14": 1,  # its text is 1e+14
    "1e15": 1,
    "-1e15": 4294967295,
    "2.5e20": 2,
    "1e-5": 1,  # its text is 1e-05
    "0.0001": 0,
    "1e300": 1,
    "1/0": 0,
    "-1/0": 0,
    "0/0": 0,
    "'17'": 17,
    "'+7'": 7,
    "' 5'": 5,
    "'\\t\\n 5 '": 5,
    "'-5'": 4294967291,
    "' -5'": 4294967291,
    "'007'": 7,
    "'2.9'": 2,
    "'.9'": 0,
    "'1e3'": 1,
    "'0x1F'": 0,
    "'-0x10'": 0,
    "'0x1p4'": 0,
    "'inf'": 0,
    "'nan'": 0,
    "'4294967295'": 4294967295,
    "'4294967296'": 4294967295,
    "'-4294967295'": 1,
    "'-4294967296'": 4294967295,
    "'99999999999'": 4294967295,
    "'-99999999999'": 4294967295,
    "'18446744073709551616'": 4294967295,
    "'18446744073709551617'": 4294967295,
    "'-18446744073709551617'": 4294967295,
    "('9'):rep(100)": 4294967295,
}


@pytest.mark.parametrize("value", WORDS)
def test_what_an_element_arrives_as(value):
    ran = lua(" ".join(f"{setter}({{ {value} }})" for setter in SETTERS))
    assert ran.calls == [f"{setter}(context1, [{WORDS[value]}], 1)" for setter in SETTERS]


def test_the_elements_of_the_table_stay_what_they_were():
    ran = lua("local t = {1.5, '2'} radioSetRxGainRegisters(t) "
              "print(type(t[1]), t[1], type(t[2]), #t)")
    assert ran.out == "number\t1.5\tstring\t2\n"


@both
@pytest.mark.parametrize("arguments, count", [("", 0), ("{1}, 2", 2), ("nil, nil, nil", 3)])
def test_exactly_one_argument_is_taken(setter, arguments, count):
    ran = raised(f"{setter}({arguments})")
    assert (ran.out, ran.calls) == (count_message(setter, 1, count), [])


@both
@pytest.mark.parametrize(
    "value",
    ["nil", "5", "'1'", "true", "print", "newproxy()", "RadioHooks()", "io.stdout"],
)
def test_only_a_table_is_taken(setter, value):
    ran = raised(f"{setter}({value})")
    assert (ran.out, ran.calls) == (NO_TABLE, [])


@both
@pytest.mark.parametrize(
    "value", ["true", "'x'", "''", "'12a'", "{}", "print", "newproxy()", "RadioHooks()"]
)
def test_an_element_that_is_no_number_is_refused(setter, value):
    for table in (f"{{ {value} }}", f"{{1, {value}, 3}}", f"{{1, 2, {value} }}"):
        ran = raised(f"{setter}({table})")
        assert (ran.out, ran.calls) == (NO_NUMBER, [])


@both
def test_a_hole_within_the_length_is_refused(setter):
    ran = raised(f"local t = {{1, nil, 3}} assert(#t == 3) {setter}(t)")
    assert (ran.out, ran.calls) == (NO_NUMBER, [])


@both
def test_what_lies_beyond_the_length_is_ignored(setter):
    ran = lua(f"local t = {{1}} t[3] = 3 assert(#t == 1) {setter}(t)")
    assert ran.calls == [f"{setter}(context1, [1], 1)"]


@both
def test_a_status_other_than_success_raises(setter):
    ran = raised(f"{setter}({{1}})", answers=f"{setter} 3")
    assert (ran.out, ran.calls) == (status_message(setter), [f"{setter}(context1, [1], 1)"])


def without_radio(text):
    ran = run("-c", f"print(select(2, pcall(function() {text} end)))", answers="radioOpen null")
    assert ran.log == ["radioOpen() = null"]
    return ran.out.rstrip("\n")


@both
@pytest.mark.parametrize(
    "arguments, message",
    [("{1}", NO_CONTEXT), ("{}", NO_CONTEXT), ("{'x'}", NO_NUMBER), ("5", NO_TABLE)],
)
def test_without_a_radio_a_bad_table_is_reported_first(setter, arguments, message):
    assert without_radio(f"{setter}({arguments})") == message
