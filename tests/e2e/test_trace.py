# SPDX-License-Identifier: LicenseRef-Proprietary
"""The trace of the simulated board: SOREL_SIM_TRACE."""

import re
import subprocess
from signal import SIGABRT

import pytest
from catalogue import FUNCTIONS, call, names
from shell import COMMAND, SECONDS, SIMULATION, VALGRIND, environment, run

INIT = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)"
SESSION = f"radioSelectPlatform(RADIO_PLATFORM_TALWIN) {INIT} radioSetTxFrequency(2655000000)"
TRACE_OF_SESSION = """\
[0.000000] radioOpen() = context 1
[0.000000] radioSelectPlatform(RADIO_PLATFORM_TALWIN) = RADIO_ESUCCESS
"""


@pytest.fixture(name="trace")
def trace_fixture(tmp_path):
    return tmp_path / "trace"


def simulated(text, trace, **more):
    return run("-c", text, driver=SIMULATION, SOREL_SIM_TRACE=str(trace), **more)


def without_times(trace):
    return [re.sub(r"^\[\d+\.\d{6}\] ", "", line) for line in trace.read_text().splitlines()]


def test_a_session_with_its_times(trace):
    ran = simulated(SESSION, trace)
    assert (ran.out, ran.err, ran.status) == ("", "", 0)
    text = trace.read_text()
    assert text.startswith(TRACE_OF_SESSION)
    lines = text.removeprefix(TRACE_OF_SESSION).splitlines()
    calls = [f"{INIT} = RADIO_ESUCCESS", "radioSetTxFrequency(2655000000) = RADIO_ESUCCESS",
             "radioClose() = RADIO_ESUCCESS"]
    stamps = [re.fullmatch(r"\[(\d+\.\d{6})\] (.*)", line).groups() for line in lines]
    assert [call for _, call in stamps] == calls
    times = [float(time) for time, _ in stamps]
    assert 0 < times[0] < times[1] < times[2] < 1


def test_without_the_variable_nothing_is_written(tmp_path):
    for empty in ({}, {"SOREL_SIM_TRACE": ""}):
        ran = run("-c", SESSION, driver=SIMULATION, **empty)
        assert (ran.out, ran.err, ran.status) == ("", "", 0)
    assert list(tmp_path.iterdir()) == []


@pytest.mark.parametrize("function", FUNCTIONS, ids=names(FUNCTIONS))
def test_each_function_is_one_line_of_its_name(function, trace):
    simulated(f"pcall(function() {call(function)} end)", trace)
    opened, line, closed = without_times(trace)
    assert opened == "radioOpen() = context 1"
    assert re.fullmatch(rf"{function.name}\(.*\) = .+", line)
    assert closed == "radioClose() = RADIO_ESUCCESS"


def test_refused_calls_and_their_arguments(trace):
    simulated(
        "pcall(radioSetRxState, 7) pcall(radioInit, -1, 18, 256) pcall(radioSetTxMaxPower, -45) "
        "pcall(radioLoadCalibrationFile, nil) pcall(radioLoadCalibrationFile, 'a\\n\\t\\1\"\\\\') "
        "pcall(radioSetRxGainRegisters, {1, 2, 3})",
        trace,
    )
    assert without_times(trace)[1:-1] == [
        "radioSetRxState(7) = RADIO_EINVAL",
        "radioInit(RADIO_CONF_NULL, 18, 256) = RADIO_EINVAL",
        "radioSetTxMaxPower(-45) = RADIO_EERROR",
        "radioLoadCalibrationFile(null) = RADIO_EINVAL",
        r'radioLoadCalibrationFile("a\n\t\x01\"\\") = RADIO_EINVAL',
        "radioSetRxGainRegisters([1, 2, 3], 3) = RADIO_EERROR",
    ]


def test_long_texts_are_whole(trace):
    text = "x" * 50000
    simulated(f"pcall(radioLoadCalibrationFile, '{text}')", trace)
    assert without_times(trace)[1] == f'radioLoadCalibrationFile("{text}") = RADIO_EINVAL'


def test_readings(trace):
    simulated(
        f"radioGetRxRtwp() radioGetRxRtwpIndBm() radioSpiRead(0x999) {INIT} radioGetRxRtwp() "
        "radioGetRxRtwpIndBm() radioGetTemperature() radioSpiWrite(0x10, 5) radioSpiRead(0x10)",
        trace,
    )
    lines = without_times(trace)[1:-1]
    assert lines[:3] == ["radioGetRxRtwp() = -2147483648", "radioGetRxRtwpIndBm() = nan",
                         "radioSpiRead(0x999) = 0xffffffff"]
    assert re.fullmatch(r"radioGetRxRtwp\(\) = -\d+", lines[4])
    assert re.fullmatch(r"radioGetRxRtwpIndBm\(\) = -\d+\.\d\d", lines[5])
    assert re.fullmatch(r"radioGetTemperature\(\) = \d+\.\d\d", lines[6])
    assert lines[7:] == ["radioSpiWrite(0x10, 0x5) = RADIO_ESUCCESS", "radioSpiRead(0x10) = 0x5"]


