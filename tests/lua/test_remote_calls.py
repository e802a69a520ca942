# SPDX-License-Identifier: LicenseRef-Proprietary
"""The functions of a board over sorel.remote: calls, results and errors as on the board."""

import re

import pytest
from catalogue import FUNCTIONS, STATUS, call, logged, names, status_message
from servers import FOUND, client, eventually, serving
from shell import RECORDING, SIMULATION, SOURCE, lua

WITHHELD = {
    "RadioHooks": "it returns a native pointer",
    "radioGetDriverNames": "it returns a native pointer",
    "radioGetIntegerFromCalibration": "it takes a native pointer",
    "radioGetStringFromCalibration": "it takes a native pointer",
    "radioSetDebugFile": "it takes a native pointer",
}
OFFERED = [function for function in FUNCTIONS if function.name not in WITHHELD]
REFUSING = [function for function in OFFERED if function.result == STATUS]

# Arguments of every kind that Lua has, and of every kind of text, number and table that the
# functions tell apart.
VALUES = """
    local values = {
        nil, true, false, 0, 1, 2, 7, -1, 2.5, -2.5, 3e9, 2^32, 2^53 + 1, 1e300, -1e300, 5e-324,
        1 / 0, -1 / 0, 0 / 0,
        "", "7", "0x10", " 7 ", "7x", "-1", "high", "1\\0", "a\\nb", '"', "\\\\",
        ("\\200\\1"):rep(300),
        {}, { 1 }, { 7, "8", 9.75 }, { 1, nil, 3 }, { 1, {} }, { "x" }, { false },
        { print, 2 }, { 1e15, -1, 4294967295, "0x10", " 3", 0.1 }, { 1 / 0 }, { 0 / 0 },
        { name = 1 },
        setmetatable({ 1, nil, 3 }, { __index = function(_, key) return key * 10 end }),
        setmetatable({}, { __index = error, __tostring = error }),
        setmetatable({ 1, nil, 3 }, { __index = function() error("mine", 0) end }),
        setmetatable({ 1, nil, nil, 4 }, { __index = function(_, key) print(key) return "x" end }),
        print, function() end, coroutine.create(function() end),
        io.stdout, newproxy(), socket.tcp(),
        RadioHooks(), radioGetDriverNames(),
    }
    local COUNT = 55
"""

# Prints how each function ends with each value in each place, and with each number of arguments.
TRY_ALL = VALUES + """
    local function shown(...)
        local texts = { select("#", ...) }
        for place = 1, select("#", ...) do
            local value = select(place, ...)
            local text = type(value) == "number" and ("%.17g"):format(value) or tostring(value)
            texts[#texts + 1] = type(value) .. " " .. text
        end
        print(table.concat(texts, ", "))
    end
    local function try(name, ...)
        io.write(name, " ", select("#", ...), " ")
        shown(pcall(board[name], ...))
    end
    local functions = { NAMES }
    for _, name in ipairs(functions) do
        for value = 1, COUNT do
            try(name, values[value])
            try(name, 1, values[value])
            try(name, values[value], 1)
            try(name, 1, 1, values[value])
            try(name, 1, 1, 1, values[value])
        end
        for count = 0, 200, 10 do try(name, unpack({}, 1, count)) end
        try(name, nil, nil, nil, nil, nil)
    end
"""


def try_all(function):
    """TRY_ALL for one function."""
    return TRY_ALL.replace("NAMES", f'"{function.name}"')


def board_of(tmp_path, text, **more):
    """What a script prints for which the table `board` is a server's; and the server's calls."""
    driver = more.get("driver", RECORDING)
    with serving(tmp_path, "silence = 1000", **more) as server:
        # The client's radio is another one, which no call may reach.
        ran = lua(client(server.port, text + " board.close()"), **FOUND, driver=driver)
        calls = server.calls
        assert [line for line in ran.calls if not line.startswith("radioGetDriverNames")] == []
    return ran.out, calls


def test_there_are_all_functions_and_constants_of_the_board_and_nothing_else(tmp_path):
    out, _ = board_of(tmp_path, """
        for name, value in pairs(board) do
            if type(value) ~= type(radio[name]) then print(name, value) end
            if type(value) == "number" and value ~= radio[name] then print(name, value) end
        end
        for name in pairs(radio) do if rawget(board, name) == nil then print(name) end end""")
    assert out == ""


