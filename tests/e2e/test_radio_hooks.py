# SPDX-License-Identifier: LicenseRef-Proprietary
"""RadioHooks objects."""

import pytest
from catalogue import HOOKS, count_message, type_message
from shell import lua, preloading, raised, run

FIELD_TYPES = {"malloc": "void *(*)(size_t)", "free": "void (*)(void *)"}
UNKNOWN = "userdata (unknown type)"

each_field = pytest.mark.parametrize("field", FIELD_TYPES)

OTHER_POINTERS = {
    "RadioHooks()": HOOKS,
    "radioGetDriverNames()": "char **",
    "newproxy()": UNKNOWN,
}
NO_POINTERS = {
    "5": "number",
    "'x'": "string",
    "true": "boolean",
    "{}": "table",
    "print": "function",
}


def accessor(kind, field):
    """Lua text for the getter or setter itself."""
    return f"getmetatable(RadioHooks())['.{kind}'].{field}"


def test_the_constructor_makes_an_object_of_the_class():
    ran = lua("local h = RadioHooks() print(type(h), swig_type(h), RadioHooks == radio.RadioHooks)")
    assert ran.out == f"userdata\t{HOOKS}\ttrue\n"


@pytest.mark.parametrize("arguments, count", [("1", 1), ("nil", 1), ("1, 2", 2)])
def test_the_constructor_takes_no_argument(arguments, count):
    assert raised(f"RadioHooks({arguments})").out == count_message(
        "RadioHooks::RadioHooks", 0, count
    )


def test_every_object_has_a_record_of_its_own():
    assert lua("print(swig_equals(RadioHooks(), RadioHooks()))").out == "false\n"


@each_field
def test_a_fresh_field_is_nil(field):
    ran = lua(f"print(RadioHooks().{field}, select('#', {accessor('get', field)}(RadioHooks())))")
    assert ran.out == "nil\t1\n"


@each_field
def test_a_field_can_be_cleared_and_copied(field):
    ran = lua(f"local a, b = RadioHooks(), RadioHooks() a.{field} = nil b.{field} = a.{field} "
              f"print(a.{field}, b.{field})")
    assert ran.out == "nil\tnil\n"


@each_field
@pytest.mark.parametrize("value", NO_POINTERS)
def test_a_value_that_is_no_pointer_is_refused_in_the_fields_name(field, value):
    expected = type_message(field, 2, FIELD_TYPES[field], NO_POINTERS[value])
    assert raised(f"RadioHooks().{field} = {value}").out == expected


@each_field
@pytest.mark.parametrize("value", OTHER_POINTERS)
def test_a_pointer_of_another_type_is_refused_in_the_setters_name(field, value):
    expected = type_message(
        f"RadioHooks_{field}_set", 2, FIELD_TYPES[field], OTHER_POINTERS[value]
    )
    assert raised(f"RadioHooks().{field} = {value}").out == expected


@each_field
def test_an_object_is_refused_in_its_own_field(field):
    expected = type_message(f"RadioHooks_{field}_set", 2, FIELD_TYPES[field], HOOKS)
    assert raised(f"local h = RadioHooks() h.{field} = h").out == expected


@each_field
def test_a_refused_value_leaves_the_field_alone(field):
    ran = lua(f"local h = RadioHooks() pcall(function() h.{field} = 5 end) print(h.{field})")
    assert ran.out == "nil\n"


@each_field
@pytest.mark.parametrize("arguments, count", [("", 0), ("nil, nil", 2)])
def test_a_getter_takes_exactly_one_argument(field, arguments, count):
    message = raised(f"{accessor('get', field)}({arguments})").out
    assert message == count_message(field, 1, count)


@each_field
@pytest.mark.parametrize("arguments, count", [("", 0), ("RadioHooks()", 1), ("nil, nil, nil", 3)])
def test_a_setter_takes_exactly_two_arguments(field, arguments, count):
    message = raised(f"{accessor('set', field)}({arguments})").out
    assert message == count_message(field, 2, count)


@each_field
@pytest.mark.parametrize("value", NO_POINTERS)
def test_an_accessor_refuses_an_object_that_is_no_pointer(field, value):
    expected = type_message(field, 1, "RadioHooks *", NO_POINTERS[value])
    assert raised(f"{accessor('get', field)}({value})").out == expected
    assert raised(f"{accessor('set', field)}({value}, 5)").out == expected


OTHER_OBJECTS = {value: got for value, got in OTHER_POINTERS.items() if got != HOOKS}


@each_field
@pytest.mark.parametrize("value", OTHER_OBJECTS)
def test_an_accessor_refuses_an_object_of_another_type_in_its_own_name(field, value):
    got = OTHER_OBJECTS[value]
    assert raised(f"{accessor('get', field)}({value})").out == type_message(
        f"RadioHooks_{field}_get", 1, HOOKS, got
    )
    assert raised(f"{accessor('set', field)}({value}, newproxy())").out == type_message(
        f"RadioHooks_{field}_set", 1, HOOKS, got
    )


@each_field
def test_a_setter_without_a_record_does_nothing(field):
    ran = lua(f"print(select('#', {accessor('set', field)}(nil, nil)))")
    assert ran.out == "0\n"


@each_field
def test_a_setter_checks_both_types_before_it_converts(field):
    expected = type_message(field, 2, FIELD_TYPES[field], "number")
    assert raised(f"{accessor('set', field)}(radioGetDriverNames(), 5)").out == expected


def test_unknown_fields_read_as_nil_and_drop_what_is_assigned():
    ran = lua("local h = RadioHooks() h.unknown = 1 print(h.unknown, h.realloc)")
    assert ran.out == "nil\tnil\n"


def test_objects_reach_no_driver_function():
    assert lua("local h = RadioHooks() h.malloc = nil h = nil collectgarbage()").calls == []


def records(text):
    """What becomes of the records behind the objects, up to the end of the process."""
    ran = run("-c", text, COUNTED_CALLOC="pointers", **preloading("counted_blocks.so"))
    assert ran.status == 0, ran
    return ran.err.split()


def test_a_record_is_freed_exactly_once_when_its_object_is_collected():
    assert records("RadioHooks() collectgarbage() collectgarbage() io.stderr:write('end ')") == (
        ["made", "freed", "end"]
    )


def test_a_record_still_in_use_is_freed_at_the_end():
    assert records("kept = RadioHooks() collectgarbage() io.stderr:write('end ')") == (
        ["made", "end", "freed"]
    )


def test_every_record_is_freed_once():
    lines = records("for _ = 1, 500 do RadioHooks() end")
    assert (lines.count("made"), lines.count("freed")) == (500, 500)


def test_the_destructor_takes_the_last_argument():
    assert records("kept = RadioHooks() getmetatable(kept).__gc(5, kept) io.stderr:write('end ')") == (
        ["made", "freed", "end"]
    )


def test_a_record_freed_by_calling_the_destructor_is_not_freed_again():
    assert records("local h = RadioHooks() getmetatable(h).__gc(h) getmetatable(h).__gc(h)") == (
        ["made", "freed"]
    )


def test_no_record_is_made_where_an_argument_is_refused():
    assert records("pcall(RadioHooks, 1)") == []


def test_collecting_the_driver_names_frees_nothing():
    assert records("radioGetDriverNames() collectgarbage()") == []


def test_very_many_objects_are_collected_without_harm():
    ran = lua("for i = 1, 100000 do RadioHooks().free = nil end collectgarbage() "
              "print(collectgarbage('count') < 2000)")
    assert ran.out == "true\n"
