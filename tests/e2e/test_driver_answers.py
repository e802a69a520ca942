# SPDX-License-Identifier: LicenseRef-Proprietary
"""Whatever a driver answers, the shell makes of it what is promised. The table of every function
and every answer is made here from a short list; `-s` shows it."""

import re
import struct

import pytest
from catalogue import FUNCTIONS, NO_CONTEXT, call
from shell import ODD_DRIVERS, SOURCE, VERSION, functions, lua, run

INT32_MIN, INT32_MAX, UINT32_MAX = -2**31, 2**31 - 1, 2**32 - 1

STATUSES = [0, 1, 2, 3, 4, 5, -1, 6, 255, 256, 65536, -256, 1 << 30, INT32_MIN, INT32_MAX]
INTEGERS = [0, 1, -1, 32767, -32768, 65536, INT32_MAX, INT32_MIN]
WORDS = [0, 1, 65535, 2**31 - 1, 2**31, UINT32_MAX]
FLOATS = ["0", "-0", "1", "36.1", "-101.7", "1e-45", "3.4028235e38", "-3.4028235e38",
          "nan", "-nan", "inf", "-inf"]
BYTES = "".join(chr(byte) for byte in range(1, 256) if chr(byte) not in "\n\r")
TEXTS = ["null", '""', '"a"', '"%s%d%n%%"', f'"{BYTES}"', '1048576*"x"', '300000*"\xe9\xff\x80"']
POINTERS = ["ok", "null", "wild"]


def single(text):
    """The number that a driver's float is to a script."""
    if text in ("nan", "-nan"):
        return "number: nan"
    (number,) = struct.unpack("f", struct.pack("f", float(text)))
    return f"number: {number:.17g}"


def read(text):
    """The text that an answer stands for."""
    times, _, quoted = text.rpartition("*\"") if text[0] in "0123456789" else ("1", "", text[1:])
    return int(times) * quoted[:-1]


def of_status(name, answer):
    return "nothing" if answer == 0 else f"raised: {name}() did not return success"


def of_text(_, answer):
    return "nil" if answer == "null" else f"string of {len(read(answer))}: {read(answer)}"


# For each kind of function: what it may answer, and what a script gets of that.
KINDS = {
    "a status": (STATUSES, of_status),
    "a status that does not matter": (STATUSES, lambda name, answer: "nothing"),
    "an integer": (INTEGERS, lambda name, answer: f"number: {answer}"),
    "a word": (WORDS, lambda name, answer: f"number: {answer}"),
    "a float": (FLOATS, lambda name, answer: single(answer)),
    "a text": (TEXTS, of_text),
    "a pointer": (POINTERS, lambda name, answer: "nil" if answer == "null" else "object: char **"),
    "a context": (POINTERS, lambda name, answer: "nothing"),
}

ROWS = {
    "a status": """
        radioSelectPlatform radioSelect radioInit radioInitByScript radioCpriInit radioReset
        radioLoadCalibrationFile radioGetIntegerFromCalibration radioGetStringFromCalibration
        radioSetTxFrequency radioSetTxChannel radioSetTxState radioSetTxStateOfAntenna
        radioSetTxMaxPower radioSetTxMaxPowerOfAntenna radioSetTxDcOffset radioSetTxPowerRegisters
        radioSetRxFrequency radioSetRxChannel radioSetRxState radioSetRxStateOfAntenna
        radioSetRxGain radioSetRxGainMode radioSetRxGainRegisters radioSetLoopback radioSpiWrite
        radioSetOscillatorDacValue""",
    "a status that does not matter": "radioSetDebugLevel radioSetDebugFile radioClose",
    "an integer": """
        radioGetPlatformChipCount radioGetRxRtwp radioGetRxRtwpOfAntenna radioGetRxGainIndB
        radioGetRxGainOfAntennaIndB radioGetOscillatorDacWidth radioGetDebugLevel""",
    "a word": "radioSpiRead radioGetOscillatorDacValue",
    "a float": "radioGetTemperature radioGetRxRtwpIndBm radioGetRxRtwpOfAntennaIndBm",
    "a text": "radioGetPlatformName radioVersion",
    "a pointer": "radioGetDriverNames",
    "a context": "radioOpen",
}

TABLE = {
    name: [(answer, KINDS[kind][1](name, answer)) for answer in KINDS[kind][0]]
    for kind, names in ROWS.items()
    for name in names.split()
}