@pytest.mark.parametrize("function", OFFERED, ids=names(OFFERED))
def test_a_call_reaches_the_driver_of_the_board(function, tmp_path):
    _, calls = board_of(tmp_path, "board." + call(function))
    off = ["radioSelect(context1, 2)", "radioSetTxState(context1, 0)"]
    assert calls[0] == logged(function)
    assert calls[1:] in ([], off)  # tests of the dead man's switch say when


@pytest.mark.parametrize("function", OFFERED, ids=names(OFFERED))
def test_every_call_ends_as_on_the_board_itself(function, tmp_path):
    here = lua("local board = radio " + try_all(function))
    out, calls = board_of(tmp_path, try_all(function))
    assert out.splitlines() == here.out.splitlines()
    assert len(here.out.splitlines()) > 290
    mine = [line for line in here.calls if not line.startswith("radioGetDriverNames")]
    assert calls[:len(mine)] == mine


@pytest.mark.parametrize("answer", ["nan", "inf", "-inf", "-92.34375", "0.1", "1e-40", "-0.0"])
def test_a_reading_is_the_same_number(answer, tmp_path):
    text = "local value = {0}radioGetTemperature() print(('%.17g'):format(value), 1 / value)"
    answers = f"radioGetTemperature {answer}"
    out, _ = board_of(tmp_path, text.format("board."), answers=answers)
    assert out == lua(text.format(""), answers=answers).out


@pytest.mark.parametrize("answer", ["null", '""', '"a b"', '"quote " and \\ backslash"',
                                    '"\xe9\x01"'])
def test_a_text_is_the_same_text_and_null_is_one_nil(answer, tmp_path):
    text = "print(select('#', {0}radioVersion()), {0}radioVersion())"
    answers = f"radioVersion {answer}"
    (tmp_path / "answers").write_text(answers, encoding="latin-1")
    with serving(tmp_path / "server", RECORDING_DRIVER_ANSWERS=str(tmp_path / "answers")) as server:
        out = lua(client(server.port, text.format("board.")), **FOUND).out
    assert out == lua(text.format(""), answers=answers).out


@pytest.mark.parametrize("function", REFUSING, ids=names(REFUSING))
def test_a_driver_that_refuses_is_the_same_error(function, tmp_path):
    arguments = "".join(", " + kind.good for kind in function.kinds)
    out, _ = board_of(tmp_path, f"print(pcall(board.{function.name}{arguments}))",
                      answers=f"{function.name} 3")
    assert out == f"false\t{status_message(function.name)}\n"


def test_a_closed_radio_is_the_same_error(tmp_path):
    text = "print(pcall({0}radioReset)) print(pcall({0}radioGetTemperature))"
    out, _ = board_of(tmp_path, text.format("board."), answers="radioOpen null")
    assert out == lua("radioClose() " + text.format("")).out


@pytest.mark.parametrize("name, reason", WITHHELD.items())
def test_what_deals_in_native_pointers_says_that_it_is_not_offered(name, reason, tmp_path):
    out, calls = board_of(tmp_path, f"print(pcall(board.{name}, 'a', nil))")
    assert re.sub("127.0.0.1:[0-9]+", "PEER", out) == (
        f"false\tremote: PEER: {name}() is not offered: {reason}\n")
    assert calls == []


def test_the_page_lists_what_is_not_offered():
    page = (SOURCE / "docs/remote.md").read_text()
    listed = re.search(r"^Not offered, (.*?)\. They", page, re.MULTILINE | re.DOTALL)[1]
    assert sorted(re.findall("`(.*?)`", listed)) == sorted(WITHHELD)


def test_a_misspelt_name_is_an_error_that_names_the_nearest(tmp_path):
    out, _ = board_of(tmp_path, "print(pcall(function() board.radioSetTxFreqency(1) end)) "
                      "print(pcall(function() return board.RADIO_BND_7 end)) "
                      "print(pcall(function() return board[7] end))")
    assert re.sub("remote: 127.0.0.1:[0-9]+", "PEER", out).splitlines() == [
        'false\t[string "cmdline"]:1: PEER: there is no radioSetTxFreqency; '
        "did you mean radioSetTxFrequency?",
        'false\t[string "cmdline"]:1: PEER: there is no RADIO_BND_7; did you mean RADIO_BAND_7?',
        'false\t[string "cmdline"]:1: PEER: there is no 7',
    ]


