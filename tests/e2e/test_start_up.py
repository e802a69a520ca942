# SPDX-License-Identifier: LicenseRef-Proprietary
"""What start-up opens, in which order, and what a script finds then."""

from catalogue import FUNCTIONS, NO_CONTEXT, WITHOUT_CONTEXT, call
from shell import PROMPT, lua, pipe, run


def test_the_radio_is_open_before_the_first_command_and_closed_after_the_last():
    assert lua("radioReset()").log == [
        "radioOpen() = context1",
        "radioReset(context1)",
        "radioClose(context1)",
    ]


def test_a_batch_file_and_then_the_prompt_share_one_radio_and_one_state(tmp_path):
    script = tmp_path / "script"
    script.write_text("x = 5 radioReset()\n")
    ran = pipe("print(x)", "radioSetRxGain(x)", arguments=["-b", str(script), "-i"])
    assert ran.out == PROMPT + "5\n" + PROMPT + PROMPT
    assert ran.calls == ["radioReset(context1)", "radioSetRxGain(context1, 5)"]


def test_a_driver_that_does_not_open_is_reported_and_the_prompt_is_shown():
    ran = pipe("print(1)", answers="radioOpen null")
    assert ran.err == "radioOpen() failed\n"
    assert ran.out == PROMPT + "1\n" + PROMPT
    assert ran.log == ["radioOpen() = null"]


def test_without_a_radio_every_function_but_one_reports_so():
    calls = " ".join(
        f"print('{function.name}', pcall(function() {call(function)} end))"
        for function in FUNCTIONS
    )
    ran = run("-c", calls, answers="radioOpen null")
    assert ran.err == "radioOpen() failed\n"
    assert ran.out.splitlines() == [
        f"{function.name}\ttrue"
        if function.name == WITHOUT_CONTEXT
        else f"{function.name}\tfalse\t{NO_CONTEXT}"
        for function in FUNCTIONS
    ]
    assert ran.log == ["radioOpen() = null", "radioSelectPlatform(1)"]


def test_without_a_radio_closing_it_raises():
    ran = run("-c", "print(pcall(radioClose))", answers="radioOpen null")
    assert ran.out == f"false\t{NO_CONTEXT}\n"
    assert ran.log == ["radioOpen() = null"]


def test_every_field_of_radio_is_a_global():
    ran = lua(
        "local fields = 0 "
        "for name, value in pairs(radio) do "
        "    assert(rawequal(rawget(_G, name), value), name) fields = fields + 1 "
        "end "
        "print(fields)"
    )
    assert ran.out == "163\n"


def test_the_standard_libraries_are_open():
    ran = lua("print(string.upper('a'), math.abs(-1), table.concat({1, 2}), os.time() > 0, "
              "io.type(io.stdout), type(debug.traceback), type(package.loaded), "
              "coroutine.status(coroutine.create(function() end)))")
    assert ran.out == "A\t1\t12\ttrue\tfile\tfunction\ttable\tsuspended\n"


def test_the_interpreter_is_lua_5_1():
    assert lua("print(_VERSION)").out == "Lua 5.1\n"


def test_the_functions_of_bit_and_socket_are_no_globals():
    assert lua("print(band, tohex, tcp, gettime)").out == "nil\tnil\tnil\tnil\n"
    assert lua("print(type(bit.band), type(socket.tcp))").out == "function\tfunction\n"


def test_help_is_no_function_of_the_shell():
    assert lua("print(help)").out == "nil\n"


def test_modules_are_looked_for_where_lua_path_says_and_then_where_lua_does(tmp_path):
    (tmp_path / "mine.lua").write_text("return 'found'")
    text = "io.write(package.path) io.stderr:write((select(2, pcall(require, 'mine'))))"
    own = run("-c", text)
    ran = run("-c", text, LUA_PATH=f"{tmp_path}/?.lua;;")
    assert "module 'mine' not found" in own.err and ran.err == "found"
    assert ran.out.startswith(f"{tmp_path}/?.lua;") and own.out in ran.out


def test_modules_in_c_are_looked_for_where_lua_cpath_says_and_then_where_lua_does():
    own = lua("io.write(package.cpath)").out
    ran = lua("io.write(package.cpath)", LUA_CPATH="mine/?.so;;").out
    assert ran.startswith("mine/?.so;") and own in ran


def test_lua_init_is_not_read():
    assert lua("", LUA_INIT="print('read')").out == ""
