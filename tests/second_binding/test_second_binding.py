# SPDX-License-Identifier: LicenseRef-Proprietary
"""The running shell with another binding loaded into it: objects that no script can make without
one reach the driver, and leaving does not depend on which library is unloaded first.

Environment: that of the end-to-end tests (../e2e/shell.py), and
    SECOND_BINDING        the other binding, a Lua module (second_binding.c)
"""

import os

import pytest
import shell
from catalogue import HOOKS
from catalogue import INT_POINTER as INT

SECOND_BINDING = os.environ["SECOND_BINDING"]

EVERY_SHARED_TYPE = (
    "_p_FILE _p_RadioHooks _p_f_p_void__void _p_f_size_t__p_void _p_int _p_p_char"
)


def load(options=""):
    """The Lua text that loads the other binding."""
    return (
        f"assert(package.loadlib('{SECOND_BINDING}', 'luaopen_second_binding'))('{options}') "
    )


def lua(text, options="", before="", **more):
    """Loads the other binding and runs Lua text that must succeed in silence but for its output."""
    return shell.lua(before + load(options) + text, **more)


def raised(text, **more):
    """The error that Lua text raises once the other binding is loaded."""
    return shell.raised(load() + text, **more)


# ---- Out-parameters and the debug file -----------------------------------------------------------


@pytest.mark.parametrize("options", ["", "_p_int", "_p_int:class", EVERY_SHARED_TYPE])
def test_an_integer_of_the_calibration_is_written_through_an_int32_object(options):
    ran = lua(
        "i = second.int(5) radioGetIntegerFromCalibration('key', i) print(second.value(i))",
        options=options,
        answers="radioGetIntegerFromCalibration 0 -42",
    )
    assert ran.out == "-42\n"
    assert ran.calls == ['radioGetIntegerFromCalibration(context1, "key", pointer)']


def test_an_integer_is_written_where_a_converter_points():
    ran = lua(
        "p = second.pair(1, 2) i = second.as(p, '_p_int') "
        "radioGetIntegerFromCalibration('key', p) print(second.value(i), second.value(p))",
        options="_p_int:casts",
        answers="radioGetIntegerFromCalibration 0 99",
    )
    assert ran.out == "1\t99\n"


def test_a_failing_calibration_getter_leaves_the_object_alone():
    failing = "radioGetIntegerFromCalibration 3"
    ran = raised("radioGetIntegerFromCalibration('key', second.int(5))", answers=failing)
    assert ran.out == "radioGetIntegerFromCalibration() did not return success"
    ran = lua(
        "i = second.int(5) pcall(radioGetIntegerFromCalibration, 'key', i) print(second.value(i))",
        answers=failing,
    )
    assert ran.out == "5\n"


def test_a_text_of_the_calibration_is_written_through_a_text_list_object():
    ran = lua(
        "t = second.text() radioGetStringFromCalibration('key', t) print(second.textOf(t))",
        answers='radioGetStringFromCalibration 0 "from the file"',
    )
    assert ran.out == "from the file\n"
    assert ran.calls == ['radioGetStringFromCalibration(context1, "key", pointer)']


def test_the_driver_names_can_be_read_by_the_other_binding():
    assert lua("print(second.textOf(radioGetDriverNames()))").out == "first\n"


@pytest.mark.parametrize("options", ["", "_p_FILE"])
@pytest.mark.parametrize("file", ["stdout", "stderr"])
def test_a_file_object_becomes_the_debug_file(options, file):
    ran = lua(f"print(radioSetDebugFile(second.file('{file}')))", options=options)
    assert ran.out == "\n"
    assert ran.calls == [f"radioSetDebugFile(context1, {file})"]


# ---- Wrong types ---------------------------------------------------------------------------------


