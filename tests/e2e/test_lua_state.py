# SPDX-License-Identifier: LicenseRef-Proprietary
"""The collector and the table of globals, which a script finds as in the interpreter by itself."""

import pytest
from shell import lua, pipe

GARBAGE_IS_COLLECTED = (
    "collected = false "
    "do local p = newproxy(true) getmetatable(p).__gc = function() collected = true end end "
    "for _ = 1, 100000 do if collected then break end local garbage = {} end "
    "io.write(tostring(collected))"
)

# Those of the reference manual of Lua 5.1, and what Lua 5.1 has beyond it.
OF_LUA = """
    _G _VERSION assert collectgarbage coroutine debug dofile error gcinfo getfenv
    getmetatable io ipairs load loadfile loadstring math module newproxy next os package
    pairs pcall print rawequal rawget rawset require select setfenv setmetatable string
    table tonumber tostring type unpack xpcall
""".split()
OF_THE_SHELL = """bit radio radioClose radioInternal radioNative radioOpen socket swig_equals
    swig_type""".split()


def test_garbage_is_collected_by_itself():
    assert lua(GARBAGE_IS_COLLECTED).out == "true"


def test_garbage_is_collected_by_itself_after_a_batch_file_and_at_the_prompt(tmp_path):
    script = tmp_path / "script"
    script.write_text(GARBAGE_IS_COLLECTED)
    ran = pipe("for _ = 1, 100000 do local garbage = {} end",
               "print(collectgarbage('count') < 2000)", arguments=["-b", str(script), "-i"])
    assert ran.out.startswith("true") and "true\n" in ran.out


def test_the_collector_has_the_pace_that_it_starts_with():
    ran = lua("print(collectgarbage('setpause', 100), collectgarbage('setstepmul', 100))")
    assert ran.out == "200\t200\n"


def test_a_script_stops_and_restarts_the_collector():
    ran = lua("collectgarbage('stop') " + GARBAGE_IS_COLLECTED + " io.write(' ') "
              "collectgarbage('restart') " + GARBAGE_IS_COLLECTED)
    assert ran.out == "false true"


@pytest.mark.parametrize("environment", [
    "getfenv(0)",
    "getfenv(1)",
    "_G._G",
    "package.loaded._G",
    "getfenv(print)",
    "getfenv(string.rep)",
    "getfenv(radioVersion)",
    "getfenv(radioNative.radioOpen)",
    "getfenv(bit.band)",
    "getfenv(socket.tcp)",
    "getfenv(loadstring(''))",
    "coroutine.wrap(function() return getfenv(0) end)()",
])
def test_there_is_one_table_of_globals(environment):
    assert lua(f"print({environment} == _G, getmetatable(_G))").out == "true\tnil\n"


def test_the_globals_are_those_of_lua_and_of_the_shell():
    ran = lua("for name in pairs(_G) do if radio[name] == nil then print(name) end end")
    assert sorted(ran.out.split()) == sorted(OF_LUA + OF_THE_SHELL)


def test_globals_come_and_go():
    ran = lua("local function count() local n = 0 for _ in pairs(_G) do n = n + 1 end return n end "
              "local before = count() "
              "for i = 1, 1000 do _G['name' .. i] = i end print(count() - before) "
              "for i = 1, 1000 do assert(_G['name' .. i] == i) _G['name' .. i] = nil end "
              "print(count() - before)")
    assert ran.out == "1000\n0\n"
