# SPDX-License-Identifier: LicenseRef-Proprietary
"""The trace of every_call.c: all functions, and what scripts cannot do."""

import re

import pytest
from catalogue import FUNCTIONS
from shell import SIMULATION, VERSION, in_front_of, run

# Readings are the board's business; here it matters how they are written.
FLOAT, NUMBER = r"-?\d+\.\d\d", r"-?\d+"

CALLS = [
    "radioSelectPlatform(5) = RADIO_EINVAL",
    "radioSelectPlatform(RADIO_PLATFORM_TALWIN) = RADIO_ESUCCESS",
    "radioOpen() = context 1",
    "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
    "radioCpriInit(RADIO_CPRI_RATE_5) = RADIO_ESUCCESS",
    "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) = RADIO_ESUCCESS",
    "radioInitByScript(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, "
    '"{script}") = RADIO_ESUCCESS',
    'radioLoadCalibrationFile("{calibration}") = RADIO_ESUCCESS',
    'radioGetIntegerFromCalibration("serial", -4711) = RADIO_ESUCCESS',
    'radioGetIntegerFromCalibration("none", out) = RADIO_EINVAL',
    "radioGetIntegerFromCalibration(null, null) = RADIO_EINVAL",
    r'radioGetStringFromCalibration("site", "roof, \"north\"") = RADIO_ESUCCESS',
    "radioGetPlatformChipCount() = 2",
    'radioGetPlatformName() = "simulated Talwin"',
    'radioVersion() = "{version}"',
    "radioGetDriverNames() = a list",
    "radioSetTxFrequency(2655000000) = RADIO_ESUCCESS",
    "radioSetTxChannel(3100) = RADIO_ESUCCESS",
    "radioSetTxState(RADIO_STATE_ENABLE) = RADIO_ESUCCESS",
    "radioSetTxStateOfAntenna(RADIO_TX_ANTENNA_2, RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
    "radioSetTxMaxPower(-45) = RADIO_ESUCCESS",
    "radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_2, 10) = RADIO_ESUCCESS",
    "radioSetTxDcOffset(RADIO_TX_ANTENNA_1, -3, 4) = RADIO_ESUCCESS",
    "radioSetTxPowerRegisters([4294967251, 0, 0], 3) = RADIO_ESUCCESS",
    "radioSetRxFrequency(2535000000) = RADIO_ESUCCESS",
    "radioSetRxChannel(21100) = RADIO_ESUCCESS",
    "radioSetRxState(RADIO_STATE_ENABLE) = RADIO_ESUCCESS",
    "radioSetRxStateOfAntenna(RADIO_RX_ANTENNA_2, RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
    "radioSetRxGain(30) = RADIO_ESUCCESS",
    "radioSetRxGainMode(RADIO_RX_GAIN_AGC_SLOW_HYBRID) = RADIO_ESUCCESS",
    "radioSetRxGainRegisters(null, 0) = RADIO_ESUCCESS",
    "radioSetRxGainRegisters({words}, 300) = RADIO_EINVAL",
    "radioSetLoopback(RADIO_NO_LOOPBACK) = RADIO_ESUCCESS",
    "radioGetTemperature() = {FLOAT}",
    "radioGetRxRtwp() = {NUMBER}",
    "radioGetRxRtwpIndBm() = {FLOAT}",
    "radioGetRxRtwpOfAntenna(RADIO_RX_ANTENNA_1) = {NUMBER}",
    "radioGetRxRtwpOfAntennaIndBm(RADIO_RX_ANTENNA_2) = nan",
    "radioGetRxGainIndB() = {NUMBER}",
    "radioGetRxGainOfAntennaIndB(RADIO_RX_ANTENNA_1) = {NUMBER}",
    "radioSpiWrite(0x10, 0xffffffff) = RADIO_ESUCCESS",
    "radioSpiRead(0x10) = 0xffffffff",
    "radioSetOscillatorDacValue(512) = RADIO_ESUCCESS",
    "radioGetOscillatorDacValue() = 512",
    "radioGetOscillatorDacWidth() = 16",
    "radioGetDebugLevel() = 0",
    "radioSetDebugLevel(RADIO_DEBUG_NONE) = RADIO_ESUCCESS",
    "radioSetDebugFile(a file) = RADIO_ESUCCESS",
    "radioReset() = RADIO_ESUCCESS",
    "radioOpen() = context 2",
    "radioReset() = RADIO_ESUCCESS",
    "radioReset() = RADIO_ESUCCESS on context 1",
    "radioReset() = RADIO_EINVAL on a null context",
    "radioReset() = RADIO_EINVAL on no open context",
    "radioSetRxState(7) = RADIO_EINVAL on a null context",
    'radioGetPlatformName() = "simulated Talwin"',
    'radioVersion() = "{version}"',
    "radioGetDriverNames() = a list",
    'radioVersion() = "{version}" on context 1',
    "radioClose() = RADIO_ESUCCESS",
    "radioReset() = RADIO_EINVAL on no open context",
    "radioGetTemperature() = nan on no open context",
    "radioReset() = RADIO_ESUCCESS on context 1",
    "radioClose() = RADIO_ESUCCESS on context 1",
    *[f"radioOpen() = context {number}" for number in range(3, 19)],
    "radioOpen() = null",
]