CALLS = {function.name: f"return {call(function)}" for function in FUNCTIONS} | {
    "radioOpen": "return radioOpen()",
    "radioClose": "radioOpen() return radioClose()",
}

DRIVER_FUNCTIONS = re.findall(r"^SOREL_API .*\b(radio\w+)\(",
                              (SOURCE / "include" / "sorel.h").read_text(), re.MULTILINE)

TELL = """
local function tell(name, fine, ...)
    local value = ...
    io.write(name, "\\0")
    if not fine then
        io.write("raised: ", tostring(value))
    elseif select("#", ...) == 0 then
        io.write("nothing")
    elseif type(value) == "number" then
        io.write("number: ", value ~= value and "nan" or ("%.17g"):format(value))
    elseif type(value) == "string" then
        io.write("string of ", #value, ": ", value)
    elseif type(value) == "userdata" then
        io.write("object: ", swig_type(value))
    else
        io.write(tostring(value))
    end
    io.write("\\0")
end
"""


@pytest.fixture(name="told", scope="module")
def _told(tmp_path_factory):
    """What a script gets of every answer: the cells of each function, in the order of the table."""
    return tell_all(tmp_path_factory.mktemp("answers"))


# The first call that a row of the table is about. These two come last: radioOpen() was called at
# start-up, and closes what it finds open three times before radioClose()'s own row.
FIRST = {"radioOpen": 2, "radioClose": 4}


def tell_all(folder, **more):
    answers = [
        f"{name}#{FIRST.get(name, 1) + i} {answer}"
        for name, cells in TABLE.items()
        for i, (answer, _) in enumerate(cells)
    ]
    rows = sorted(TABLE, key=lambda name: FIRST.get(name, 1))
    script = folder / "script.lua"
    script.write_text(TELL + "".join(
        f"for _ = 1, {len(TABLE[name])} do "
        f"tell('{name}', pcall(function() {CALLS[name]} end)) end\n"
        for name in rows))
    ran = run("-b", str(script), answers="\n".join(answers), **more)
    assert ran.status == 0, ran.err
    assert ran.err == "radioOpen() failed\n"  # the one of its row that is answered with null
    closings = functions(ran.log).count("radioClose")
    assert closings == FIRST["radioClose"] - 1 + len(STATUSES)
    cells = {}
    pieces = ran.out.split("\0")[:-1]
    for name, outcome in zip(pieces[::2], pieces[1::2]):
        cells.setdefault(name, []).append(outcome)
    return cells


def test_every_function_of_the_driver_has_a_row_and_a_script_reaches_all_of_them(capsys):
    assert len(TABLE) == len(DRIVER_FUNCTIONS) == 46
    assert set(TABLE) == set(DRIVER_FUNCTIONS)
    reached = lua("for _, module in pairs{radio, radioNative} do "
                  "for name, value in pairs(module) do "
                  "if type(value) == 'function' and name ~= 'RadioHooks' then print(name) end "
                  "end end").out.split()
    assert sorted(reached) == sorted(TABLE)
    with capsys.disabled():
        show()


def show():
    for name, cells in TABLE.items():
        print(f"\n{name}")
        for answer, outcome in cells:
            print(f"    {shortened(answer):24} {shortened(outcome)}")


def shortened(text):
    text = str(text).encode("ascii", "backslashreplace").decode()
    text = "".join(c if c.isprintable() else f"\\x{ord(c):02x}" for c in text)
    return text if len(text) <= 70 else f"{text[:20]}...{text[-20:]}"


@pytest.mark.parametrize("name", TABLE)
def test_answers_come_to_what_the_table_says(name, told):
    expected = [outcome for _, outcome in TABLE[name]]
    wrong = [(shortened(answer), shortened(got), shortened(outcome))
             for (answer, outcome), got in zip(TABLE[name], told[name], strict=True)
             if got != outcome]
    assert (wrong, len(told[name])) == ([], len(expected))


def test_a_rude_driver_changes_nothing(told, tmp_path):
    assert tell_all(tmp_path, driver=ODD_DRIVERS / "rude_driver") == told


