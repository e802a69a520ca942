# SPDX-License-Identifier: LicenseRef-Proprietary
"""The debug messages that the environment asks for: SOREL_SIM_LOG and SOREL_SIM_LOG_LEVEL."""

import re

import pytest
from shell import SIMULATION, run

INIT = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)"
REFUSED = "pcall(radioSetRxState, 7)"
MESSAGE = "libsorel: error: radioSetRxState(7) = RADIO_EINVAL: argument 1 is not a RadioState\n"
LEVELS = ["none", "error", "warn", "info", "debug", "trace"]


@pytest.fixture(name="log")
def log_fixture(tmp_path):
    return tmp_path / "log"


def simulated(text, **variables):
    """Runs Lua text that must succeed; returns what it says on standard error. Nothing but what it
    prints is on standard output."""
    ran = run("-c", text + " io.write('printed')", driver=SIMULATION, **variables)
    assert (ran.out, ran.status) == ("printed", 0), ran
    return ran.err


def test_without_the_variables_nothing_is_said():
    assert simulated(REFUSED) == ""
    assert simulated(REFUSED, SOREL_SIM_LOG="", SOREL_SIM_LOG_LEVEL="") == ""


def test_a_file_alone_takes_errors(log):
    assert simulated(f"{REFUSED} {INIT}", SOREL_SIM_LOG=str(log)) == ""
    assert log.read_text() == MESSAGE


def test_a_dash_is_standard_error():
    assert simulated(REFUSED, SOREL_SIM_LOG="-") == MESSAGE


def test_a_level_alone_means_standard_error():
    assert simulated(REFUSED, SOREL_SIM_LOG_LEVEL="error") == MESSAGE


@pytest.mark.parametrize("number, name", enumerate(LEVELS), ids=LEVELS)
def test_a_level_has_a_name_a_number_and_its_constant(number, name):
    text = "io.write(radioGetDebugLevel())"
    for level in (name, str(number), f"RADIO_DEBUG_{name.upper()}"):
        ran = run("-c", text, driver=SIMULATION, SOREL_SIM_LOG="/dev/null",
                  SOREL_SIM_LOG_LEVEL=level)
        assert (ran.out, ran.err, ran.status) == (str(number), "", 0)


@pytest.mark.parametrize("level", ["loud", "6", "-1", "ERROR", "RADIO_DEBUG_NULL", "error "])
def test_an_unknown_level_is_said_and_taken_for_error(level):
    complaint, message = simulated(REFUSED, SOREL_SIM_LOG_LEVEL=level).splitlines()
    assert complaint == (
        f"libsorel: SOREL_SIM_LOG_LEVEL: '{level}' is no level; none, error, warn, info, debug "
        "and trace are. Taking error"
    )
    assert message == MESSAGE.strip()


def test_what_each_level_says():
    text = f"{REFUSED} radioSelect(RADIO_SELECT_1) " + INIT.replace("MIMO", "SISO")
    said = {level: simulated(text, SOREL_SIM_LOG_LEVEL=level).splitlines() for level in LEVELS}
    kinds = {level: {line.split()[1].rstrip(":") for line in lines}
             for level, lines in said.items()}
    assert kinds == {
        "none": set(),
        "error": {"error"},
        "warn": {"error", "warn"},
        "info": {"error", "warn", "info"},
        "debug": {"error", "warn", "info", "debug"},
        "trace": {"error", "warn", "info", "debug"},
    }
    assert simulated("radioGetTemperature()", SOREL_SIM_LOG_LEVEL="debug").count("trace:") == 0
    assert simulated("radioGetTemperature()", SOREL_SIM_LOG_LEVEL="trace").count("trace:") == 1


def test_at_trace_every_call_is_said_opening_and_closing_included():
    text = "radioSelectPlatform(1) radioGetDriverNames() radioVersion() radioGetPlatformName()"
    lines = simulated(text, SOREL_SIM_LOG_LEVEL="trace").splitlines()
    said = [line for line in lines if not line.startswith("libsorel: debug: ")]
    assert [re.fullmatch(r"libsorel: (\w+): (\w+)\(.*", line).groups() for line in said] == [
        ("info", "radioOpen"),
        ("info", "radioSelectPlatform"),
        ("trace", "radioGetDriverNames"),
        ("trace", "radioVersion"),
        ("trace", "radioGetPlatformName"),
        ("info", "radioClose"),
    ]


def test_a_script_can_change_level_and_destination(log):
    text = (f"{REFUSED} radioSetDebugLevel(RADIO_DEBUG_NONE) {REFUSED} "
            f"radioSetDebugLevel(RADIO_DEBUG_ERROR) radioSetDebugFile(nil) {REFUSED}")
    assert simulated(text, SOREL_SIM_LOG=str(log)) == ""
    assert log.read_text() == 2 * MESSAGE


def test_each_context_begins_with_the_level_of_the_environment(log):
    text = f"radioSetDebugLevel(RADIO_DEBUG_NONE) radioOpen() {REFUSED}"
    simulated(text, SOREL_SIM_LOG=str(log))
    assert log.read_text() == MESSAGE


def test_each_process_starts_the_file_afresh(log):
    log.write_text("what was there before\n")
    simulated("radioReset()", SOREL_SIM_LOG=str(log))
    assert log.read_text() == ""


def test_calls_without_a_context_are_logged_at_the_level_of_the_environment():
    text = "pcall(radioSelectPlatform, RADIO_PLATFORM_COUNT)"
    assert simulated(text, SOREL_SIM_LOG_LEVEL="error") == (
        "libsorel: error: radioSelectPlatform(5) = RADIO_EINVAL: "
        "argument 1 is not a RadioPlatformSelectIndex\n"
    )


def test_a_value_out_of_range_is_said_with_the_range():
    text = f"{INIT} pcall(radioSetTxFrequency, 2400000000)"
    assert simulated(text, SOREL_SIM_LOG="-") == (
        "libsorel: error: radioSetTxFrequency(2400000000) = RADIO_EINVAL: "
        "frequency 2400000000 is outside 2620000000..2690000000 Hz\n"
    )


def test_a_file_that_cannot_be_opened_is_said_and_messages_go_to_standard_error(tmp_path):
    path = tmp_path / "nowhere" / "log"
    assert simulated(REFUSED, SOREL_SIM_LOG=str(path)) == (
        f"libsorel: SOREL_SIM_LOG: cannot open '{path}': No such file or directory\n{MESSAGE}"
    )


def test_log_and_trace_can_share_a_file_each_line_whole(log):
    log.write_text("what was there before\n")
    simulated(REFUSED, SOREL_SIM_LOG=str(log), SOREL_SIM_TRACE=str(log))
    lines = log.read_text().splitlines()
    assert [line.partition("] ")[2] or line for line in lines] == [
        "radioOpen() = context 1",
        "radioSetRxState(7) = RADIO_EINVAL",
        MESSAGE.strip(),
        "radioClose() = RADIO_ESUCCESS",
    ]