@pytest.fixture(name="files")
def files_fixture(tmp_path):
    calibration, script = tmp_path / "calibration", tmp_path / "script"
    calibration.write_text("[integers]\nserial = -4711\n[strings]\nsite = 'roof, \"north\"'\n")
    script.write_text("write 0x10 5\n")
    return {"calibration": str(calibration), "script": str(script)}


def traced(files, trace, **more):
    """The lines of the trace of every_call. Nothing else is said."""
    ran = run(files["calibration"], files["script"], SOREL_SIM_TRACE=str(trace), **more)
    assert (ran.out, ran.err, ran.status) == ("", "", 0)
    return trace.read_text().splitlines()


def assert_calls(lines, files, words):
    """The lines are those of CALLS, however the array of 300 words is written."""
    assert len(lines) == len(CALLS)
    for line, call in zip(lines, CALLS):
        for name, value in {"version": VERSION, "words": words, **files}.items():
            call = call.replace(f"{{{name}}}", value)
        pattern = re.escape(call)
        for name, value in {"FLOAT": FLOAT, "NUMBER": NUMBER}.items():
            pattern = pattern.replace(re.escape(f"{{{name}}}"), value)
        assert re.fullmatch(pattern, line), (line, call)


def test_the_board_writes_each_call_down_with_its_time(files, tmp_path):
    lines = traced(files, tmp_path / "trace", driver=SIMULATION)
    stamps = [re.fullmatch(r"\[(\d+\.\d{6})\] (.*)", line).groups() for line in lines]
    assert_calls([call for _, call in stamps], files, words="[300 words]")


def test_the_library_in_front_writes_each_call_down_once_and_lists_longer_arrays(files, tmp_path):
    lines = traced(files, tmp_path / "trace", driver=None, **in_front_of(SIMULATION))
    assert_calls(lines, files, words="[4294967251, " + ", ".join(299 * ["0"]) + "]")


def test_calls_without_an_open_context_are_logged_at_the_level_of_the_environment(files, tmp_path):
    log = tmp_path / "log"
    traced(files, tmp_path / "trace", driver=SIMULATION, SOREL_SIM_LOG=str(log))
    of_none = [line for line in log.read_text().splitlines() if "the context is" in line]
    assert of_none == [
        "libsorel: error: radioReset() = RADIO_EINVAL: the context is null",
        "libsorel: error: radioReset() = RADIO_EINVAL: the context is not open",
        "libsorel: error: radioSetRxState(7) = RADIO_EINVAL: the context is null",
        "libsorel: error: radioReset() = RADIO_EINVAL: the context is not open",
        "libsorel: error: radioGetTemperature() = nan: the context is not open",
    ]
    assert log.read_text().endswith(
        "libsorel: error: radioOpen() = null: as many contexts as can be are open\n"
    )


def test_every_function_is_among_the_calls():
    called = {call.partition("(")[0] for call in CALLS}
    assert called == {function.name for function in FUNCTIONS} | {"radioOpen", "radioClose"}
    assert len(called) == 46


def test_calls_without_an_open_context_repeat_the_last_time(files, tmp_path):
    lines = traced(files, tmp_path / "trace", driver=SIMULATION)
    times = [line[: line.index("]") + 1] for line in lines]
    assert times[:3] == 3 * ["[0.000000]"]
    second = lines.index("[0.000000] radioOpen() = context 2")
    own, of_first, of_none, of_none_too = times[second + 1 : second + 5]
    assert own < of_first == of_none == of_none_too