def test_a_function_that_a_script_has_replaced_on_the_board_is_what_is_called(tmp_path):
    replaced = ("radioVersion = function(...) return 'mine', ..., nil end "
                "radioReset = function() return {} end "
                "radioGetTemperature = function() error({}) end "
                "radioGetRxRtwp = function() return ('x'):rep(70000) end ")
    with serving(tmp_path, before=replaced) as server:
        ran = lua(client(server.port, "print(board.radioVersion(7, 8)) "
                         "for _, name in ipairs { 'radioReset', 'radioGetTemperature', "
                         "'radioGetRxRtwp' } do print(pcall(board[name])) end"), **FOUND)
    out = re.sub("127.0.0.1:[0-9]+", "PEER", ran.out).splitlines()
    assert out[0] == "mine\t7\tnil"
    assert out[1] == "false\tremote: PEER: radioReset() has returned a table, which cannot travel"
    assert re.fullmatch("false\ttable: .*", out[2])
    assert out[3] == (
        "false\tremote: PEER: radioGetRxRtwp() has answered with more than a line holds")


def test_arguments_that_no_line_holds_are_refused_before_they_are_sent(tmp_path):
    out, calls = board_of(tmp_path, """
        local registers = {}
        for place = 1, 40000 do registers[place] = place end
        print(pcall(board.radioSetTxPowerRegisters, registers))
        print(pcall(board.radioLoadCalibrationFile, ("x"):rep(70000)))
        print(pcall(board.radioReset, unpack({}, 1, 1001)))
        print(pcall(board.radioReset, unpack({}, 1, 1000)))
        print(board.radioGetRxRtwp())""")
    refused = ("false\tremote: PEER: the arguments of {}() are more than a line of 65536 bytes, "
               "or 1000 values")
    assert re.sub("127.0.0.1:[0-9]+", "PEER", out).splitlines() == [
        refused.format("radioSetTxPowerRegisters"),
        refused.format("radioLoadCalibrationFile"),
        refused.format("radioReset"),
        "false\tError in radioReset expected 0..0 args, got 1000",
        "0",
    ]
    assert calls == ["radioGetRxRtwp(context1)"]


def test_a_script_for_the_board_runs_on_another_machine_when_its_globals_are_the_boards(tmp_path):
    tour = f"dofile '{SOURCE}/tests/e2e/scenario_traces/tour.lua'"
    scenario = {"SOREL_SIM_SCENARIO": str(SOURCE / "driver/scenarios/busy_band.toml"),
                "driver": SIMULATION}
    with serving(tmp_path, "silence = 1000, deadman = false", **scenario,
                 SOREL_SIM_TRACE="there") as server:
        lua(client(server.port, "for name, value in pairs(board) do _G[name] = value end "
                   + tour + " board.close()"), **FOUND, driver=SIMULATION, cwd=tmp_path)
    lua(tour, **scenario, SOREL_SIM_TRACE="here", cwd=tmp_path)
    here, there = ((tmp_path / name).read_text().splitlines() for name in ("here", "there"))
    assert there == here[:-1]  # the server's shell was killed, and has not closed the radio
    assert len(there) > 800


def test_two_clients_take_turns_call_by_call(tmp_path):
    with serving(tmp_path) as server:
        one, other = server.admitted(), server.admitted()
        for number in range(1, 6):
            assert one.ask(f"call radioSetRxChannel {number}") == "ok"
            assert other.ask(f"call radioSetTxChannel {number}") == "ok"
        assert server.calls == [
            f"radioSet{way}Channel(context1, {number})" for number in range(1, 6)
            for way in ("Rx", "Tx")
        ]


def test_calls_that_were_sent_at_once_are_made_in_their_order(tmp_path):
    with serving(tmp_path) as server:
        raw = server.admitted()
        raw.send("".join(f"call radioSetRxChannel {number}\n" for number in range(1, 500)))
        assert [raw.line() for _ in range(1, 500)] == ["ok"] * 499
        eventually(lambda: server.calls,
                   [f"radioSetRxChannel(context1, {number})" for number in range(1, 500)])
