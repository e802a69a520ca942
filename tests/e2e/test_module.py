# SPDX-License-Identifier: LicenseRef-Proprietary
"""The table radio: its fields, and the accessors behind names that are no fields."""

import pytest
from catalogue import FUNCTIONS
from shell import assert_broken, lua


def test_radio_holds_the_functions_the_class_and_the_constants():
    ran = lua("for name, value in pairs(radio) do print(name, type(value)) end")
    fields = dict(line.split("\t") for line in ran.out.splitlines())
    functions = {name for name, kind in fields.items() if kind == "function"}
    assert len(fields) == 163
    assert functions == {function.name for function in FUNCTIONS} | {"RadioHooks"}


def test_the_fields_look_as_a_script_expects():
    ran = lua("print(radio.RADIO_BAND_7, radio.RADIO_MODE_NULL, type(radio.radioSpiRead), "
              "type(radio.RadioHooks))")
    assert ran.out == "7\t-1\tfunction\tfunction\n"


def test_the_metatable_has_four_fields():
    ran = lua("for name, value in pairs(getmetatable(radio)) do print(name, type(value)) end")
    assert sorted(ran.out.splitlines()) == [
        ".get\ttable",
        ".set\ttable",
        "__index\tfunction",
        "__newindex\tfunction",
    ]


def test_there_are_no_variables():
    ran = lua("local m = getmetatable(radio) print(next(m['.get']), next(m['.set']))")
    assert ran.out == "nil\tnil\n"


def test_an_unknown_name_reads_as_nil():
    assert lua("print(radio.nothing, radio[1], radio[true])").out == "nil\tnil\tnil\n"


def test_an_unknown_name_becomes_a_plain_field_when_assigned():
    ran = lua("radio.mine = 5 print(radio.mine, rawget(radio, 'mine'), mine)")
    assert ran.out == "5\t5\tnil\n"


def test_a_function_can_be_replaced_in_the_table():
    ran = lua("radio.radioReset = 'mine' print(radio.radioReset, type(radioReset))")
    assert ran.out == "mine\tfunction\n"


# A native function under a name in .get or .set makes that name a variable. The driver functions
# serve here, since they check how many arguments they get.
GETTER = "getmetatable(radio)['.get'].variable = "
SETTER = "getmetatable(radio)['.set'].variable = "


def test_reading_a_variable_calls_its_getter_without_arguments():
    ran = lua(GETTER + "radioGetTemperature print(radio.variable)",
              answers="radioGetTemperature 36.5")
    assert (ran.out, ran.calls) == ("36.5\n", ["radioGetTemperature(context1)"])


def test_assigning_to_a_variable_calls_its_setter_with_the_value():
    ran = lua(SETTER + "radioSetRxGain radio.variable = 12 print(rawget(radio, 'variable'))")
    assert (ran.out, ran.calls) == ("nil\n", ["radioSetRxGain(context1, 12)"])


def test_a_getter_that_raises_fails_the_reading():
    ran = lua(GETTER + "radioSpiRead print(pcall(function() return radio.variable end))")
    assert ran.out == "false\tError in radioSpiRead expected 1..1 args, got 0\n"


def test_a_getter_gives_exactly_one_value():
    ran = lua(GETTER + "print print(select('#', radio.variable), radio.variable)")
    assert ran.out == "\n\n1\tnil\n"


def test_assigning_to_a_variable_without_setter_shadows_it():
    ran = lua(GETTER + "radioGetTemperature radio.variable = 'shadow' print(radio.variable)")
    assert (ran.out, ran.calls) == ("shadow\n", [])


@pytest.mark.parametrize("value", ["function() error('called') end", "5", "'text'", "{}"])
def test_only_native_functions_make_variables(value):
    ran = lua(f"{GETTER}{value} {SETTER}{value} "
              "print(radio.variable) radio.variable = 1 print(rawget(radio, 'variable'))")
    assert ran.out == "nil\n1\n"


@pytest.mark.parametrize("value", ["nil", "5", "radioReset"])
def test_without_tables_of_accessors_there_are_no_variables(value):
    ran = lua(f"local m = getmetatable(radio) m['.get'] = {value} m['.set'] = {value} "
              "print(radio.variable) radio.variable = 1 print(radio.variable)")
    assert (ran.out, ran.calls) == ("nil\n1\n", [])


@pytest.mark.parametrize("event, line", [("index", 889), ("newindex", 921)])
def test_an_accessor_called_on_no_table_ends_the_process(event, line):
    assert_broken(
        f"getmetatable(radio).__{event}(5, 'name', 1)",
        line,
        {"index": "SWIG_Lua_module_get", "newindex": "SWIG_Lua_module_set"}[event],
        "(lua_type(L, (1)) == 5)",
    )


@pytest.mark.parametrize("event, line", [("index", 891), ("newindex", 923)])
def test_an_accessor_called_on_a_table_without_metatable_ends_the_process(event, line):
    assert_broken(
        f"getmetatable(radio).__{event}({{}}, 'name', 1)",
        line,
        {"index": "SWIG_Lua_module_get", "newindex": "SWIG_Lua_module_set"}[event],
        "(lua_type(L, (-1)) == 5)",
    )