@pytest.mark.parametrize("failing", [1, 2, 3, 4])
def test_an_opening_that_fails_leaves_no_radio_until_the_next(failing):
    ran = run("-c", "for i = 1, 4 do print(pcall(radioGetRxRtwp)) "
                    "if i < 4 then radioOpen() end end",
              answers=f"radioOpen#{failing} null\nradioGetRxRtwp -7")
    assert ran.out.splitlines() == [
        f"false\t{NO_CONTEXT}" if i == failing else "true\t-7" for i in range(1, 5)
    ]
    assert (ran.err, ran.status) == ("radioOpen() failed\n", 0)
    log, number = [], 0
    for i in range(1, 5):
        if i == failing:
            log.append("radioOpen() = null")
        else:
            number += 1
            log += [f"radioOpen() = context{number}", f"radioGetRxRtwp(context{number})",
                    f"radioClose(context{number})"]
    assert ran.log == log


def test_a_radio_that_never_opens():
    ran = run("-c", "for _ = 1, 3 do print(pcall(radioOpen)) print(pcall(radioClose)) end",
              answers="radioOpen null")
    assert ran.out == 3 * f"true\nfalse\t{NO_CONTEXT}\n"
    assert (ran.err, ran.status) == (4 * "radioOpen() failed\n", 0)
    assert ran.log == 4 * ["radioOpen() = null"]


@pytest.mark.parametrize("status", STATUSES)
def test_a_radio_is_closed_whatever_closing_it_comes_to(status):
    ran = lua("print(pcall(radioClose)) print(pcall(radioClose)) print(pcall(radioReset)) "
              "radioOpen() radioOpen()", answers=f"radioClose {status}")
    assert ran.out == f"true\nfalse\t{NO_CONTEXT}\nfalse\t{NO_CONTEXT}\n"
    assert ran.log == ["radioOpen() = context1", "radioClose(context1)", "radioOpen() = context2",
                       "radioClose(context2)", "radioOpen() = context3", "radioClose(context3)"]


def test_a_context_is_only_handed_on():
    ran = lua("radioReset()", answers="radioOpen wild")
    assert ran.log == ["radioOpen() = unknown", "radioReset(unknown)", "radioClose(unknown)"]


def test_driver_names_are_only_handed_on():
    ran = lua("local names = radioGetDriverNames() "
              "print(swig_type(names), swig_equals(names, radioGetDriverNames())) "
              "print(pcall(radioGetStringFromCalibration, 'a', names)) "
              "names = nil collectgarbage()",
              answers="radioGetDriverNames wild\nradioGetStringFromCalibration 3")
    assert ran.out == "char **\ttrue\n" \
                      "false\tradioGetStringFromCalibration() did not return success\n"
    assert ran.calls[-1] == 'radioGetStringFromCalibration(context1, "a", pointer)'


@pytest.mark.parametrize("answer", TEXTS, ids=shortened)
def test_a_text_from_the_calibration_goes_where_the_pointer_shows_and_nowhere_else(answer):
    ran = lua("local names = radioGetDriverNames() "
              "print(select('#', radioGetStringFromCalibration('a', names)))",
              answers=f"radioGetStringFromCalibration 0 {answer}")
    assert ran.out == "0\n"
    assert ran.calls[-1] == 'radioGetStringFromCalibration(context1, "a", driverNames)'


@pytest.mark.parametrize("answer", TEXTS, ids=shortened)
@pytest.mark.parametrize("arguments", [["-v"], ["-c", "x", "-v"]])
def test_the_version_block_names_whatever_platform_the_driver_names(answer, arguments):
    ran = run(*arguments, answers=f"radioGetPlatformName {answer}")
    name = "(null)" if answer == "null" else read(answer)
    assert ran.out.startswith(f"libsorel v{VERSION} ({name}) Copyright (C) ")
    assert ran.out.count("\n") == 28
    assert (ran.err, ran.status, ran.log) == ("", 0, ["radioGetPlatformName(null)"])


@pytest.mark.parametrize("length", [0, 1, 198, 65536, 2**20])
def test_texts_of_any_length_reach_the_driver_whole(length):
    ran = lua(f"local text = ('\\233'):rep({length}) radioLoadCalibrationFile(text) "
              "radioInitByScript(1, 2, 3, text)")
    text = length * "\\xe9"
    assert ran.calls == [f'radioLoadCalibrationFile(context1, "{text}")',
                         f'radioInitByScript(context1, 1, 2, 3, "{text}")']