@pytest.mark.parametrize(
    "call, message",
    [
        (
            "radioGetIntegerFromCalibration('k', second.text())",
            f"Error in radioGetIntegerFromCalibration (arg 3), expected '{INT}' got 'no value'",
        ),
        (
            "radioGetIntegerFromCalibration('k', second.file('stdout'))",
            f"Error in radioGetIntegerFromCalibration (arg 3), expected '{INT}' got 'no value'",
        ),
        (
            "radioGetIntegerFromCalibration('k', second.packet('twenty-four bytes of it.'))",
            f"Error in radioGetIntegerFromCalibration (arg 3), expected '{INT}' got 'no value'",
        ),
        (
            "radioGetStringFromCalibration('k', second.int(5))",
            "Error in radioGetStringFromCalibration (arg 3), expected 'char **' got 'no value'",
        ),
        (
            "radioSetDebugFile(second.int(5))",
            "Error in radioSetDebugFile (arg 2), expected 'FILE *' got 'no value'",
        ),
        (
            "radioSetDebugFile(second.Gadget())",
            "Error in radioSetDebugFile (arg 2), expected 'FILE *' got 'no value'",
        ),
        (
            "radioSetTxFrequency(second.int(5))",
            f"Error in radioSetTxFrequency (arg 1), expected 'uint32_t' got '{INT}'",
        ),
        (
            "radioLoadCalibrationFile(second.Gadget())",
            "Error in radioLoadCalibrationFile (arg 1), expected 'char const *' "
            "got 'struct Gadget *|Gadget *'",
        ),
    ],
)
def test_an_object_of_another_type_is_refused_before_the_driver(call, message):
    ran = raised(call)
    assert ran.out == message
    assert ran.calls == []


def test_a_converter_that_allocates_ends_the_process():
    ran = shell.run(
        "-c", load("_p_int:casts") + "radioGetIntegerFromCalibration('key', second.copy(5))"
    )
    shell.assert_aborted(
        ran, "sorelapp: radio_wrap:1319: SWIG_Lua_ConvertPtr: Assertion `!newmemory' failed."
    )
    assert ran.log == ["radioOpen() = context1"]


# ---- RadioHooks ----------------------------------------------------------------------------------


@pytest.mark.parametrize("options", ["", "_p_f_size_t__p_void _p_f_p_void__void"])
def test_function_pointers_can_be_assigned_and_copied(options):
    ran = lua(
        "h1, h2 = RadioHooks(), RadioHooks() "
        "h1.malloc = second.mallocFunction() h1.free = second.freeFunction() "
        "h2.malloc = h1.malloc "
        "print(swig_type(h2.malloc), swig_type(h1.free), h2.free) "
        "print(swig_equals(h2.malloc, second.mallocFunction()), "
        "swig_equals(h1.free, second.freeFunction())) "
        "h1.malloc = nil print(h1.malloc, swig_type(h2.malloc))",
        options=options,
    )
    assert ran.out == (
        "void *(*)(size_t)\tvoid (*)(void *)\tnil\n"
        "true\ttrue\n"
        "nil\tvoid *(*)(size_t)\n"
    )


@pytest.mark.parametrize(
    "assignment, message",
    [
        (
            "h.malloc = h.free",
            "Error in RadioHooks_malloc_set (arg 2), expected 'void *(*)(size_t)' "
            "got 'void (*)(void *)'",
        ),
        (
            "h.free = second.mallocFunction()",
            "Error in RadioHooks_free_set (arg 2), expected 'void (*)(void *)' "
            "got 'void *(*)(size_t)'",
        ),
        (
            "h.malloc = second.int(5)",
            f"Error in RadioHooks_malloc_set (arg 2), expected 'void *(*)(size_t)' got '{INT}'",
        ),
        (
            "getmetatable(h)['.get'].malloc(second.Gadget())",
            f"Error in RadioHooks_malloc_get (arg 1), expected '{HOOKS}' "
            "got 'struct Gadget *|Gadget *'",
        ),
    ],
)
def test_an_object_of_another_type_is_not_assigned(assignment, message):
    ran = raised(f"local h = RadioHooks() h.free = second.freeFunction() {assignment}")
    assert ran.out == message


