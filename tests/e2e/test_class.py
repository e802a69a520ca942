# SPDX-License-Identifier: LicenseRef-Proprietary
"""The class table behind RadioHooks objects: attributes, methods, items, destructor."""

import pytest
from catalogue import HOOKS
from shell import assert_broken, lua

NEW = "local h = RadioHooks() local class = getmetatable(h) "


def test_the_class_table_has_seven_fields():
    ran = lua(NEW + "for name, value in pairs(class) do print(name, type(value)) end")
    assert sorted(ran.out.splitlines()) == [
        ".fn\ttable",
        ".get\ttable",
        ".set\ttable",
        ".type\tstring",
        "__gc\tfunction",
        "__index\tfunction",
        "__newindex\tfunction",
    ]


def test_the_class_has_two_attributes_and_no_method():
    ran = lua(NEW + "print(class['.type'], next(class['.fn'])) "
              "for _, accessors in ipairs {'.get', '.set'} do "
              "    for name, value in pairs(class[accessors]) do print(accessors, name, value) end "
              "end")
    lines = ran.out.splitlines()
    assert lines[0] == "RadioHooks\tnil"
    assert sorted(line.rpartition("\t")[0] for line in lines[1:]) == [
        ".get\tfree",
        ".get\tmalloc",
        ".set\tfree",
        ".set\tmalloc",
    ]


def test_all_objects_share_the_class_table_of_the_lua_registry():
    ran = lua(NEW + "local classes = debug.getregistry().SWIG "
              "print(getmetatable(RadioHooks()) == class, classes.RadioHooks == class, "
              "next(classes), next(classes, 'RadioHooks'))")
    assert ran.out == "true\ttrue\tRadioHooks\tnil\n"


def test_an_unknown_field_reads_as_nil():
    ran = lua(NEW + "print(h.unknown, h[1], select('#', class.__index(h, 'unknown')))")
    assert ran.out == "nil\tnil\t0\n"


def test_assigning_to_an_unknown_field_is_dropped_in_silence():
    assert lua(NEW + "h.unknown = 1 print(h.unknown)").out == "nil\n"


def test_a_getter_is_called_with_the_object():
    ran = lua(NEW + "class['.get'].kind = swig_type print(h.kind)")
    assert ran.out == HOOKS + "\n"


def test_a_setter_is_called_with_the_object_and_the_value():
    ran = lua(NEW + "class['.set'].shown = print h.shown = 'value' print(h)")
    shown, itself = ran.out.splitlines()
    assert shown == itself + "\tvalue"


def test_an_attribute_without_setter_is_read_only():
    ran = lua(NEW + "class['.get'].kind = swig_type h.kind = 1 print(h.kind)")
    assert ran.out == HOOKS + "\n"


@pytest.mark.parametrize("method", ["swig_type", "function(object) return swig_type(object) end"])
def test_a_method_may_be_native_or_written_in_lua(method):
    ran = lua(NEW + f"class['.fn'].kind = {method} print(h:kind(), h.kind == class['.fn'].kind)")
    assert ran.out == HOOKS + "\ttrue\n"


def test_an_attribute_goes_before_a_method_of_its_name():
    ran = lua(NEW + "class['.get'].both = swig_type class['.fn'].both = print print(h.both)")
    assert ran.out == HOOKS + "\n"


def test_a_getter_written_in_lua_is_not_called():
    ran = lua(NEW + "class['.get'].mine = function() error('called') end print(h.mine)")
    assert ran.out == "nil\n"


def test_items_are_read_through_a_native_getitem():
    ran = lua(NEW + "class.__getitem = print local item = h[5] print(h, item)")
    first, second = ran.out.splitlines()
    assert second == first.replace("\t5", "\tnil")


def test_items_are_written_through_a_native_setitem():
    ran = lua(NEW + "class.__setitem = print h[5] = 'value' print(h)")
    first, itself = ran.out.splitlines()
    assert first == itself + "\t5\tvalue"


def test_item_functions_written_in_lua_are_not_called():
    ran = lua(NEW + "local function fail() error('called') end "
              "class.__getitem = fail class.__setitem = fail h[5] = 1 print(h[5])")
    assert ran.out == "nil\n"


def test_methods_go_before_items():
    ran = lua(NEW + "class.__getitem = print class['.fn'].name = swig_type print(h:name())")
    assert ran.out == HOOKS + "\n"


def test_the_destructor_frees_only_what_lua_owns():
    ran = lua(NEW + "local names = radioGetDriverNames() "
              "for _ = 1, 3 do class.__gc(names) class.__gc(newproxy()) end "
              "print(swig_type(names))")
    assert ran.out == "char **\n"


@pytest.mark.parametrize(
    "call, line, function, assertion",
    [
        ("__index(5, 'name')", 1009, "get", "lua_isuserdata(L,-2)"),
        ("__index(newproxy(), 'name')", 1011, "get", "(lua_type(L, (-1)) == 5)"),
        ("__index(newproxy(true), 'name')", 1013, "get", "(lua_type(L, (-1)) == 5)"),
        ("__newindex(5, 'name', 1)", 1064, "set", "lua_isuserdata(L,1)"),
        ("__newindex(newproxy(), 'name', 1)", 1066, "set", "(lua_type(L, (-1)) == 5)"),
        ("__gc()", 1106, "destruct", "lua_isuserdata(L,-1)"),
        ("__gc(5)", 1106, "destruct", "lua_isuserdata(L,-1)"),
        ("__gc(h, 5)", 1106, "destruct", "lua_isuserdata(L,-1)"),
    ],
)
def test_a_metamethod_called_on_something_else_ends_the_process(call, line, function, assertion):
    assert_broken(f"{NEW} class.{call}", line, f"SWIG_Lua_class_{function}", assertion)


@pytest.mark.parametrize("foreign", ["io.stdout", "socket.tcp()", "newproxy(true)"])
def test_the_destructor_leaves_what_other_libraries_made_alone(foreign):
    ran = lua(NEW + f"local foreign = {foreign} class.__gc(foreign) print(tostring(foreign) ~= nil)")
    assert ran.out == "true\n"


@pytest.mark.parametrize("field, line", [(".get", 1013), (".fn", 1028)])
def test_a_class_table_without_its_tables_ends_the_process(field, line):
    assert_broken(
        f"{NEW} class['{field}'] = nil local unknown = h.unknown",
        line,
        "SWIG_Lua_class_get",
        "(lua_type(L, (-1)) == 5)",
    )
