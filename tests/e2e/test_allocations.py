# SPDX-License-Identifier: LicenseRef-Proprietary
"""The shell ends as promised whichever of its allocations fails, once or from then on: each of them
does, one after the other, and the tests name every end there may be, in order.

What a run leaves behind is compared with what it leaves when all memory is there: that is only the
C library's buffers of the standard streams."""

from dataclasses import dataclass, field

import pytest
from allocations import (BEGIN, END, End, assert_ends, assert_no_leak, ends,
                         runs_with_each_failing)
from shell import PROMPT, RECORDING, SIMULATION, SOURCE

MISSING = "not enough memory"
NO_LINE = "error: no memory to allocate cmd input buffer...\n\n"
NO_STATE = "failed to initialise lua\n"
NO_RADIO = "radioOpen() failed\n"
NO_OPTIONS = "failed to parse the command line: Cannot allocate memory\n"


def panic(message=MISSING):
    return f"PANIC: unprotected error in call to Lua API ({message})\n"


def failed(message=MISSING):
    return f'failed to process stdin: "{message}"\n'


def is_left_by_the_driver(runs):
    """The sizes of the blocks of an open radio, which stays open where there is no Lua state."""
    left = {tuple(sorted(run.left.elements())) for run in runs if run.end.err == NO_STATE}
    assert len(left) == 1, left
    return left.pop()


COPIED = "print(type(radioReset), type(radioOpen), type(RADIO_BAND_7))"
ALL_COPIED = PROMPT + "function\tfunction\tnumber\n" + PROMPT


def test_a_start_at_the_prompt_that_lacks_one_allocation():
    runs = runs_with_each_failing(lines=[COPIED, "exit"])
    assert_ends(runs, [
        End("", NO_STATE, 1),
        End("", panic(), 1),
        End(PROMPT + "nil\tfunction\tnil\n" + PROMPT, "", 0),  # radio is not copied
        End(PROMPT + "function\tnil\tnumber\n" + PROMPT, "", 0),  # nor radioNative
        End("", panic(), 1),
        End(NO_LINE, "", 0),
        End(ALL_COPIED, "", 0),  # the buffers of the streams are done without
        End(PROMPT + PROMPT, failed(), 0),
        End(PROMPT + "function\tfunction\tnumber\n" + NO_LINE, "", 0),
        End(ALL_COPIED, "", 0),
    ])
    assert_no_leak(runs)


def test_a_start_at_the_prompt_that_runs_out_of_memory():
    runs = runs_with_each_failing(lines=[COPIED, "exit"], fail="from")
    assert_ends(runs, [
        End("", NO_STATE, 1),
        End("", panic(), 1),
        End(NO_LINE, "", 0),
        End(PROMPT + NO_LINE, failed(), 0),
        End(PROMPT + "function\tfunction\tnumber\n" + NO_LINE, "", 0),
        End(ALL_COPIED, "", 0),
    ])
    assert_no_leak(runs)


READING = "print(radioGetDebugLevel())"


@pytest.fixture(name="script")
def _script(tmp_path, monkeypatch):
    """A batch file; its name is the same in all messages."""
    monkeypatch.chdir(tmp_path)
    (tmp_path / "script.lua").write_text(READING + "\n")
    return "script.lua"


NO_FILE = "cannot open script.lua: Cannot allocate memory"
NOT_COPIED = "script.lua:1: attempt to call global 'radioGetDebugLevel' (a nil value)"
NO_CONTEXT = "No radio context, call radioOpen() first"


def test_a_batch_file_on_the_simulated_board_that_lacks_one_allocation(script):
    runs = runs_with_each_failing("-b", script, driver=SIMULATION)
    assert_ends(runs, [
        End("", NO_RADIO + panic(NO_CONTEXT), 1),
        End("", NO_STATE, 1),
        End("", panic(), 1),
        End("", panic(NOT_COPIED), 1),
        End("0\n", "", 0),  # without radioOpen() and radioClose()
        End("", panic(), 1),
        End("", panic(NO_FILE), 1),
        End("0\n", "", 0),
        End("", panic(), 1),
        End("0\n", "", 0),
    ])
    assert_no_leak(runs, *is_left_by_the_driver(runs))


def test_a_batch_file_on_the_simulated_board_that_runs_out_of_memory(script):
    runs = runs_with_each_failing("-b", script, driver=SIMULATION, fail="from")
    assert_ends(runs, [
        End("", NO_RADIO + NO_STATE, 1),
        End("", NO_STATE, 1),
        End("", panic(), 1),
        End("0\n", "", 0),
    ])


@pytest.mark.parametrize("fail", ["once", "from"])
def test_a_command(fail):
    runs = runs_with_each_failing("-c", f"{BEGIN} x = 'a' .. 1 print(x)", fail=fail,
                                  counted="marked")
    assert_ends(runs, [End("", panic(), 1), End("a1\n", "", 0)])
    assert_no_leak(runs)


@pytest.mark.parametrize("driver", [RECORDING, SIMULATION], ids=["recording", "simulated"])
@pytest.mark.parametrize("fail", ["once", "from"])
def test_the_version_block_takes_no_memory_but_for_reading_the_option(fail, driver):
    runs = runs_with_each_failing("-v", fail=fail, driver=driver)
    whole = runs[-1].end
    assert whole.out.count("\n") == 28 and (whole.err, whole.status) == ("", 0)
    assert_ends(runs, [End("", NO_OPTIONS, 1), whole])
    assert_no_leak(runs)