def test_another_class_of_the_name_replaces_ours_for_new_objects():
    ran = lua(
        "new = RadioHooks() print(old.origin, new.origin, swig_type(new)) "
        "old, new = nil collectgarbage() collectgarbage() print(second.destroyed())",
        before="old = RadioHooks() ",
        options="_p_RadioHooks:class",
    )
    assert ran.out == f"nil\tsecond binding\t{HOOKS}\n0\t2\n"


# ---- Types of both -------------------------------------------------------------------------------


def test_pointers_compare_equal_across_types():
    ran = lua(
        "i = second.int(5) "
        "print(swig_equals(i, second.as(i, '_p_Gadget')), swig_equals(i, second.int(5)), "
        "swig_equals(i, 5), swig_equals(radioGetDriverNames(), radioGetDriverNames()), "
        "swig_equals(radioGetDriverNames(), second.as(radioGetDriverNames(), '_p_int')))"
    )
    assert ran.out == "true\tfalse\tnil\ttrue\ttrue\n"


def test_types_of_the_other_binding_are_named():
    ran = lua("print(swig_type(second.Gadget()), swig_type(second.packet('x')))")
    assert ran.out == "struct Gadget *|Gadget *\tPacket\n"


def test_the_other_binding_reads_our_objects():
    ran = lua(
        "print(second.accepts('_p_RadioHooks', RadioHooks()), "
        "second.accepts('_p_p_char', radioGetDriverNames()), "
        "second.accepts('_p_int', RadioHooks()))"
    )
    assert ran.out == "true\ttrue\tfalse\n"


@pytest.mark.parametrize(
    "options",
    ["", EVERY_SHARED_TYPE, "_p_RadioHooks:class", "_p_int:class", "_p_int:casts"],
)
def test_loading_adds_nothing_to_the_radio_module(options):
    ran = lua(
        "n = 0 for _ in pairs(radio) do n = n + 1 end print(n, type(radioSpiRead), RADIO_BAND_7)",
        options=options,
    )
    assert ran.out == "163\tfunction\t7\n"


def test_loading_twice_is_as_loading_once():
    ran = lua(
        load("_p_int") + "i = second.int(5) radioGetIntegerFromCalibration('key', i) "
        "print(second.value(i))",
        options="_p_int",
        answers="radioGetIntegerFromCalibration 0 6",
    )
    assert ran.out == "6\n"


# ---- The end -------------------------------------------------------------------------------------
# Closing the Lua state collects the youngest objects first, and so would unload a library ahead of
# objects that are older than it but whose type, class or metatable is now the library's.


@pytest.mark.parametrize(
    "options",
    [
        "",
        EVERY_SHARED_TYPE,
        "_p_RadioHooks:class",
        "_p_RadioHooks:casts",
        "_p_int:class _p_int:casts",
    ],
)
@pytest.mark.parametrize(
    "before, after",
    [
        ("old = RadioHooks() ", ""),
        ("old = RadioHooks() ", "new = RadioHooks() g = second.Gadget()"),
        ("", "new = RadioHooks() g = second.Gadget() p = second.packet('bytes')"),
        ("old = {} for i = 1, 100 do old[i] = RadioHooks() end ", "radioGetDriverNames()"),
        ("old = RadioHooks() ", "g = second.Gadget() second = nil package = nil collectgarbage()"),
    ],
)
def test_leaving_does_not_crash_whatever_was_loaded_in_between(options, before, after):
    assert lua(after, options=options, before=before).out == ""


def test_leaving_does_not_crash_when_the_library_was_loaded_twice():
    lua(load(), before="old = RadioHooks() ", options="_p_RadioHooks:class")


def test_an_error_that_ends_the_process_comes_with_its_own_status():
    text = "old = RadioHooks() " + load("_p_RadioHooks:class") + "error('it failed', 0)"
    ran = shell.run("-c", text)
    assert ran.status == 1
    assert ran.err == "PANIC: unprotected error in call to Lua API (it failed)\n"
