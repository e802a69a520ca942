# SPDX-License-Identifier: LicenseRef-Proprietary
"""Pointer objects: their type names, equality, and userdata that are none."""

import pytest
from catalogue import HOOKS
from shell import lua

UNKNOWN = "userdata (unknown type)"


@pytest.mark.parametrize(
    "value, name",
    [
        ("", "no value"),
        ("nil", "nil"),
        ("1", "number"),
        ("'text'", "string"),
        ("true", "boolean"),
        ("{}", "table"),
        ("print", "function"),
        ("coroutine.create(function() end)", "thread"),
        ("RadioHooks()", HOOKS),
        ("radioGetDriverNames()", "char **"),
        ("newproxy()", UNKNOWN),
        ("newproxy(true)", UNKNOWN),
        ("io.stdout", UNKNOWN),
        ("socket.tcp()", UNKNOWN),
        ("1, {}, nil", "number"),
    ],
)
def test_swig_type_names_a_value(value, name):
    assert lua(f"print(swig_type({value}))").out == name + "\n"


def test_a_closed_file_handle_is_of_unknown_type():
    assert lua("local f = io.tmpfile() f:close() print(swig_type(f))").out == UNKNOWN + "\n"


def test_swig_type_returns_one_text():
    assert lua("print(select('#', swig_type(1)), type(swig_type()))").out == "1\tstring\n"


def test_an_object_equals_itself():
    assert lua("local h = RadioHooks() print(swig_equals(h, h))").out == "true\n"


def test_two_objects_of_one_address_are_equal():
    ran = lua("local a, b = radioGetDriverNames(), radioGetDriverNames() "
              "print(rawequal(a, b), swig_equals(a, b))")
    assert ran.out == "false\ttrue\n"


def test_objects_of_different_addresses_are_not_equal():
    ran = lua("print(swig_equals(RadioHooks(), RadioHooks()), "
              "swig_equals(RadioHooks(), radioGetDriverNames()))")
    assert ran.out == "false\tfalse\n"


@pytest.mark.parametrize(
    "arguments",
    ["", "RadioHooks()", "RadioHooks(), 5", "5, RadioHooks()", "5, 5", "nil, nil",
     "'a', 'a'", "RadioHooks(), nil"],
)
def test_values_that_are_no_userdata_compare_to_nothing(arguments):
    assert lua(f"print(select('#', swig_equals({arguments})))").out == "0\n"


@pytest.mark.parametrize(
    "arguments",
    ["newproxy(), newproxy()", "newproxy(), RadioHooks()", "RadioHooks(), newproxy()"],
)
def test_userdata_without_contents_compare_to_one_boolean(arguments):
    ran = lua(f"local n, equal = select('#', swig_equals({arguments})), swig_equals({arguments}) "
              "print(n, type(equal))")
    assert ran.out == "1\tboolean\n"


def test_an_object_does_not_equal_a_userdata_without_contents():
    assert lua("print(swig_equals(RadioHooks(), newproxy()))").out == "false\n"


@pytest.mark.parametrize("foreign", ["io.stdout", "socket.tcp()", "newproxy(true)"])
def test_what_another_library_made_equals_itself_and_no_object_of_ours(foreign):
    ran = lua(f"local foreign = {foreign} "
              "print(swig_equals(foreign, foreign), swig_equals(foreign, RadioHooks()))")
    assert ran.out == "true\tfalse\n"


def test_a_pointer_object_without_a_class_has_no_metatable():
    assert lua("print(getmetatable(radioGetDriverNames()))").out == "nil\n"


def test_the_two_functions_are_globals_and_no_fields_of_radio():
    ran = lua("print(type(swig_type), type(swig_equals), radio.swig_type, radio.swig_equals)")
    assert ran.out == "function\tfunction\tnil\tnil\n"


def test_the_lua_registry_leads_other_bindings_to_the_types():
    ran = lua("print(type(debug.getregistry()['swig_runtime_data_type_pointer4']))")
    assert ran.out == "userdata\n"
