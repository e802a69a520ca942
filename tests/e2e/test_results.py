# SPDX-License-Identifier: LicenseRef-Proprietary
"""What the driver's answers are to a script."""

import struct

import pytest
from catalogue import FLOAT, FUNCTIONS, INT32, STRING, UNSIGNED, call, names
from shell import lua


def returning(result):
    return [function for function in FUNCTIONS if function.result is result]


def value_of(function, answer):
    """What a script prints of the function's result, when the driver answers so."""
    return lua(
        f"local value = {call(function)} "
        "io.write(type(value) == 'number' and ('%.17g'):format(value) or tostring(value))",
        answers=f"{function.name} {answer}",
    ).out


@pytest.mark.parametrize("function", returning(FLOAT), ids=names(returning(FLOAT)))
def test_a_float_is_widened_exactly(function):
    for answer in ("36.1", "-101.7", "0.1", "3.4028235e38", "1e-45", "-0.5"):
        (single,) = struct.unpack("f", struct.pack("f", float(answer)))
        assert float(value_of(function, answer)) == single
        assert single == -0.5 or single != float(answer)


@pytest.mark.parametrize("function", returning(FLOAT), ids=names(returning(FLOAT)))
@pytest.mark.parametrize("answer", ["inf", "-inf"])
def test_an_infinite_float_stays_infinite(function, answer):
    assert value_of(function, answer) == answer


@pytest.mark.parametrize("function", returning(FLOAT), ids=names(returning(FLOAT)))
def test_a_float_that_is_not_a_number_is_none_to_the_script(function):
    ran = lua(f"local value = {call(function)} print(type(value), value == value)",
              answers=f"{function.name} nan")
    assert ran.out == "number\tfalse\n"


@pytest.mark.parametrize("function", returning(INT32), ids=names(returning(INT32)))
@pytest.mark.parametrize("answer", [0, 1, -1, 65536, -30000, 2147483647, -2147483648])
def test_a_signed_integer_keeps_its_sign(function, answer):
    assert value_of(function, answer) == str(answer)


@pytest.mark.parametrize("function", returning(UNSIGNED), ids=names(returning(UNSIGNED)))
@pytest.mark.parametrize("answer", [0, 1, 2147483647, 2147483648, 4294967295])
def test_an_unsigned_integer_is_never_negative(function, answer):
    assert value_of(function, answer) == str(answer)


@pytest.mark.parametrize("function", returning(STRING), ids=names(returning(STRING)))
@pytest.mark.parametrize("text", ["Talwin", "", "100% \\n", "\xe9\xff", 400 * "x"])
def test_a_text_is_a_string(function, text):
    assert value_of(function, f'"{text}"') == text


@pytest.mark.parametrize("function", returning(STRING), ids=names(returning(STRING)))
def test_a_null_text_is_nil(function):
    ran = lua(f"print({call(function)}, select('#', {call(function)}))",
              answers=f"{function.name} null")
    assert ran.out == "nil\t1\n"


def test_the_driver_names_are_one_pointer_object():
    ran = lua("local names = radioGetDriverNames() print(type(names), swig_type(names))")
    assert ran.out == "userdata\tchar **\n"


def test_driver_names_of_null_are_nil():
    ran = lua("print(radioGetDriverNames(), select('#', radioGetDriverNames()))",
              answers="radioGetDriverNames null")
    assert ran.out == "nil\t1\n"


@pytest.mark.parametrize(
    "use", ["local x = names[1]", "names.x = 1", "names()", "local x = #names"]
)
def test_a_script_can_do_nothing_with_the_driver_names_themselves(use):
    ran = lua(f"local names = radioGetDriverNames() print((pcall(function() {use} end)))")
    assert ran.out == "false\n"


def test_the_driver_names_are_not_freed_with_their_object():
    ran = lua("local first = radioGetDriverNames() "
              "for _ = 1, 100 do radioGetDriverNames() collectgarbage() end "
              "first = nil collectgarbage() print(swig_type(radioGetDriverNames()))")
    assert ran.out == "char **\n"


def test_a_reading_never_raises():
    ran = lua("print(radioGetTemperature() ~= radioGetTemperature(), radioSpiRead(1), "
              "radioGetRxRtwp())",
              answers="radioGetTemperature nan\nradioSpiRead 4294967295\n"
                      "radioGetRxRtwp -2147483648")
    assert ran.out == "true\t4294967295\t-2147483648\n"