def test_the_trace_is_complete_when_the_shell_aborts(trace):
    ran = run(stdin=f"{SESSION}\n", driver=SIMULATION, SOREL_SIM_TRACE=str(trace))
    assert ran.status == -SIGABRT
    assert trace.read_text().endswith("radioSetTxFrequency(2655000000) = RADIO_ESUCCESS\n")


def test_the_trace_is_complete_when_a_script_fails(trace):
    ran = simulated("radioReset() error('enough')", trace)
    assert ran.status != 0
    assert without_times(trace) == ["radioOpen() = context 1", "radioReset() = RADIO_ESUCCESS"]


def test_opening_again_goes_on_in_the_same_file_from_the_time_0(trace):
    simulated("radioReset() radioOpen() radioReset()", trace)
    assert without_times(trace) == [
        "radioOpen() = context 1",
        "radioReset() = RADIO_ESUCCESS",
        "radioClose() = RADIO_ESUCCESS",
        "radioOpen() = context 2",
        "radioReset() = RADIO_ESUCCESS",
        "radioClose() = RADIO_ESUCCESS",
    ]
    times = [line.partition(" ")[0] for line in trace.read_text().splitlines()]
    assert times[3] == "[0.000000]"
    assert times[3:] == times[:3]


def test_each_process_starts_the_file_afresh(trace):
    trace.write_text("what was there before\n" * 1000)
    simulated("radioReset()", trace)
    assert len(trace.read_text().splitlines()) == 3


def test_two_runs_leave_the_same_bytes(tmp_path):
    text = f"{SESSION} for _ = 1, 100 do radioGetTemperature() radioGetRxRtwpIndBm() end"
    for name in ("one", "other"):
        simulated(text, tmp_path / name)
    assert (tmp_path / "one").read_bytes() == (tmp_path / "other").read_bytes()


def test_no_address_is_in_it(trace):
    simulated("for name, f in pairs(radio) do if type(f) == 'function' and name:match('^radio') "
              "and name ~= 'radioClose' then pcall(f) pcall(f, 1) pcall(f, 'x', nil) end end "
              "radioGetDriverNames() pcall(radioGetStringFromCalibration, 'x', "
              "radioGetDriverNames()) radioSetDebugFile(nil)", trace)
    text = trace.read_text()
    assert "radioGetDriverNames() = a list" in text
    assert 'radioGetStringFromCalibration("x", out) = RADIO_EINVAL' in text
    assert [line for line in text.splitlines()
            if "radioSpi" not in line and re.search("0x[0-9a-f]{6,}", line)] == []


def test_a_dash_is_standard_error():
    ran = simulated("print('here') radioReset()", "-")
    assert (ran.out, ran.status) == ("here\n", 0)
    lines = ran.err.splitlines()
    assert lines[0] == "[0.000000] radioOpen() = context 1"
    assert [line.partition("] ")[2] for line in lines[1:]] == [
        "radioReset() = RADIO_ESUCCESS", "radioClose() = RADIO_ESUCCESS"
    ]


def test_what_is_wrong_with_a_scenario_breaks_no_line_of_it(tmp_path):
    scenario = tmp_path / "bad.toml"
    scenario.write_text("seed = true\n")
    ran = simulated("radioVersion()", "-", SOREL_SIM_SCENARIO=str(scenario))
    calls, complaints = ran.err.splitlines()[:1], ran.err.splitlines()[1:2]
    assert calls == ["[0.000000] radioOpen() = null"]
    assert complaints[0].startswith(f"{scenario}:1:8: ")


def test_a_file_that_cannot_be_opened_is_said_once_and_work_goes_on(tmp_path):
    path = tmp_path / "nowhere" / "trace"
    ran = simulated("radioReset() print('done')", path)
    assert (ran.out, ran.status) == ("done\n", 0)
    assert ran.err == (
        f"libsorel: SOREL_SIM_TRACE: cannot open '{path}': No such file or directory\n"
    )


def test_a_full_disk_is_said_once_and_work_goes_on():
    ran = simulated("radioReset() print('done')", "/dev/full")
    assert (ran.out, ran.status) == ("done\n", 0)
    assert ran.err == "libsorel: SOREL_SIM_TRACE: cannot write: No space left on device\n"


@pytest.mark.skipif(VALGRIND, reason="there valgrind's own file takes that place")
def test_the_file_never_takes_the_place_of_a_standard_one(trace):
    # The shell runs without standard output and error: what it prints must not end up in the trace.
    text = "print('lost') io.stderr:write('lost') radioReset()"
    closing = ["sh", "-c", 'exec "$@" >&- 2>&-', "sh"]
    variables = environment(SIMULATION, {"SOREL_SIM_TRACE": str(trace)})
    subprocess.run(closing + COMMAND + ["-c", text], env=variables, timeout=SECONDS, check=False)
    assert "radioReset() = RADIO_ESUCCESS" in without_times(trace)
    assert "lost" not in trace.read_text()