@pytest.mark.parametrize("fail", ["once", "from"])
def test_a_rejected_command_line_opens_nothing(fail):
    runs = runs_with_each_failing("-c", "x", "-i", fail=fail)
    usage = runs[-1].end
    assert (usage.out, usage.status) == ("", 64) and usage.err.startswith("Usage: sorelapp")
    assert runs[0].end == End("", NO_OPTIONS, 1)
    # Without memory for it argp leaves the usage text out, or ends by an assertion of its own.
    assert {(end.out, end.status) for end in ends(runs)[1:]} <= {("", 64), ("", -6)}


@dataclass
class Line:
    """A line at the prompt, and what comes of it."""

    text: str
    out: str = ""
    err: str = ""
    once: list = field(default_factory=lambda: [("", failed())])  # where it lacks an allocation
    without: list = None  # where it runs out of memory, if something else
    driver: object = RECORDING


LINES = {
    "good": Line("print('a' .. 1)", out="a1\n"),
    "not compiling": Line("x = = 1",
                          err=failed("[string \"stdin\"]:1: unexpected symbol near '='")),
    "raising": Line("error('a' .. 1)", err=failed('[string "stdin"]:1: a1')),
    "raising a table": Line("error({})", err=failed("(null)")),
    "raising a number": Line("error(12, 0)", err=failed("12")),
    "help": Line("help", err=failed("[string \"stdin\"]:1: attempt to call global 'help' "
                                    "(a nil value)")),
    "empty": Line("", once=[]),
    "closing": Line("radioClose()"),
    "opening": Line("radioOpen()", driver=SIMULATION, once=[("", failed()), ("", NO_RADIO)]),
    "registers": Line("radioSetRxGainRegisters({1})",
                      once=[("", failed()), ("", failed("Out of memory"))],
                      without=[("", failed())]),
    "hooks": Line("print(RadioHooks() == nil)", out="false\n",
                  once=[("", failed()), ("true\n", "")]),
    "refused": Line("radioSetTxFrequency(1)", driver=SIMULATION,
                    err=failed("radioSetTxFrequency() did not return success")),
    "wrong": Line("radioSetTxFrequency()",
                  err=failed("Error in radioSetTxFrequency expected 1..1 args, got 0")),
}


def at_the_prompt(line, fail):
    """All ends of a prompt with the line and two more."""
    once = fail == "once"
    rest = 2 * PROMPT + "last\n" + PROMPT  # the line that ends the counting, and the last one
    missed = rest if once else NO_LINE
    first = [End(PROMPT + NO_LINE, "", 0)]
    for end in line.once if once or line.without is None else line.without:
        if not isinstance(end, End):
            end = End(2 * PROMPT + end[0] + missed, end[1], 0)
        first.append(end)
    done = 2 * PROMPT + line.out
    return first + [
        End(done + NO_LINE, line.err, 0),
        End(done + (rest if once else PROMPT + NO_LINE), line.err + failed(), 0),
        End(done + rest, line.err, 0),
    ]


@pytest.mark.parametrize("name", LINES)
@pytest.mark.parametrize("fail", ["once", "from"])
def test_a_line(name, fail):
    line = LINES[name]
    runs = runs_with_each_failing(lines=[BEGIN, line.text, END, "print('last')", "exit"],
                                  fail=fail, counted="marked", driver=line.driver)
    assert_ends(runs, at_the_prompt(line, fail))
    assert_no_leak(runs)


def test_the_radio_is_closed_and_the_state_too_where_a_finaliser_lacks_memory():
    runs = runs_with_each_failing(
        lines=["h, list, kept = RadioHooks(), radioGetDriverNames(), newproxy(true)",
               "getmetatable(kept).__gc = function() print(('a'):rep(3)) end",
               "tcp = socket.tcp() file = io.tmpfile()",
               BEGIN, "exit"],
        counted="marked", driver=SIMULATION)
    assert_ends(runs, [
        End(4 * PROMPT + NO_LINE + "aaa\n", "", 0),
        End(5 * PROMPT, "", 0),  # the finaliser's own
        End(5 * PROMPT + "aaa\n", "", 0),
    ])
    assert_no_leak(runs)


CALLS = [
    "radioLoadCalibrationFile(12.5)",
    "radioGetIntegerFromCalibration(12.5, nil)",
    "return swig_type(radioGetDriverNames())",
    "return #radioVersion()",
    "h = RadioHooks() or error('not enough memory', 0) h.malloc = h.malloc",
    "return socket.protect(function(text) error({text .. 1}, 0) end)('a')",
    "return socket.newtry(function() end)",
    "local tcp = socket.tcp() tcp:settimeout(0) tcp:close()",
    "return bit.tohex(-1)",
]


@pytest.mark.parametrize("text", CALLS)
def test_a_call_raises_the_want_of_memory_or_succeeds(text):
    runs = runs_with_each_failing("-c", protected(text), counted="marked")
    assert_ends(runs, [End(MISSING + "\n", "", 0), End("true\n", "", 0)])
    assert_no_leak(runs)


def protected(text):
    return (f"local fine, message = pcall(function() {BEGIN} {text} end) {END} "
            "print(fine or message)")


INIT = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)"
DATA = SOURCE / "tests" / "driver" / "data"
LOADING = {
    "radioLoadCalibrationFile": f"radioLoadCalibrationFile('{DATA}/good.toml')",
    "radioInitByScript": f"{INIT[:-1]}, '{DATA}/good.script')".replace("Init(", "InitByScript("),
}


@pytest.mark.parametrize("name", LOADING)
def test_a_file_that_the_simulated_board_has_no_memory_for_is_not_loaded(name):
    runs = runs_with_each_failing("-c", f"{INIT} " + protected(LOADING[name]), counted="marked",
                                  driver=SIMULATION)
    assert set(ends(runs[:-1])) <= {End(f"{name}() did not return success\n", "", 0),
                                    End(MISSING + "\n", "", 0)}
    assert len(runs) > 1 and runs[-1].end == End("true\n", "", 0)
    assert_no_leak(runs)
